#include "hosts/cli/keeping/manual_marks.h"

#include <algorithm>
#include <string>

#include "automation/coercion.h"
#include "hosts/cli/draws/day_literal.h"

namespace vestara::host {
namespace {

constexpr std::string_view read_marks = "SELECT dtEstr FROM vestara_manual_draws";

bool can_read(const ArchiveSession& session, std::string_view statement) {
  automation::Ref<RecordSet> rows;
  if (!session.connector()->OpenRecordset(rows, statement)) return false;
  session.connector()->CloseRecordset(rows);
  return true;
}

/// No table, rather than an archive that cannot be read at all.
bool has_marks(const ArchiveSession& session) {
  if (can_read(session, read_marks)) return true;
  if (!can_read(session, "SELECT dtEstr FROM storico WHERE id<0")) session.fail("the archive cannot be read");
  return false;
}

}  // namespace

ManualMarks::ManualMarks(const ArchiveSession& session) : session_(session), has_table_(has_marks(session)) {}

std::vector<int32_t> ManualMarks::days() const {
  std::vector<int32_t> days;
  if (!has_table_) return days;
  auto rows = session_.rows(read_marks);
  for (; !rows->at_end(); rows->move_next())
    if (const auto date = automation::date_in(rows->value(Column{0}))) days.push_back(date->day());
  session_.connector()->CloseRecordset(rows);
  std::sort(days.begin(), days.end());
  return days;
}

bool ManualMarks::holds(int32_t day) const {
  const auto marked = days();
  return std::binary_search(marked.begin(), marked.end(), day);
}

void ManualMarks::make_table() {
  if (!has_table_) execute("CREATE TABLE IF NOT EXISTS vestara_manual_draws(dtEstr DATE NOT NULL PRIMARY KEY)");
  has_table_ = true;
}

// On a connection of its own: a statement that fails costs some engines the transaction.
void ManualMarks::look_again() {
  if (!has_table_) has_table_ = has_marks(session_.another());
}

void ManualMarks::add(int32_t day) const {
  if (!holds(day)) execute("INSERT INTO vestara_manual_draws(dtEstr)VALUES(" + day_literal(day) + ")");
}

void ManualMarks::remove(int32_t day) const {
  if (has_table_) execute("DELETE FROM vestara_manual_draws WHERE dtEstr=" + day_literal(day));
}

void ManualMarks::execute(const std::string& statement) const {
  if (!session_.connector()->ExecuteSql(statement))
    session_.fail("the draws entered by hand cannot be marked, nothing was changed");
}

}  // namespace vestara::host
