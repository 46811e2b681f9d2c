#include <algorithm>
#include <functional>

#include "tests/support/study_oracle.h"

// The sets that players know by name, each written down as its rule says.

namespace testing_support::study {

namespace {

NamedSet unnamed(Group numbers) {
  std::ranges::sort(numbers);
  return {listed(numbers), numbers};
}

Group numbers_where(const std::function<bool(int32_t)>& holds) {
  Group numbers;
  for (int32_t number = 1; number <= 90; ++number)
    if (holds(number)) numbers.push_back(number);
  return numbers;
}

NamedSet range_set(int32_t first, int32_t last) {
  return {std::to_string(first) + "-" + std::to_string(last),
          numbers_where([&](int32_t number) { return number >= first && number <= last; })};
}

std::vector<NamedSet> decine() {
  std::vector<NamedSet> sets;
  for (int32_t first = 1; first <= 81; first += 10) sets.push_back(range_set(first, first + 9));
  return sets;
}

std::vector<NamedSet> decine_popolari() {
  std::vector<NamedSet> sets{range_set(1, 9)};
  for (int32_t first = 10; first <= 80; first += 10) sets.push_back(range_set(first, first + 9));
  return sets;
}

std::vector<NamedSet> cadenze() {
  std::vector<NamedSet> sets;
  for (const int32_t digit : {1, 2, 3, 4, 5, 6, 7, 8, 9, 0})
    sets.push_back({std::to_string(digit), numbers_where([&](int32_t number) { return number % 10 == digit; })});
  return sets;
}

/// The digits added up until one is left.
int32_t digital_root(int32_t number) {
  while (number > 9) number = number / 10 + number % 10;
  return number;
}

std::vector<NamedSet> figure() {
  std::vector<NamedSet> sets;
  for (int32_t root = 1; root <= 9; ++root)
    sets.push_back({std::to_string(root), numbers_where([&](int32_t number) { return digital_root(number) == root; })});
  return sets;
}

std::vector<NamedSet> gemelli() { return {unnamed({11, 22, 33, 44, 55, 66, 77, 88})}; }

std::vector<NamedSet> vertibili() {
  std::vector<NamedSet> sets;
  for (int32_t a = 1; a <= 8; ++a)
    for (int32_t b = a + 1; b <= 8; ++b) sets.push_back(unnamed({10 * a + b, 10 * b + a}));
  return sets;
}

std::vector<NamedSet> diametrali() {
  std::vector<NamedSet> sets;
  for (int32_t number = 1; number <= 45; ++number) sets.push_back(unnamed({number, number + 45}));
  return sets;
}

const std::map<std::string, std::vector<NamedSet> (*)()> makers{
    {"decine", decine},        {"decine-popolari", decine_popolari},
    {"cadenze", cadenze},      {"figure", figure},
    {"gemelli", gemelli},      {"vertibili", vertibili},
    {"diametrali", diametrali}};

}  // namespace

const std::vector<std::string>& families() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> result;
    for (const auto& [name, maker] : makers) result.push_back(name);
    return result;
  }();
  return names;
}

std::vector<NamedSet> family(const std::string& name) { return makers.at(name)(); }

}  // namespace testing_support::study
