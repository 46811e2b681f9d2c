#include "vestara/files/file_columns.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include "automation/text.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/files/row_reader.h"
#include "vestara/foundation/failure.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {
namespace {

constexpr size_t date_slot = 0;
constexpr size_t wheel_slot = 1;
constexpr size_t first_number_slot = 2;
constexpr size_t contest_slot = 7;
constexpr size_t slot_count = 8;

constexpr std::array<std::string_view, slot_count> names_of_slots{"date", "wheel", "n1", "n2",
                                                                  "n3",   "n4",    "n5", "contest"};

struct Alias {
  std::string_view name;
  size_t slot;
};
constexpr std::array<Alias, 16> aliases{{{"date", date_slot},
                                         {"data", date_slot},
                                         {"giorno", date_slot},
                                         {"dataestrazione", date_slot},
                                         {"dtestr", date_slot},
                                         {"wheel", wheel_slot},
                                         {"ruota", wheel_slot},
                                         {"contest", contest_slot},
                                         {"concorso", contest_slot},
                                         {"numeroconcorso", contest_slot},
                                         {"concorsonumero", contest_slot},
                                         {"primo", first_number_slot},
                                         {"secondo", first_number_slot + 1},
                                         {"terzo", first_number_slot + 2},
                                         {"quarto", first_number_slot + 3},
                                         {"quinto", first_number_slot + 4}}};
/// What stands before or behind the digit in the name of a number: "n1", "1° estratto".
constexpr std::array<std::string_view, 8> number_words{"", "n", "num", "numero", "number", "e", "estr", "estratto"};

/// Letters and digits in lower case.
std::string plain(std::string_view name) {
  std::string text;
  for (const char c : name)
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) text += c;
  return automation::lower_case(text);
}

std::optional<size_t> number_slot(std::string name) {
  const auto digit = name.find_first_of("12345");
  if (digit == std::string::npos) return std::nullopt;
  const size_t slot = first_number_slot + static_cast<size_t>(name[digit] - '1');
  name.erase(digit, 1);
  const bool is_known = std::find(number_words.begin(), number_words.end(), name) != number_words.end();
  return is_known ? std::optional(slot) : std::nullopt;
}

std::optional<size_t> slot_of(std::string_view column) {
  // Digits alone are a number of a draw, not its name.
  if (column.find_first_not_of("0123456789") == std::string_view::npos) return std::nullopt;
  const std::string name = plain(column);
  for (const Alias& alias : aliases)
    if (name == alias.name) return alias.slot;
  return number_slot(name);
}

bool is_date(std::string_view field) {
  return field.find_first_of("/-.") != std::string_view::npos && parse_day(field).has_value();
}

bool is_number(std::string_view field) {
  return !field.empty() && field.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Five places that follow each other; a sixth one apart from them is the contest number's.
bool place_numbers(const std::vector<size_t>& places, FileColumns& columns) {
  const auto is_run = [&](size_t first) { return places[first + drawn_count - 1] - places[first] == drawn_count - 1; };
  size_t first = 0;
  if (places.size() == drawn_count + 1) {
    if (is_run(0) == is_run(1)) return false;
    first = is_run(0) ? 0 : 1;
    columns.contest = places[first == 0 ? drawn_count : 0];
  } else if (places.size() != drawn_count) {
    return false;
  }
  std::copy_n(places.begin() + static_cast<std::ptrdiff_t>(first), drawn_count,
              columns.required.begin() + static_cast<std::ptrdiff_t>(first_number_slot));
  return true;
}

}  // namespace

bool is_header(std::span<const std::string_view> fields) {
  return std::any_of(fields.begin(), fields.end(), [](std::string_view field) { return slot_of(field).has_value(); });
}

FileColumns columns_of_header(std::span<const std::string_view> fields, const std::string& place) {
  const auto refuse = [&](std::string_view column, const char* what) {
    return Failure(FailureKind::file, place + ": column " + shown(column) + what +
                                          "; the header is date,wheel,n1,n2,n3,n4,n5 or data,ruota,n1,…, in any order, "
                                          "with or without contest or concorso");
  };
  std::array<std::optional<size_t>, slot_count> slots;
  for (size_t i = 0; i < fields.size(); ++i) {
    const auto slot = slot_of(fields[i]);
    if (!slot) throw refuse(fields[i], " is unknown");
    if (slots[*slot]) throw refuse(fields[i], " comes twice");
    slots[*slot] = i;
  }
  FileColumns columns;
  columns.count = fields.size();
  columns.contest = slots[contest_slot];
  for (size_t i = 0; i < columns.required.size(); ++i) {
    if (!slots[i]) throw refuse(names_of_slots[i], " is missing");
    columns.required[i] = *slots[i];
  }
  return columns;
}

std::optional<FileColumns> columns_of_row(std::span<const std::string_view> fields) {
  std::vector<size_t> dates;
  std::vector<size_t> wheels;
  std::vector<size_t> numbers;
  for (size_t i = 0; i < fields.size(); ++i) {
    if (is_number(fields[i]))
      numbers.push_back(i);
    else if (is_date(fields[i]))
      dates.push_back(i);
    else if (wheel_named(fields[i]))
      wheels.push_back(i);
    else
      return std::nullopt;
  }
  FileColumns columns;
  columns.count = fields.size();
  if (dates.size() != 1 || wheels.size() != 1 || !place_numbers(numbers, columns)) return std::nullopt;
  columns.required[date_slot] = dates.front();
  columns.required[wheel_slot] = wheels.front();
  return columns;
}

}  // namespace vestara
