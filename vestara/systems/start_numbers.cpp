#include "vestara/systems/start_numbers.h"

#include <algorithm>

#include "automation/coercion.h"
#include "automation/text.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/systems/number_series.h"
#include "vestara/systems/number_sets.h"

namespace vestara {
namespace {

void append(std::string& list, std::string_view number) { list.append(list.empty() ? "" : ",").append(number); }

std::string every(int32_t step, int32_t first, int32_t last) {
  std::string list;
  for (int32_t number = first; number <= last; number += step) append(list, std::to_string(number));
  return list;
}

std::string within_the_game(const std::string& numbers) {
  std::string list;
  for (const std::string_view piece : automation::split(numbers, ',')) {
    const int32_t number = automation::leading_number(piece);
    if (number >= 1 && number <= number_count) append(list, piece);
  }
  return list;
}

std::string library_list(NumberSet set, int16_t number) {
  switch (set) {
    case NumberSet::twins:
      return std::string(twin_numbers);
    case NumberSet::reversibles:
      return std::string(reversible_numbers);
    case NumberSet::ending:
      return same_ending(number);
    case NumberSet::fibonacci:
      return fibonacci_run(number);
    case NumberSet::tens:
      return ten_numbers(number);
    case NumberSet::figure:
      return same_figure(number);
  }
  return {};
}

std::string plain_list(NumberSet set, int16_t number) {
  constexpr int16_t ten_of_ninety = 90;
  if (set == NumberSet::tens && number != ten_of_ninety) return every(1, number, number + 9);
  if (set == NumberSet::figure) return every(9, number, number_count);
  return within_the_game(library_list(set, number));
}

}  // namespace

std::string numbers_of_set(const SetQuestion& question) {
  return question.reach == Reach::plain ? plain_list(question.set, question.number)
                                        : library_list(question.set, question.number);
}

std::string random_numbers(const RandomQuestion& question) {
  const auto repetition = question.repeat ? Repetition::allowed : Repetition::excluded;
  automation::Variant numbers = random_series(question.count, question.least, question.most, repetition);
  if (question.sorted) sort_by_number(numbers);
  std::string list;
  for (const automation::Variant& number : numbers.get_if<automation::Array>()->items())
    append(list, automation::to_text(number));
  return list;
}

size_t length_of(std::string_view list) {
  return list.empty() ? 0 : 1 + static_cast<size_t>(std::count(list.begin(), list.end(), ','));
}

}  // namespace vestara
