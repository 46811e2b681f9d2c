#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/cli/output/output.h"
#include "hosts/cli/terminal/terminal.h"
#include "vestara/draws/draw_range.h"
#include "vestara/files/draw_format.h"

// Values of options, from text. A wrong one is a Failure (usage) that names the option and says what would be right.

namespace vestara::host {

OutputFormat output_format(const std::string& text);
ColourChoice colour_choice(const std::string& text);
DrawFormat draw_format(const std::string& text);

/// A day, counted from 1899-12-30; `option` is the name with its dashes.
int32_t day_value(const std::string& option, const std::string& text);
/// An empty text is no bound.
std::optional<int32_t> day_bound(const std::string& option, const std::string& text);
/// Refuses a range that ends before it begins.
void check_range(std::optional<int32_t> from, std::optional<int32_t> to);

/// 1 to 5, or ambata, ambo, terno, quaterna, cinquina.
int16_t hits_value(const std::string& text);

/// "BA,Napoli", "all" or "cities".
WheelSelection wheels_value(const std::string& text);

/// Different numbers of 1 to 90, given as one list or in pieces; as "5,12,33".
struct NumberList {
  std::string text;
  size_t count = 0;
};
NumberList numbers_value(const std::vector<std::string>& pieces);

/// Refuses more hits than numbers.
void check_hits(const NumberList& numbers, int16_t hits);
/// Refuses combinations of more numbers than there are.
void check_size(const NumberList& numbers, int32_t size);

/// The five numbers of a wheel, as "1,2,3,4,5".
std::array<int8_t, 5> drawn_numbers_value(const std::string& option, const std::string& text);

/// The largest key of a row that `--id` and its like may name.
constexpr int32_t largest_id = std::numeric_limits<int32_t>::max();

/// A whole number from `least` to `most`.
int32_t whole_value(const std::string& option, const std::string& text, int32_t least, int32_t most);
/// A whole number of 0 or more.
uint64_t count_value(const std::string& option, const std::string& text);

/// The name of an option, and whether it was given.
using GivenOption = std::pair<const char*, bool>;
/// Failure (usage) when one of the options was given, which `with` rules out; `reason` reads as in "a grid has no
/// order".
void refuse(const std::string& with, std::initializer_list<GivenOption> options, const std::string& reason);

}  // namespace vestara::host
