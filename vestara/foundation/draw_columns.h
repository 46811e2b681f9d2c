#pragma once

#include <array>

#include "vestara/foundation/recordset.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {

/// The columns of the five numbers, in the order they were drawn.
using NumberColumns = std::array<Column, drawn_count>;
inline NumberColumns number_columns(RecordSet& rows) {
  return {rows.column("estr1"), rows.column("estr2"), rows.column("estr3"), rows.column("estr4"), rows.column("estr5")};
}

/// The columns of a wheel's draw.
struct DrawColumns {
  explicit DrawColumns(RecordSet& rows) : wheel(rows.column("ruota")), numbers(number_columns(rows)) {}
  Column wheel;
  NumberColumns numbers;
};

}  // namespace vestara
