#include "records/static_recordset.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include "automation/error.h"
#include "automation/text.h"

namespace records {
namespace {

constexpr int64_t every_row = std::numeric_limits<int64_t>::max() - 1;

std::string_view unqualified(std::string_view name) {
  const auto point = name.rfind('.');
  return point == std::string_view::npos ? name : name.substr(point + 1);
}

}  // namespace

StaticRecordSet::StaticRecordSet(std::vector<ColumnHeader> headers, std::unique_ptr<RowSource> source)
    : headers_(std::move(headers)), source_(std::move(source)) {
  columns_.reserve(headers_.size());
  for (const ColumnHeader& header : headers_) columns_.emplace_back(header.reading);
  if (source_) source_->taken_by(*this);
}

StaticRecordSet::StaticRecordSet(std::vector<ColumnHeader> headers, std::vector<ColumnStore> columns)
    : headers_(std::move(headers)),
      columns_(std::move(columns)),
      rows_(columns_.empty() ? 0 : static_cast<int64_t>(columns_.front().size())) {}

StaticRecordSet::~StaticRecordSet() = default;

void StaticRecordSet::fill_to(int64_t row) {
  while (source_ && rows_ <= row) {
    try {
      if (source_->fetch(columns_)) {
        ++rows_;
        continue;
      }
    } catch (const automation::RunTimeError& error) {
      failure_ = error;
    } catch (const std::bad_alloc&) {
      failure_ = automation::out_of_memory();
    }
    source_ = nullptr;
  }
}

bool StaticRecordSet::fetch_to(int64_t row) {
  fill_to(row);
  if (rows_ <= row && failure_) fail();
  return rows_ > row;
}

void StaticRecordSet::fail() const {
  if (on_failure_) on_failure_(*failure_);
  throw *failure_;
}

void StaticRecordSet::fetch_all() { fetch_to(every_row); }

void StaticRecordSet::complete() noexcept { fill_to(every_row); }

void StaticRecordSet::prefetch(size_t rows) { reach(static_cast<int64_t>(rows)); }

void StaticRecordSet::require_open() const {
  if (!open_) throw automation::object_is_closed();
}

bool StaticRecordSet::at_end() {
  require_open();
  return position_ >= 0 && !reach(position_);
}

bool StaticRecordSet::at_start() {
  require_open();
  return position_ < 0 || !reach(0);
}

void StaticRecordSet::move_first() {
  require_open();
  position_ = 0;
}

void StaticRecordSet::move_last() {
  require_open();
  fetch_all();
  position_ = rows_ == 0 ? 0 : rows_ - 1;
}

void StaticRecordSet::move_next() { move(1); }
void StaticRecordSet::move_previous() { move(-1); }

void StaticRecordSet::move(int32_t rows) {
  require_open();
  if (rows > 0 && position_ >= 0 && !reach(position_)) throw automation::no_current_record();
  if (rows < 0 && (position_ < 0 || !reach(0))) throw automation::no_current_record();
  const int64_t target = position_ + rows;
  if (target < 0)
    position_ = -1;
  else
    position_ = reach(target) ? target : rows_;
}

int32_t StaticRecordSet::record_count() {
  require_open();
  fetch_all();
  if (failure_) fail();
  return static_cast<int32_t>(rows_);
}

int32_t StaticRecordSet::column_count() {
  require_open();
  return static_cast<int32_t>(headers_.size());
}

std::string StaticRecordSet::column_name(Column column) {
  require_open();
  if (column.index < 0 || static_cast<size_t>(column.index) >= headers_.size()) throw automation::item_not_found();
  return headers_[static_cast<size_t>(column.index)].name;
}

Column StaticRecordSet::column(std::string_view name) {
  require_open();
  const auto find = [&](auto&& same) -> std::optional<Column> {
    for (size_t i = 0; i < headers_.size(); ++i)
      if (same(headers_[i].name)) return Column{static_cast<int32_t>(i)};
    return std::nullopt;
  };
  const auto whole = [&](std::string_view header) { return automation::equal_ignoring_case(header, name); };
  const auto bare = [&](std::string_view header) {
    return automation::equal_ignoring_case(unqualified(header), unqualified(name));
  };
  if (const auto found = find(whole)) return *found;
  if (const auto found = find(bare)) return *found;
  throw automation::item_not_found();
}

const ColumnStore& StaticRecordSet::reached_cell(Column column) {
  require_open();
  if (position_ < 0 || !reach(position_)) throw automation::no_current_record();
  if (column.index < 0 || static_cast<size_t>(column.index) >= columns_.size()) throw automation::item_not_found();
  return columns_[static_cast<size_t>(column.index)];
}

automation::Variant StaticRecordSet::value(Column column) { return cell(column).value(static_cast<size_t>(position_)); }
bool StaticRecordSet::is_null(Column column) { return cell(column).is_null(static_cast<size_t>(position_)); }
int32_t StaticRecordSet::whole_number(Column column) {
  return cell(column).whole_number(static_cast<size_t>(position_));
}
std::string_view StaticRecordSet::text(Column column) { return cell(column).text(static_cast<size_t>(position_)); }

void StaticRecordSet::close() {
  source_ = nullptr;
  columns_.clear();
  open_ = false;
}

// ---- By name ----

int32_t StaticRecordSet::state() const { return open_ ? 1 : 0; }

automation::Ref<Fields> StaticRecordSet::fields() { return automation::make<Fields>(automation::Ref<RecordSet>(this)); }

automation::Array StaticRecordSet::get_rows(int32_t most) {
  require_open();
  if (position_ < 0) throw automation::no_current_record();
  if (most < 0) fetch_all();
  const int64_t wanted = most < 0 ? std::numeric_limits<int32_t>::max() : most;
  reach(position_ + wanted - 1);
  const int64_t count = std::clamp<int64_t>(rows_ - position_, 0, wanted);
  const auto width = static_cast<int32_t>(columns_.size());
  automation::Array array(automation::VariantKind::empty,
                          std::vector<automation::Array::Bound>{{0, width}, {0, static_cast<int32_t>(count)}});
  auto cell = array.items().begin();
  for (int64_t row = 0; row < count; ++row)
    for (const ColumnStore& column : columns_) *cell++ = column.value(static_cast<size_t>(position_ + row));
  position_ += count;
  return array;
}

}  // namespace records
