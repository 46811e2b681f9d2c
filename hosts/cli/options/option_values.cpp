#include "hosts/cli/options/option_values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "automation/text.h"
#include "hosts/cli/failure.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/files/row_reader.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara::host {
namespace {

template <class Value>
using Choices = std::vector<std::pair<std::string_view, Value>>;

Failure wrong(const std::string& option, std::string_view text, const std::string& right) {
  return {FailureKind::argument, option + " " + shown(text) + " is not known; " + right};
}

template <class Value>
Value choice(const std::string& option, const std::string& text, const Choices<Value>& choices) {
  std::string names;
  for (const auto& [name, value] : choices) {
    if (automation::equal_ignoring_case(text, name)) return value;
    names.append(names.empty() ? "one of " : ", ").append(name);
  }
  throw wrong(option, text, names);
}

std::optional<int64_t> whole(std::string_view text) {
  int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

constexpr std::string_view number_forms = "numbers are 1 to 90, such as 53 or 5,12,33";

int64_t number_value(std::string_view text) {
  const auto number = whole(text);
  if (!number || *number < 1 || *number > number_count)
    throw Failure(FailureKind::argument,
                  "NUMBERS: " + shown(text) + " is not one of 1 to 90; " + std::string(number_forms));
  return *number;
}

}  // namespace

OutputFormat output_format(const std::string& text) {
  using enum OutputFormat;
  return choice<OutputFormat>(
      "--format", text, {{"table", table}, {"csv", csv}, {"json", json}, {"jsonl", jsonl}, {"markdown", markdown}});
}

ColourChoice colour_choice(const std::string& text) {
  using enum ColourChoice;
  return choice<ColourChoice>("--color", text, {{"auto", automatic}, {"always", always}, {"never", never}});
}

DrawFormat draw_format(const std::string& text) {
  using enum DrawFormat;
  return choice<DrawFormat>("--as", text, {{"csv", csv}, {"tsv", tsv}, {"update", update}});
}

int32_t day_value(const std::string& option, const std::string& text) {
  const auto day = parse_day(text);
  if (!day)
    throw Failure(FailureKind::argument,
                  option + " " + shown(text) + " is no date; dates are " + std::string(date_forms));
  return *day;
}

std::optional<int32_t> day_bound(const std::string& option, const std::string& text) {
  if (text.empty()) return std::nullopt;
  return day_value(option, text);
}

void check_range(std::optional<int32_t> from, std::optional<int32_t> to) {
  if (!from || !to || *from <= *to) return;
  throw Failure(FailureKind::argument, "--from " + shown_day(*from) + " is later than --to " + shown_day(*to) +
                                           "; the earlier date comes first");
}

int16_t hits_value(const std::string& text) {
  constexpr std::array<std::string_view, 5> names{"ambata", "ambo", "terno", "quaterna", "cinquina"};
  for (size_t i = 0; i < names.size(); ++i)
    if (automation::equal_ignoring_case(text, names[i]) || text == std::to_string(i + 1))
      return static_cast<int16_t>(i + 1);
  throw wrong("--hits", text, "1 to 5, or ambata, ambo, terno, quaterna, cinquina");
}

WheelSelection wheels_value(const std::string& text) {
  if (automation::equal_ignoring_case(text, "all")) return {};
  if (automation::equal_ignoring_case(text, "cities")) return {false, city_codes()};
  const std::string right = "wheels are " + wheel_choices() + ", or all, or cities";
  WheelSelection selection{false, {}};
  std::array<bool, wheel_count + 1> taken{};
  for (const std::string_view piece : automation::split(text, ',')) {
    const auto wheel = wheel_named(piece);
    if (!wheel) throw wrong("--wheels", piece, right);
    if (std::exchange(taken.at(static_cast<size_t>(*wheel)), true)) continue;
    selection.codes.append(selection.codes.empty() ? "" : ",").append(wheel_code(*wheel));
  }
  if (selection.codes.empty()) throw wrong("--wheels", text, right);
  return selection;
}

NumberList numbers_value(const std::vector<std::string>& pieces) {
  NumberList list;
  std::array<bool, number_count + 1> taken{};
  for (const std::string& piece : pieces) {
    for (const std::string_view item : automation::split(piece, ',')) {
      const std::string_view trimmed = automation::trim(item);
      if (trimmed.empty()) continue;
      const int64_t number = number_value(trimmed);
      if (std::exchange(taken.at(static_cast<size_t>(number)), true))
        throw Failure(FailureKind::argument,
                      "NUMBERS: " + std::to_string(number) + " comes twice; give each number once");
      list.text.append(list.text.empty() ? "" : ",").append(std::to_string(number));
      ++list.count;
    }
  }
  if (list.count == 0) throw Failure(FailureKind::argument, "NUMBERS: none given; " + std::string(number_forms));
  return list;
}

void check_hits(const NumberList& numbers, int16_t hits) {
  if (numbers.count >= static_cast<size_t>(hits)) return;
  throw Failure(FailureKind::argument, "--hits " + std::to_string(hits) + " cannot come of " +
                                           counted(numbers.count, "number") + "; give as many numbers as hits");
}

void check_size(const NumberList& numbers, int32_t size) {
  if (numbers.count >= static_cast<size_t>(size)) return;
  throw Failure(FailureKind::argument, "--size " + std::to_string(size) + " cannot come of " +
                                           counted(numbers.count, "number") + "; give as many numbers as that");
}

std::array<int8_t, 5> drawn_numbers_value(const std::string& option, const std::string& text) {
  const auto pieces = automation::split(text, ',');
  std::array<std::string_view, 5> fields;
  std::array<int8_t, 5> numbers{};
  std::string reason = "these are " + counted(pieces.size(), "number");
  if (pieces.size() == fields.size()) {
    std::copy(pieces.begin(), pieces.end(), fields.begin());
    reason = read_numbers(fields, numbers);
  }
  if (reason.empty()) return numbers;
  throw Failure(FailureKind::argument,
                option + " " + shown(text) + ": " + reason + "; a wheel has five different numbers of 1 to 90");
}

int32_t whole_value(const std::string& option, const std::string& text, int32_t least, int32_t most) {
  const auto number = whole(text);
  if (number && *number >= least && *number <= most) return static_cast<int32_t>(*number);
  throw Failure(FailureKind::argument, option + " " + shown(text) + " cannot be; give a whole number from " +
                                           std::to_string(least) + " to " + std::to_string(most));
}

uint64_t count_value(const std::string& option, const std::string& text) {
  uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size())
    throw Failure(FailureKind::argument, option + " " + shown(text) + " is no whole number; give 0 or more");
  return number;
}

void refuse(const std::string& with, std::initializer_list<GivenOption> options, const std::string& reason) {
  for (const auto& [name, given] : options)
    if (given)
      throw Failure(FailureKind::argument,
                    std::string(name).append(" does not go with ").append(with + "; ").append(reason));
}

}  // namespace vestara::host
