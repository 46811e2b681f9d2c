#include <algorithm>
#include <array>
#include <limits>

#include "automation/error.h"
#include "automation/member.h"
#include "records/fields.h"
#include "records/static_recordset.h"

// The record set as hosts call it, by its classic names.

namespace records {

using automation::Array;
using automation::Ref;
using automation::VariantKind;

int32_t StaticRecordSet::state() const { return open_ ? 1 : 0; }

Ref<Fields> StaticRecordSet::fields() { return automation::make<Fields>(Ref<RecordSet>(this)); }

Array StaticRecordSet::get_rows(int32_t most) {
  require_open();
  if (position_ < 0) throw automation::no_current_record();
  if (most < 0) fetch_all();
  const int64_t wanted = most < 0 ? std::numeric_limits<int32_t>::max() : most;
  reach(position_ + wanted - 1);
  const int64_t count = std::clamp<int64_t>(rows_ - position_, 0, wanted);
  const auto width = static_cast<int32_t>(columns_.size());
  Array array(VariantKind::empty, std::vector<Array::Bound>{{0, width}, {0, static_cast<int32_t>(count)}});
  auto cell = array.items().begin();
  for (int64_t row = 0; row < count; ++row)
    for (const ColumnStore& column : columns_) *cell++ = column.value(static_cast<size_t>(position_ + row));
  position_ += count;
  return array;
}

namespace {

using automation::optional;
using automation::parameter;
using row = automation::Rows<StaticRecordSet>;

constexpr std::array members{
    row::read_only<&StaticRecordSet::at_end>(1, "EOF", "True behind the last row."),
    row::read_only<&StaticRecordSet::at_start>(2, "BOF", "True before the first row."),
    row::read_only<&StaticRecordSet::fields>(0, "Fields", "The columns."),
    row::method<&StaticRecordSet::move_first>(4, "MoveFirst", "To the first row."),
    row::method<&StaticRecordSet::move_next>(5, "MoveNext", "To the next row."),
    row::method<&StaticRecordSet::move_previous>(6, "MovePrevious", "To the row before."),
    row::method<&StaticRecordSet::move_last>(7, "MoveLast", "To the last row."),
    row::method<&StaticRecordSet::move>(8, "Move", "Moves by rows, backwards when negative.", parameter("rows")),
    row::read_only<&StaticRecordSet::record_count>(9, "RecordCount", "The exact number of rows."),
    row::method<&StaticRecordSet::get_rows>(
        10, "GetRows", "Rows from the current one as an array (field, row) from 0, and moves behind them.",
        optional("rows", -1)),
    row::method<&StaticRecordSet::close>(11, "Close", "Closes; nothing can be read any more."),
    row::read_only<&StaticRecordSet::state>(12, "State", "1 when open, 0 when closed."),
};

}  // namespace

const automation::ClassDescription& StaticRecordSet::description() const {
  static constexpr automation::ClassDescription description{
      .library = "Dorvane",
      .name = contract_name,
      .interface_name = "_Recordset",
      .help = "The rows of a reading statement: static, scrollable.",
      .members = members,
  };
  return description;
}

}  // namespace records
