#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "hosts/cli/output/output_forms.h"

namespace vestara::host {
namespace {

/// The shortest text that reads back as the same number.
std::string exact(double number) {
  std::array<char, 32> text{};
  char* const end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  return {text.data(), end};
}

std::string readable(double number) {
  if (number == 0 || !std::isfinite(number)) return exact(number);
  constexpr int digits = 6;
  constexpr int most_decimals = 20;
  constexpr size_t longest = 512;
  const int before_point = static_cast<int>(std::floor(std::log10(std::abs(number)))) + 1;
  const int decimals = std::clamp(digits - before_point, 0, most_decimals);
  std::array<char, longest> buffer{};
  char* const end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed, decimals).ptr;
  std::string text(buffer.data(), end);
  if (decimals != 0) text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

}  // namespace

std::string cell_text(const Cell& cell) {
  if (const auto* whole = std::get_if<int64_t>(&cell)) return std::to_string(*whole);
  if (const auto* number = std::get_if<double>(&cell)) return exact(*number);
  if (const auto* text = std::get_if<std::string>(&cell)) return *text;
  return {};
}

std::string readable_text(const Cell& cell) {
  if (const auto* number = std::get_if<double>(&cell)) return readable(*number);
  if (const auto* absent = std::get_if<Absent>(&cell)) return std::string(absent->word);
  return cell_text(cell);
}

}  // namespace vestara::host
