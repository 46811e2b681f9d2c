#pragma once  // for hosts

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "vestara/draws/draw_row.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// One row of a file, cut into fields.
struct RowFields {
  std::string_view date;
  std::string_view wheel;
  std::array<std::string_view, 5> numbers;
  std::string_view contest;  ///< empty or "0" when the file has none
};

/// Turns fields into draws. Remembers the last date: rows of one date follow each other.
class VESTARA_API RowReader {
 public:
  /// Nothing when a field is wrong; `reason` then says which and why.
  std::optional<DrawRow> read(const RowFields& fields, std::string& reason);

 private:
  std::optional<int32_t> day_of(std::string_view text);

  std::string last_date_;
  int32_t last_day_ = 0;
};

/// The five numbers of a wheel: different ones of 1 to 90. Returns why they are not, "" when all is right.
VESTARA_API std::string read_numbers(const std::array<std::string_view, 5>& fields, std::array<int8_t, 5>& numbers);

/// The day of a date text without a time of day, counted from 1899-12-30.
VESTARA_API std::optional<int32_t> parse_day(std::string_view text);

inline constexpr std::string_view date_forms = "YYYY-MM-DD, YYYY/MM/DD or D/M/YYYY";

}  // namespace vestara
