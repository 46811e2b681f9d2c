#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vestara/foundation/export.h"

namespace vestara {

/// One record of an update file, as it goes into the archive.
struct HistoryRecord {
  std::string_view contest;  ///< as it stands in the file, unquoted in the statement
  std::string_view date;     ///< a text that is no date becomes NULL
  std::string_view wheel;    ///< between quotes, not escaped
  std::array<int16_t, 5> numbers{};
};

/// Where draws go, in the order of an insert.
inline constexpr std::string_view history_table = "storico";
inline constexpr std::array<std::string_view, 8> history_columns{"concorsoNumero", "dtEstr", "ruota", "estr1",
                                                                 "estr2",          "estr3",  "estr4", "estr5"};

/// Rows that one multi-row statement takes.
inline constexpr int32_t rows_per_statement = 1000;
/// Splits one record at "#" (fields 1 to 8; field 0 and everything behind field 8 is not looked at). A number is
/// what its field begins with: "07" is 7, "x" is 0. Errors: 9 for fewer than nine fields, 6 for a number beyond 16
/// bits.
VESTARA_API HistoryRecord parse_history_record(std::string_view record);

/// "DELETE FROM storico"
VESTARA_API std::string history_delete_statement();
/// "(contest,date,'wheel',n1,n2,n3,n4,n5)"
VESTARA_API std::string history_tuple(const HistoryRecord& record);
/// The insert of one tuple, or of several joined by ",".
VESTARA_API std::string history_insert_statement(std::string_view tuples);

}  // namespace vestara
