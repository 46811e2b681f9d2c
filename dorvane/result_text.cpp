#include "dorvane/result_text.h"

#include <charconv>
#include <cstdint>

namespace dorvane {

void append_whole(records::ColumnStore& column, std::string_view text) {
  int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc{} && end == text.data() + text.size()) return column.append_whole(value);
  append_real(column, text);  // beyond 64 bits
}

void append_real(records::ColumnStore& column, std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc{} && end == text.data() + text.size()) return column.append_real(value);
  column.append_text(text);
}

void append_decimal(records::ColumnStore& column, std::string_view text) {
  const auto point = text.find('.');
  const bool whole =
      point == std::string_view::npos || text.find_first_not_of('0', point + 1) == std::string_view::npos;
  whole ? append_whole(column, text.substr(0, point)) : append_real(column, text);
}

void append_timestamp(records::ColumnStore& column, std::string_view text) {
  constexpr std::string_view midnight = " 00:00:00";
  if (text.ends_with(midnight)) text.remove_suffix(midnight.size());
  column.append_text(text);
}

}  // namespace dorvane
