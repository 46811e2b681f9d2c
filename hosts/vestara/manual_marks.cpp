#include "hosts/vestara/manual_marks.h"

#include <algorithm>
#include <string>

#include "automation/coercion.h"
#include "automation/error.h"
#include "vestara/foundation/sql_text.h"

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

std::string day_literal(int32_t day) { return sqlDateTime(automation::Date::from_day(day)); }

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

void ManualMarks::add(int32_t day) {
  make_table();
  execute("INSERT INTO vestara_manual_draws(dtEstr)VALUES(" + day_literal(day) + ")");
}

void ManualMarks::execute(const std::string& statement) const {
  if (!session_.connector()->ExecuteSql(statement)) session_.fail("the draw cannot be marked as entered by hand");
}

bool ManualMarks::remove(int32_t day) const {
  return !has_table_ ||
         session_.connector()->ExecuteSql("DELETE FROM vestara_manual_draws WHERE dtEstr=" + day_literal(day));
}

NewMark::NewMark(const ArchiveSession& session, ManualMarks& marks, int32_t day)
    : session_(session), marks_(marks), day_(day), is_new_(!marks.holds(day)) {
  if (is_new_) marks.add(day);
}

NewMark::~NewMark() {
  if (!is_new_) return;
  try {
    // A refused draw may have left its transaction open: the mark would come back with it.
    session_.connector()->RollbackTrans();
    marks_.remove(day_);
  } catch (const automation::RunTimeError&) {
    return;  // a mark without a draw means nothing
  }
}

}  // namespace vestara::host
