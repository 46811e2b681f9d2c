#pragma once  // for hosts

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "automation/variant.h"
#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// What a row of an archive can have against it.
enum class RowFault : uint8_t {
  repeated,  ///< one date, wheel and contest more than once
  without_day_or_wheel,
  of_unknown_wheel,     ///< one that ruote does not have
  misnumbered_wheel,    ///< a wheel of ruote under another number
  number_out_of_range,  ///< 0 to 90
  number_twice,
  without_contest,
  without_system,     ///< a combination
  mark_without_draw,  ///< a draw marked as entered by hand that is not there
  key_near_the_end,   ///< of 32 bits
};

/// A column of a row and what stands there.
struct ColumnValue {
  std::string name;
  automation::Variant value;
};

/// Rows with the same fault, or why the database did not look for them.
struct RowFinding {
  RowFault fault;
  std::string_view table;  ///< whose rows they are
  int64_t count = 0;
  std::vector<ColumnValue> example;  ///< the row that is first by its first column
  std::string refusal;               ///< the database's reason; empty when it answered
};

/// What the rows of an archive have against them, in the order of the faults; none for a sound archive. Tables that
/// cannot be read are left out: `check_schema` has them.
VESTARA_API std::vector<RowFinding> check_rows(const Archive& archive);

}  // namespace vestara
