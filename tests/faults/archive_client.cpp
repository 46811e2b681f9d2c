// A host that does what it is told: one command a line on the standard input, one line of answer each.
//
//   open URL   close   state   error          "True" or "False"; the state; the reason of the last failure
//   schema   check   file                     CreateSchema, CheckSchema, CheckFile with "|" between lines
//   sql STATEMENT   rows STATEMENT            rows: values joined by ",", rows by " "; "refused"
//   largest TABLE COLUMN                      GetMaxId
//   begin   commit   rollback                 "done", or "raised"
//   import FILE                               the whole history, in one transaction
//   save DATE CONTEST                         number i of the 55 is (i + CONTEST) % 90 + 1
//   hits NUMBERS   delay   draws   newest     a study of the whole archive each
//
// Two commands answer line after line, until one call fails or all are done, then "ended":
//   saves FIRST COUNT                         contest FIRST and so on, on 40 dates in turn: "DATE CONTEST True"
//   searches COUNT                            "HITS DELAY DRAWS"

#include <array>
#include <cstdio>
#include <iostream>
#include <string>

#include "automation/coercion.h"
#include "automation/error.h"
#include "dorvane/connector.h"
#include "tests/faults/numbered_draw.h"
#include "vestara/archive/lotto.h"
#include "vestara/frequency/frequency.h"

namespace {

using automation::Missing;
using automation::Ref;
using automation::Variant;

constexpr int dates_in_turn = 40;

void say(const std::string& line) {
  std::puts(line.c_str());
  std::fflush(stdout);
}

std::string word(bool answer) { return answer ? "True" : "False"; }

/// The words before and behind the first blank.
std::pair<std::string, std::string> halves(const std::string& text) {
  const auto blank = text.find(' ');
  if (blank == std::string::npos) return {text, ""};
  return {text.substr(0, blank), text.substr(blank + 1)};
}

std::string date_in_turn(int contest) {
  std::array<char, 16> text{};
  const int place = contest % dates_in_turn;
  std::snprintf(text.data(), text.size(), "2030-%02d-%02d", place / 20 + 1, place % 20 + 1);
  return text.data();
}

std::string row_text(vestara::RecordSet& rows) {
  std::string text;
  for (int32_t i = 0; i < rows.column_count(); ++i) {
    const Variant value = rows.value({i});
    text.append(i == 0 ? "" : ",").append(value.is_null() ? "Null" : automation::to_text(value));
  }
  return text;
}

class Client {
 public:
  std::string open(const std::string& url) {
    if (!connector_->Open(url)) return "False";
    use_connector();
    return "True";
  }
  std::string close(const std::string&) {
    connector_->Close();
    return "done";
  }
  std::string state(const std::string&) { return std::to_string(connector_->ConnectionState()); }
  std::string error(const std::string&) { return connector_->LastError(); }
  std::string schema(const std::string&) {
    const bool complete = connector_->CreateSchema();
    if (complete) use_connector();
    return word(complete);
  }
  std::string check(const std::string&) {
    std::string lines = connector_->CheckSchema();
    for (char& c : lines) c = c == '\n' ? '|' : c;
    return lines;
  }

  std::string file(const std::string&) {
    std::string lines;
    for (const std::string& line : connector_->CheckFile()) lines.append(lines.empty() ? "" : "|").append(line);
    return lines;
  }

  std::string sql(const std::string& statement) { return word(connector_->ExecuteSql(statement)); }
  std::string rows(const std::string& statement) {
    Ref<vestara::RecordSet> set;
    if (!connector_->OpenRecordset(set, statement)) return "refused";
    std::string text;
    for (; !set->at_end(); set->move_next()) text.append(text.empty() ? "" : " ").append(row_text(*set));
    connector_->CloseRecordset(set);
    return text;
  }
  std::string largest(const std::string& names) {
    const auto [table, column] = halves(names);
    return std::to_string(connector_->GetMaxId(table, column));
  }

