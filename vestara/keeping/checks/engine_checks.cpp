#include "vestara/keeping/checks/engine_checks.h"

#include <algorithm>
#include <array>

#include "automation/text.h"
#include "vestara/foundation/failure.h"

namespace vestara {
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

std::string_view triggers_on(std::string_view scheme) {
  const auto* const found = std::find_if(questions.begin(), questions.end(), [&](const EngineQuestion& question) {
    return automation::equal_ignoring_case(question.scheme, scheme);
  });
  return found == questions.end() ? std::string_view() : found->triggers;
}

bool is_ours(std::string_view name) {
  const auto tables = archive_tables();
  return std::any_of(tables.begin(), tables.end(),
                     [&](const ArchiveTable& table) { return automation::equal_ignoring_case(table.name, name); });
}

bool can_compare(const Archive& archive, std::string_view table, std::string_view column) {
  automation::Ref<RecordSet> rows;
  if (!archive.connector()->OpenRecordset(
          rows, automation::concatenated({"SELECT ", column, " FROM ", table, " WHERE ", column, " LIKE 'x' AND ",
                                          column, "='x' ORDER BY ", column})))
    return false;
  archive.connector()->CloseRecordset(rows);
  return true;
}

}  // namespace

TriggerFinding find_triggers(const Archive& archive, std::string_view scheme) {
  const std::string_view question = triggers_on(scheme);
  automation::Ref<RecordSet> rows;
  if (question.empty() || !archive.connector()->OpenRecordset(rows, question)) return {};
  TriggerFinding finding;
  for (; !rows->at_end(); rows->move_next()) {
    if (!is_ours(rows->text(Column{0})) || finding.count++ != 0) continue;
    finding.table = rows->text(Column{0});
    finding.name = rows->text(Column{1});
  }
  archive.connector()->CloseRecordset(rows);
  return finding;
}

std::vector<UncomparableColumn> uncomparable_columns(const Archive& archive) {
  std::vector<UncomparableColumn> columns;
  for (const ArchiveTable& table : archive_tables()) {
    if (!archive.can_read(table)) continue;
    for (const TableColumn& column : table.columns)
      if (holds_text(column.kind) && !can_compare(archive, table.name, column.name))
        columns.push_back({table.name, column.name, archive.reason()});
  }
  return columns;
}

std::string why_unchangeable(const Archive& archive) {
  try {
    const Transaction trial(archive);
    if (!archive.can_read(draw_table) || archive.connector()->ExecuteSql("DELETE FROM storico WHERE 1=0")) return {};
    return archive.reason();
  } catch (const Failure& failure) {
    return failure.description();
  }
}

}  // namespace vestara
