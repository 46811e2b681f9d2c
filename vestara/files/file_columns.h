#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vestara {

/// Where the rows of a table have what: places from 0.
struct FileColumns {
  std::array<size_t, 7> required{};  ///< date, wheel, five numbers
  std::optional<size_t> contest;
  size_t count = 0;  ///< fields of a row
};

/// True when one of the fields is the name of a column.
bool is_header(std::span<const std::string_view> fields);

/// The columns that a header names, in English or Italian, in any order. Failure (file) that names `place`, "f, line
/// 1", for a column that is unknown, comes twice or is missing.
FileColumns columns_of_header(std::span<const std::string_view> fields, const std::string& place);

/// The columns of a table without a header, from its first row: one field is a date, one a wheel, five are numbers, and
/// a contest number may stand apart from these. Nothing when the row is not so.
std::optional<FileColumns> columns_of_row(std::span<const std::string_view> fields);

}  // namespace vestara
