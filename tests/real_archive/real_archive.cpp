#include "tests/real_archive/real_archive.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "automation/text.h"
#include "vestara/keeping/history_text.h"

namespace real_archive {

namespace {

/// Contest numbers by date; rows come by date.
class Contests {
 public:
  std::string next(std::string_view date) {
    if (date.substr(0, 4) != std::string_view(date_).substr(0, 4)) contest_ = 0;
    if (date != date_) ++contest_;
    date_ = date;
    return std::to_string(contest_);
  }

 private:
  std::string date_;
  int contest_ = 0;
};

std::string values(const std::string& line, Contests& contests) {
  const auto fields = automation::split(line, ',');
  if (fields.size() != 7) return {};
  std::string text = "(" + contests.next(fields[0]);
  for (size_t i = 0; i < 7; ++i) {
    const std::string_view quote = i < 2 ? "'" : "";
    text += automation::concatenated({",", quote, fields[i], quote});
  }
  return text + ")";
}

void load(dorvane::DbConnector& archive) {
  constexpr size_t rows_per_statement = 500;
  const std::string insert = "INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES";
  std::ifstream file(path());
  std::string line, statement;
  Contests contests;
  size_t rows = 0;
  const auto send = [&] {
    EXPECT_TRUE(statement.empty() || archive.ExecuteSql(statement)) << archive.LastError();
    statement.clear();
  };
  std::getline(file, line);
  archive.BeginTrans();
  while (std::getline(file, line)) {
    statement += (statement.empty() ? insert : ",") + values(line, contests);
    if (++rows % rows_per_statement == 0) send();
  }
  send();
  archive.CommitTrans();
  EXPECT_GT(rows, 100000U) << path();
}

}  // namespace

std::string path() {
  const char* given = std::getenv("VESTARA_REAL_ARCHIVE");
  return given ? given : "";
}

automation::Ref<dorvane::DbConnector> connector() {
  static const automation::Ref<dorvane::DbConnector> archive = [] {
    auto fresh = automation::make<dorvane::DbConnector>();
    EXPECT_TRUE(fresh->Open("sqlite::memory:") && fresh->CreateSchema()) << fresh->LastError();
    load(*fresh);
    return fresh;
  }();
  return archive;
}

}  // namespace real_archive
