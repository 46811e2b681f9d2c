#include "vestara/keeping/import/manual_marks.h"

#include <algorithm>
#include <string>

#include "automation/coercion.h"
#include "vestara/draws/day_literal.h"

namespace vestara {
namespace {

constexpr std::string_view read_marks = "SELECT dtEstr FROM vestara_manual_draws";

bool can_read(const Archive& archive, std::string_view statement) {
  automation::Ref<RecordSet> rows;
  if (!archive.connector()->OpenRecordset(rows, statement)) return false;
  archive.connector()->CloseRecordset(rows);
  return true;
}

/// No table, rather than an archive that cannot be read at all.
bool has_marks(const Archive& archive) {
  if (can_read(archive, read_marks)) return true;
  if (!can_read(archive, "SELECT dtEstr FROM storico WHERE id<0")) archive.fail("the archive cannot be read");
  return false;
}

}  // namespace

ManualMarks::ManualMarks(const Archive& archive) : archive_(archive), has_table_(has_marks(archive)) {}

std::vector<int32_t> ManualMarks::days() const {
  std::vector<int32_t> days;
  if (!has_table_) return days;
  auto rows = archive_.rows(read_marks);
  for (; !rows->at_end(); rows->move_next())
    if (const auto date = automation::date_in(rows->value(Column{0}))) days.push_back(date->day());
  archive_.connector()->CloseRecordset(rows);
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
  if (!has_table_) has_table_ = has_marks(archive_.another());
}

void ManualMarks::add(int32_t day) const {
  if (!holds(day)) execute("INSERT INTO vestara_manual_draws(dtEstr)VALUES(" + day_literal(day) + ")");
}

void ManualMarks::remove(int32_t day) const {
  if (has_table_) execute("DELETE FROM vestara_manual_draws WHERE dtEstr=" + day_literal(day));
}

void ManualMarks::execute(const std::string& statement) const {
  if (!archive_.connector()->ExecuteSql(statement))
    archive_.fail("the draws entered by hand cannot be marked, nothing was changed");
}

}  // namespace vestara
