#pragma once

#include <array>
#include <memory>
#include <utility>

#include "vestara/foundation/connector.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/foundation/wheels.h"

namespace vestara {

/// The columns of the five numbers, in the order they were drawn.
using NumberColumns = std::array<Column, drawn_count>;
inline NumberColumns number_columns(RecordSet& rows) {
  return {rows.column("estr1"), rows.column("estr2"), rows.column("estr3"), rows.column("estr4"), rows.column("estr5")};
}

/// The column of the wheel's alias, read by the tables as they were when the walk began.
class WheelColumn {
 public:
  explicit WheelColumn(RecordSet& rows) : column_(rows.column("ruota")), tables_(wheel_tables()) {}
  std::string_view alias(RecordSet& row) const { return row.text(column_); }
  /// Error 91 when no tables were loaded before, 5 for an alias that they do not have.
  int16_t wheel(RecordSet& row) const { return tables_->wheel_of(alias(row)); }

 private:
  Column column_;
  std::shared_ptr<const WheelTables> tables_;
};

/// The columns of a wheel's draw.
struct DrawColumns {
  explicit DrawColumns(RecordSet& rows) : wheel(rows), numbers(number_columns(rows)) {}
  WheelColumn wheel;
  NumberColumns numbers;
};

}  // namespace vestara
