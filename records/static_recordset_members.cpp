#include "automation/member.h"
#include "records/fields.h"
#include "records/static_recordset.h"

// The record set as hosts call it, by its classic names.

namespace records {
namespace static_recordset_members {

using automation::optional;
using automation::parameter;
using row = automation::Rows<StaticRecordSet>;

constexpr auto rows = automation::member_rows(
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
    row::read_only<&StaticRecordSet::state>(12, "State", "1 when open, 0 when closed."));

}  // namespace static_recordset_members

const automation::ClassDescription& StaticRecordSet::surface() {
  static constexpr automation::ClassDescription surface{
      .library = "Dorvane",
      .name = contract_name,
      .interface_name = "_Recordset",
      .help = "The rows of a reading statement: static, scrollable.",
      .members = static_recordset_members::rows,
  };
  return surface;
}

}  // namespace records
