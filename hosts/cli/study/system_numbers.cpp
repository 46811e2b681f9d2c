#include "hosts/cli/study/system_numbers.h"

#include <algorithm>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/terminal/stoppable_call.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/systems/systems.h"

namespace vestara::host {
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
  const cSistemi systems;
  switch (set) {
    case NumberSet::twins:
      return systems.SysGemelli2Str();
    case NumberSet::reversibles:
      return systems.SysVertibili2Str();
    case NumberSet::ending:
      return systems.SysCadenze2Str(number);
    case NumberSet::fibonacci:
      return systems.SysFibonacci2Str(number);
    case NumberSet::tens:
      return systems.SysDecine2Str(number);
    case NumberSet::figure:
      return systems.SysFigure2Str(number);
  }
  return {};
}

std::string plain_list(NumberSet set, int16_t number) {
  constexpr int16_t ten_of_ninety = 90;
  if (set == NumberSet::tens && number != ten_of_ninety) return every(1, number, number + 9);
  if (set == NumberSet::figure) return every(9, number, number_count);
  return within_the_game(library_list(set, number));
}

automation::Variant drawn(const RandomQuestion& question) {
  const cSistemi systems;
  automation::Array series;
  systems.GetRndNumber(series, question.count, question.least, question.most, question.repeat);
  automation::Variant numbers = series;
  if (question.sorted) systems.ArrNumbersSort(numbers);
  return numbers;
}

}  // namespace

std::string numbers_of_set(const SetQuestion& question) {
  return question.reach == Reach::plain ? plain_list(question.set, question.number)
                                        : library_list(question.set, question.number);
}

std::string random_numbers(const RandomQuestion& question) {
  const StoppableCall stoppable;
  try {
    std::string list;
    const automation::Variant numbers = drawn(question);
    for (const automation::Variant& number : numbers.get_if<automation::Array>()->items())
      append(list, automation::to_text(number));
    return list;
  } catch (const automation::RunTimeError&) {
    if (!Interruption::requested()) throw;
    throw Failure(ExitCode::interrupted,
                  "interrupted before all of " + std::to_string(question.count) + " numbers were drawn");
  }
}

size_t length_of(std::string_view list) {
  return list.empty() ? 0 : 1 + static_cast<size_t>(std::count(list.begin(), list.end(), ','));
}

}  // namespace vestara::host