  std::string begin(const std::string&) {
    return raised_or_done([&] { connector_->BeginTrans(); });
  }
  std::string commit(const std::string&) {
    return raised_or_done([&] { connector_->CommitTrans(); });
  }
  std::string rollback(const std::string&) {
    return raised_or_done([&] { connector_->RollbackTrans(); });
  }

  std::string import(const std::string& file) {
    if (begin("") == "raised") return "False";
    lotto_.FileUpdate(file);
    if (lotto_.UpdateTblStorico()) return word(commit("") == "done");
    rollback("");
    return "False";
  }
  std::string save(const std::string& arguments) {
    const auto [date, contest] = halves(arguments);
    return word(saved(date, std::stoi(contest)));
  }

  std::string hits(const std::string& numbers) {
    const Ref<vestara::RecordSet> dates = lotto_.LoadLottoEstr(numbers, 1, "", Missing{}, Missing{}, false, true);
    return dates ? std::to_string(lotto_.ContaSortiteTrovate()) + "/" + std::to_string(dates->record_count())
                 : "nothing";
  }
  std::string delay(const std::string&) {
    frequencies_.LoadRitardi();
    return std::to_string(frequencies_.GetRitNum(90, "VE"));
  }
  std::string draws(const std::string&) { return std::to_string(lotto_.ContaEstrazioniStorico()); }
  std::string newest(const std::string&) {
    const Variant date = lotto_.GetMaxDateStorico();
    return date.is_empty() ? "Empty" : automation::to_text(date);
  }

  std::string saves(const std::string& arguments) {
    const auto [first, count] = halves(arguments);
    const int end = std::stoi(first) + std::stoi(count);
    for (int contest = std::stoi(first); contest < end; ++contest) {
      const std::string date = date_in_turn(contest);
      const bool kept = saved(date, contest);
      say(date + " " + std::to_string(contest) + " " + word(kept));
      if (!kept) break;
    }
    return "ended";
  }
  std::string searches(const std::string& count) {
    for (int left = std::stoi(count); left > 0; --left) {
      const std::string found = hits("5,12");
      const std::string ago = delay("");
      say(found + " " + ago + " " + draws(""));
      if (connector_->ConnectionState() == 0) break;
    }
    return "ended";
  }

 private:
  /// Reads the wheels.
  void use_connector() {
    lotto_.ActiveConnection(connector_);
    frequencies_.ActiveConnection(connector_);
  }

  bool saved(const std::string& date, int contest) {
    return lotto_.SalvaEstrazione(
        faults::numbered_draw(date, contest, [contest](int32_t i) { return (i + contest) % 90 + 1; }));
  }

  template <class Call>
  static std::string raised_or_done(Call&& call) {
    try {
      call();
      return "done";
    } catch (const automation::RunTimeError&) {
      return "raised";
    }
  }

  Ref<dorvane::DbConnector> connector_ = automation::make<dorvane::DbConnector>();
  vestara::cLotto lotto_;
  vestara::cFrequenza frequencies_;
};

struct Command {
  std::string_view name;
  std::string (Client::*run)(const std::string&);
};

constexpr std::array<Command, 21> commands{{
    {"open", &Client::open},     {"close", &Client::close},       {"state", &Client::state},
    {"error", &Client::error},   {"schema", &Client::schema},     {"check", &Client::check},
    {"sql", &Client::sql},       {"rows", &Client::rows},         {"largest", &Client::largest},
    {"begin", &Client::begin},   {"commit", &Client::commit},     {"rollback", &Client::rollback},
    {"import", &Client::import}, {"save", &Client::save},         {"hits", &Client::hits},
    {"delay", &Client::delay},   {"draws", &Client::draws},       {"newest", &Client::newest},
    {"saves", &Client::saves},   {"searches", &Client::searches}, {"file", &Client::file},
}};

}  // namespace

int main() {
  Client client;
  for (std::string line; std::getline(std::cin, line);) {
    const auto [name, rest] = halves(line);
    const Command* found = nullptr;
    for (const Command& command : commands)
      if (command.name == name) found = &command;
    if (!found) return 2;
    say((client.*found->run)(rest));
  }
  return 0;
}
