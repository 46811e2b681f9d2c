#include "vestara/study/words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string>
#include <utility>

#include "automation/coercion.h"
#include "automation/text.h"
#include "automation/text/shown_text.h"
#include "vestara/draws/number_mask.h"
#include "vestara/study/set_families.h"

namespace vestara::study {
namespace {

using automation::quoted_text;
using automation::RunTimeError;
using automation::Variant;

RunTimeError not_right(std::initializer_list<std::string_view> sentence) {
  return automation::invalid_call(automation::concatenated(sentence));
}

constexpr std::string_view wheels_that_are =
    "wheels are BA, CA, FI, GE, MI, NA, PA, RM, TO, VE, RN, or alone cities, "
    "tutte or all";

std::optional<WheelSet> group_of_wheels(std::string_view word) {
  if (word.empty() || automation::equal_ignoring_case(word, "all")) return WheelSet::all();
  const bool cities = automation::equal_ignoring_case(word, "cities") || automation::equal_ignoring_case(word, "tutte");
  return cities ? std::optional(WheelSet::cities()) : std::nullopt;
}

/// Between numbers of a list.
bool separates(char c) { return c == ',' || c == '-' || c == '.' || c == ' '; }

/// Reads a number list from its front.
class NumberReader {
 public:
  explicit NumberReader(std::string_view text) : text_(text), left_(automation::trim(text)) {}

  Numbers read() {
    if (left_.empty()) throw misread();
    add_term();
    while (!left_.empty()) {
      skip_separator();
      add_term();
    }
    Numbers numbers;
    for (int32_t number = 1; number <= number_count; ++number)
      if (seen_.contains(number)) numbers.push_back(static_cast<uint8_t>(number));
    return numbers;
  }

 private:
  /// A number or a range.
  void add_term() {
    const int32_t first = take_number();
    const bool is_range = left_.starts_with("..");
    if (is_range) left_.remove_prefix(2);
    const int32_t last = is_range ? take_number() : first;
    if (last < first)
      throw not_right({"the range ", std::to_string(first), "..", std::to_string(last), " in ", quoted_text(text_),
                       " goes backwards; a range is written like 1..16"});
    for (int32_t number = first; number <= last; ++number) add(number);
  }

  void add(int32_t number) {
    if (seen_.contains(number))
      throw not_right({"number ", std::to_string(number), " stands twice in ", quoted_text(text_),
                       "; each number of a list stands once"});
    seen_.add(number);
  }

  int32_t take_number() {
    const auto digits = std::min(left_.find_first_not_of("0123456789"), left_.size());
    if (digits == 0) throw misread();
    int32_t number = 0;
    const std::string_view written = left_.substr(0, digits);
    const auto [end, error] = std::from_chars(written.data(), written.data() + written.size(), number);
    if (error != std::errc() || number < 1 || number > number_count)
      throw not_right(
          {written.substr(0, 12), " in ", quoted_text(text_), " is no number of the game; numbers are 1 to 90"});
    left_.remove_prefix(digits);
    return number;
  }

  /// One sign, with blanks around it, or blanks alone.
  void skip_separator() {
    skip_blanks();
    if (left_.empty() || automation::is_digit(left_.front())) return;
    if (!separates(left_.front())) throw misread();
    left_.remove_prefix(1);
    skip_blanks();
  }

  void skip_blanks() { left_.remove_prefix(std::min(left_.find_first_not_of(' '), left_.size())); }

  RunTimeError misread() const {
    return not_right(
        {quoted_text(text_), " is no list of numbers; numbers are 1 to 90, written like 5,12,33 or 1..16"});
  }

  std::string_view text_;
  std::string_view left_;
  NumberMask seen_;
};

std::optional<int32_t> bound(std::string_view name, const Variant& given) {
  if (given.is_missing() || given.is_empty() || given.is_null()) return std::nullopt;
  const auto date = automation::date_in(given);
  if (!date)
    throw not_right({name, " is ", quoted_text(automation::to_text(given)),
                     ", which is no date; 2005-02-09 and 9/2/2005 are dates"});
  return date->day();
}

std::string iso(int32_t day) { return automation::iso_day(automation::Date::from_day(day)); }

}  // namespace

WheelSet wheels_in(std::string_view text) {
  if (const auto group = group_of_wheels(automation::trim(text))) return *group;
  WheelSet wheels;
  for (const std::string_view code : automation::split(text, ',')) {
    const int32_t wheel = wheel_of_code(code);
    if (wheel == 0) throw not_right({quoted_text(automation::trim(code)), " is no wheel; ", wheels_that_are});
    if (wheels.contains(wheel))
      throw not_right({"wheel ", automation::trim(code), " stands twice in ", quoted_text(text), "; each stands once"});
    wheels.add(wheel);
  }
  return wheels;
}

Numbers numbers_in(std::string_view text) { return NumberReader(text).read(); }

std::vector<NamedNumbers> sets_in(std::string_view text) {
  const std::string_view word = automation::trim(text);
  if (auto family = set_family(word); !family.empty()) return family;
  if (word.empty() || word.find_first_of("0123456789;") == std::string_view::npos)
    throw not_right({quoted_text(text),
                     " is no set; sets are lists of numbers joined by \";\" like 1,2,3;4,5,6, or one "
                     "of the families ",
                     family_names()});
  std::vector<NamedNumbers> sets;
  for (const std::string_view list : automation::split(text, ';'))
    sets.push_back(named_by_its_numbers(numbers_in(list)));
  return sets;
}

DrawPeriod period_in(const Variant& since, const Variant& until) {
  const DrawPeriod period{bound("Since", since), bound("Until", until)};
  if (period.since && period.until && *period.since > *period.until)
    throw not_right({"Since ", iso(*period.since), " lies after Until ", iso(*period.until),
                     "; the first day of a period comes first"});
  return period;
}

RankedBy ranked_by(std::string_view word) {
  constexpr std::array<std::pair<std::string_view, RankedBy>, 4> words{
      {{"delay", RankedBy::delay}, {"times", RankedBy::times}, {"record", RankedBy::record}, {"z", RankedBy::z}}};
  for (const auto& [name, by] : words)
    if (automation::equal_ignoring_case(automation::trim(word), name)) return by;
  throw not_right({"By is ", quoted_text(word), "; groups are ranked by delay, times, record or z"});
}

int32_t wheels_played(const Variant& wheels) {
  if (wheels.is_missing()) return 1;
  const bool is_number = automation::is_numeric(wheels) && !wheels.is_empty();
  if (!is_number) return wheels_in(automation::to_text(wheels)).count();
  const double count = automation::to_double(wheels);
  if (!(count >= 1 && count <= wheel_count && count == static_cast<int32_t>(count)))
    throw not_right({"Wheels is ", automation::to_text(wheels), "; a whole number of wheels is 1 to 11, and otherwise ",
                     wheels_that_are});
  return static_cast<int32_t>(count);
}

int32_t within(std::string_view name, int32_t value, int32_t least, int32_t most) {
  if (value >= least && value <= most) return value;
  const bool is_open = most == std::numeric_limits<int32_t>::max();
  throw not_right({name, " is ", std::to_string(value), "; it is ", std::to_string(least),
                   is_open ? " or more" : " to " + std::to_string(most)});
}

int32_t most_hits(size_t numbers) { return std::min(static_cast<int32_t>(numbers), drawn_count); }

}  // namespace vestara::study
