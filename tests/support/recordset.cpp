#include "tests/support/recordset.h"

#include <algorithm>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/member.h"
#include "automation/text.h"

namespace testing_support {

using automation::RunTimeError;
using automation::Variant;
using vestara::Column;

namespace {

constexpr automation::ClassDescription memory_recordset{.library = "Tests", .name = "MemoryRecordSet"};

std::string_view without_qualifier(std::string_view name) { return name.substr(name.rfind('.') + 1); }
bool is_qualified(std::string_view name) { return name.find('.') != std::string_view::npos; }

bool matches(std::string_view column, std::string_view wanted) {
  if (is_qualified(column) && is_qualified(wanted)) return automation::equal_ignoring_case(column, wanted);
  return automation::equal_ignoring_case(without_qualifier(column), without_qualifier(wanted));
}

}  // namespace

const automation::ClassDescription& MemoryRecordSet::description() const { return memory_recordset; }

void MemoryRecordSet::check_open() const {
  if (!open_) throw RunTimeError(closed_error, "Operation is not allowed when the object is closed.");
}

bool MemoryRecordSet::at_end() {
  check_open();
  return position_ >= count();
}

bool MemoryRecordSet::at_start() {
  check_open();
  return position_ < 0 || count() == 0;
}

void MemoryRecordSet::go_to(int64_t position) {
  check_open();
  texts_.clear();
  position_ = std::clamp<int64_t>(position, -1, count());
}

void MemoryRecordSet::move_last() { go_to(std::max<int64_t>(count() - 1, 0)); }

void MemoryRecordSet::move(int32_t rows) {
  if (rows > 0 && at_end()) throw automation::no_current_record();
  if (rows < 0 && at_start()) throw automation::no_current_record();
  go_to(position_ + rows);
}

int32_t MemoryRecordSet::record_count() {
  check_open();
  return static_cast<int32_t>(count());
}

int32_t MemoryRecordSet::column_count() {
  check_open();
  return static_cast<int32_t>(table_.columns.size());
}

std::string MemoryRecordSet::column_name(Column column) {
  if (column.index < 0 || column.index >= column_count()) throw automation::item_not_found();
  return std::string(without_qualifier(table_.columns[static_cast<size_t>(column.index)]));
}

Column MemoryRecordSet::column(std::string_view name) {
  check_open();
  const auto found = std::ranges::find_if(table_.columns, [&](const auto& column) { return matches(column, name); });
  if (found == table_.columns.end()) throw automation::item_not_found();
  return {static_cast<int32_t>(found - table_.columns.begin())};
}

Variant MemoryRecordSet::value(Column column) {
  if (column.index < 0 || column.index >= column_count()) throw automation::item_not_found();
  if (at_end() || at_start()) throw automation::no_current_record();
  return table_.rows[static_cast<size_t>(position_)].at(static_cast<size_t>(column.index));
}

bool MemoryRecordSet::is_null(Column column) { return value(column).is_null(); }

int32_t MemoryRecordSet::whole_number(Column column) {
  return automation::round_to_long(automation::leading_double(automation::to_text(value(column))));
}

std::string_view MemoryRecordSet::text(Column column) {
  return texts_.emplace_back(automation::to_text(value(column)));
}

}  // namespace testing_support
