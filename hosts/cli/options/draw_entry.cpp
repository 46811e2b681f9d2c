#include "hosts/cli/options/draw_entry.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

#include "automation/text.h"
#include "hosts/cli/failure.h"
#include "vestara/draws/calendar.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/files/draw_file.h"
#include "vestara/files/file_source.h"
#include "vestara/files/row_reader.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara::host {
namespace {

Failure unusable(const std::string& why, int32_t day) {
  const size_t wheels = wheels_of_day(day).size();
  return {FailureKind::argument, "--numbers: " + why + "; give five numbers for each of the " +
                                     counted(wheels, "wheel") + " of " + shown_day(day) +
                                     ", or each wheel before its five"};
}

std::vector<std::string_view> words_of(std::string_view line) {
  constexpr std::string_view separators = ",; \t\r\n";
  std::vector<std::string_view> words;
  for (;;) {
    line.remove_prefix(std::min(line.find_first_not_of(separators), line.size()));
    if (line.empty()) return words;
    words.push_back(line.substr(0, line.find_first_of(separators)));
    line.remove_prefix(words.back().size());
  }
}

DrawRow row_of(int8_t wheel, const std::string_view* numbers, int32_t day) {
  std::array<std::string_view, drawn_count> fields;
  std::copy_n(numbers, drawn_count, fields.begin());
  DrawRow row{day, 0, wheel, {}};
  if (const std::string why = read_numbers(fields, row.numbers); !why.empty())
    throw unusable(std::string(wheel_code(wheel)) + ": " + why, day);
  return row;
}

/// Numbers alone: the wheels of the day one after the other.
std::vector<DrawRow> rows_in_order(const std::vector<std::string_view>& words, int32_t day) {
  const auto wheels = wheels_of_day(day);
  if (words.size() != drawn_count * wheels.size()) throw unusable("these are " + counted(words.size(), "number"), day);
  std::vector<DrawRow> rows;
  for (size_t i = 0; i < wheels.size(); ++i) rows.push_back(row_of(wheels[i], words.data() + drawn_count * i, day));
  return rows;
}

std::vector<DrawRow> rows_by_wheel(const std::vector<std::string_view>& words, int32_t day) {
  constexpr size_t with_wheel = drawn_count + 1;
  std::vector<DrawRow> rows;
  for (size_t i = 0; i < words.size(); i += with_wheel) {
    const auto wheel = wheel_named(words[i]);
    if (!wheel) throw unusable(shown(words[i]) + " stands where a wheel should", day);
    if (words.size() - i < with_wheel) throw unusable(std::string(wheel_code(*wheel)) + " has fewer than five", day);
    rows.push_back(row_of(*wheel, words.data() + i + 1, day));
  }
  std::sort(rows.begin(), rows.end(), comes_before);
  const auto twice = std::adjacent_find(rows.begin(), rows.end(), same_place);
  if (twice != rows.end()) throw unusable(std::string(wheel_code(twice->wheel)) + " comes twice", day);
  return rows;
}

bool has_wheel(const std::vector<DrawRow>& rows, int8_t wheel) {
  return std::any_of(rows.begin(), rows.end(), [&](const DrawRow& row) { return row.wheel == wheel; });
}

}  // namespace

std::vector<DrawRow> read_draw_line(std::string_view line, int32_t day) {
  const auto words = words_of(line);
  if (words.empty()) throw unusable("none given", day);
  return wheel_named(words.front()) ? rows_by_wheel(words, day) : rows_in_order(words, day);
}

std::vector<DrawRow> rows_in_file(const std::string& path, int32_t day) {
  const std::string name = source_name(path);
  const DrawFile file = parse_draw_file(read_source(path), name);
  refuse_rejected(file, name);
  std::vector<DrawRow> rows;
  std::copy_if(file.draws.rows.begin(), file.draws.rows.end(), std::back_inserter(rows),
               [&](const DrawRow& row) { return row.day == day; });
  if (!rows.empty()) return rows;
  throw Failure(FailureKind::file, name + " has no draw of " + shown_day(day) + "; its dates are " +
                                       shown_day(file.draws.rows.front().day) + " to " +
                                       shown_day(file.draws.rows.back().day));
}

void require_drawn_wheels(const std::vector<DrawRow>& rows, int32_t day) {
  for (const DrawRow& row : rows)
    if (!is_drawn_on(row.wheel, day))
      throw Failure(FailureKind::argument, "--" + std::string(wheel_code(row.wheel)) + " does not go with " +
                                               shown_day(day) + "; its first draw was on " +
                                               shown_day(first_draw_day(row.wheel)));
  if (!is_drawn_on(wheel_count, day)) return;
  const std::string missing = missing_wheels(rows, day, "--");
  if (missing.empty()) return;
  throw Failure(FailureKind::argument, "not given: " + missing + "; a draw since " +
                                           shown_day(first_draw_day(wheel_count)) + " has all eleven wheels");
}

std::string missing_wheels(const std::vector<DrawRow>& rows, int32_t day, std::string_view prefix) {
  std::string missing;
  for (const int8_t wheel : wheels_of_day(day))
    if (!has_wheel(rows, wheel)) missing.append(missing.empty() ? "" : ", ").append(prefix).append(wheel_code(wheel));
  return missing;
}

}  // namespace vestara::host
