#include "hosts/cli/checks/engine_findings.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "automation/text.h"

namespace vestara::host {
namespace {

struct EngineQuestion {
  std::string_view scheme;
  std::string_view triggers;  ///< table and name of each
};

constexpr std::array<EngineQuestion, 3> questions{{
    {"sqlite", "SELECT tbl_name AS tabella,name AS nome FROM sqlite_master WHERE type='trigger'"},
    {"postgresql", "SELECT event_object_table AS tabella,trigger_name AS nome FROM information_schema.triggers"},
    {"mariadb",
     "SELECT event_object_table AS tabella,trigger_name AS nome FROM information_schema.triggers WHERE "
     "event_object_schema=database()"},
}};

std::string_view triggers_of(const std::string& url) {
  const std::string scheme = automation::lower_case(url.substr(0, url.find(':')));
  const auto* const found = std::find_if(questions.begin(), questions.end(),
                                         [&](const EngineQuestion& question) { return question.scheme == scheme; });
  return found == questions.end() ? std::string_view() : found->triggers;
}

bool is_ours(std::string_view name) {
  const auto tables = archive_tables();
  return std::any_of(tables.begin(), tables.end(),
                     [&](const ArchiveTable& table) { return automation::equal_ignoring_case(table.name, name); });
}

bool can_compare(const ArchiveSession& session, const ArchiveTable& table, std::string_view column) {
  automation::Ref<RecordSet> rows;
  const std::string name(column);
  if (!session.connector()->OpenRecordset(rows, "SELECT " + name + " FROM " + std::string(table.name) + " WHERE " +
                                                    name + " LIKE 'x' AND " + name + "='x' ORDER BY " + name))
    return false;
  session.connector()->CloseRecordset(rows);
  return true;
}

}  // namespace

Findings trigger_findings(const ArchiveSession& session, const std::string& url) {
  const std::string_view question = triggers_of(url);
  automation::Ref<RecordSet> rows;
  if (question.empty() || !session.connector()->OpenRecordset(rows, question)) return {};
  int64_t count = 0;
  std::string example;
  for (; !rows->at_end(); rows->move_next()) {
    if (!is_ours(rows->text(Column{0}))) continue;
    if (count++ == 0) example = std::string(rows->text(Column{1})) + " on " + std::string(rows->text(Column{0}));
  }
  session.connector()->CloseRecordset(rows);
  if (count == 0) return {};
  return {{"triggers on the archive's tables", count, example,
           "drop them, or know what they do: what is saved need not be what is stored"}};
}

Findings collation_findings(const ArchiveSession& session) {
  Findings findings;
  for (const ArchiveTable& table : archive_tables()) {
    if (!session.can_read(table)) continue;
    for (const TableColumn& column : table.columns)
      if (holds_text(column.kind) && !can_compare(session, table, column.name))
        findings.push_back(
            {"texts of " + std::string(table.name) + "." + std::string(column.name) + " cannot be compared", 1,
             session.connector()->LastError(),
             "give the database the collation, or vestara copy what the archive holds to a new one"});
  }
  return findings;
}

}  // namespace vestara::host
