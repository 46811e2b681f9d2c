#include "vestara/study/set_families.h"

#include <array>

#include "automation/text.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara::study {
namespace {

using Sets = std::vector<NamedNumbers>;

/// `first` to `last`, in steps.
Numbers stepping(int32_t first, int32_t last, int32_t step) {
  Numbers numbers;
  for (int32_t number = first; number <= last; number += step) numbers.push_back(static_cast<uint8_t>(number));
  return numbers;
}

NamedNumbers range(int32_t first, int32_t last) {
  return {std::to_string(first) + "-" + std::to_string(last), stepping(first, last, 1)};
}

Sets tens() {
  Sets sets;
  for (int32_t first = 1; first < number_count; first += 10) sets.push_back(range(first, first + 9));
  return sets;
}

Sets popular_tens() {
  Sets sets{range(1, 9)};
  for (int32_t first = 10; first < number_count; first += 10) sets.push_back(range(first, first + 9));
  return sets;
}

Sets endings() {
  Sets sets;
  for (int32_t digit = 1; digit <= 10; ++digit)
    sets.push_back({std::to_string(digit % 10), stepping(digit, number_count, 10)});
  return sets;
}

Sets digital_roots() {
  Sets sets;
  for (int32_t root = 1; root <= 9; ++root) sets.push_back({std::to_string(root), stepping(root, number_count, 9)});
  return sets;
}

Sets twins() { return {named_by_its_numbers(stepping(11, 88, 11))}; }

Sets reversibles() {
  Sets sets;
  for (int32_t tens_digit = 1; tens_digit <= 8; ++tens_digit)
    for (int32_t digit = tens_digit + 1; digit <= 8; ++digit)
      sets.push_back(named_by_its_numbers(
          {static_cast<uint8_t>(10 * tens_digit + digit), static_cast<uint8_t>(10 * digit + tens_digit)}));
  return sets;
}

Sets diametrals() {
  constexpr int32_t apart = number_count / 2;
  Sets sets;
  for (int32_t number = 1; number <= apart; ++number)
    sets.push_back(named_by_its_numbers(stepping(number, number + apart, apart)));
  return sets;
}

struct Family {
  std::string_view name;
  Sets (*sets)();
};
constexpr std::array<Family, 7> families{{{"decine", tens},
                                          {"decine-popolari", popular_tens},
                                          {"cadenze", endings},
                                          {"figure", digital_roots},
                                          {"gemelli", twins},
                                          {"vertibili", reversibles},
                                          {"diametrali", diametrals}}};

}  // namespace

std::vector<NamedNumbers> set_family(std::string_view name) {
  for (const Family& family : families)
    if (automation::equal_ignoring_case(family.name, name)) return family.sets();
  return {};
}

std::string family_names() {
  std::string names;
  for (const Family& family : families) names.append(names.empty() ? "" : ", ").append(family.name);
  return names;
}

}  // namespace vestara::study
