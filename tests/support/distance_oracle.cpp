#include "tests/support/distance_oracle.h"

#include <algorithm>

#include "automation/text.h"

namespace testing_support {

namespace {

using Draws = std::vector<const ArchiveRow*>;

bool on_wheels(const ArchiveRow& row, const DistanceQuery& query) {
  if (query.all_wheels) return !(query.without_national && row.wheel == "RN");
  if (query.draws.wheels.find_first_not_of(' ') == std::string::npos) return true;
  const auto wheels = automation::split(query.draws.wheels, ',');
  return std::ranges::find(wheels, row.wheel) != wheels.end();
}

bool is_wanted(const ArchiveRow& row, const DistanceQuery& query) {
  const DrawQuery dates{query.draws.from, query.draws.to, ""};
  const bool complete = std::ranges::all_of(row.numbers, [](const auto& number) { return number.has_value(); });
  return complete && on_wheels(row, query) && is_selected(row, dates, true) == true;
}

/// In the order of the walk; rows of one date as they were stored.
Draws draws_of(const Archive& archive, const DistanceQuery& query) {
  Draws draws;
  for (const auto& row : archive)
    if (is_wanted(row, query)) draws.push_back(&row);
  std::ranges::stable_sort(
      draws, [&](const auto* a, const auto* b) { return query.ascending ? a->date < b->date : a->date > b->date; });
  return draws;
}

/// Draws of the wheel before this one; over all wheels dates up to this one.
int32_t place_in_count(const Draws& draws, size_t draw, const DistanceQuery& query) {
  int32_t count = 0;
  for (size_t i = 0; i < draw; ++i)
    count += query.all_wheels ? draws[i]->date != draws[i + 1]->date : draws[i]->wheel == draws[draw]->wheel;
  return query.all_wheels ? count + 1 : count;
}

/// The numbers of a row, or its ten pairs, as they are met.
std::vector<std::pair<int32_t, int32_t>> met_in(const ArchiveRow& row, const DistanceQuery& query) {
  std::vector<int32_t> numbers;
  for (const auto& number : row.numbers) numbers.push_back(*number);
  std::vector<std::pair<int32_t, int32_t>> met;
  if (!query.pairs) {
    for (const int32_t number : numbers) met.emplace_back(number, 0);
    return met;
  }
  std::ranges::sort(numbers);
  for (size_t i = 0; i < 5; ++i)
    for (size_t j = i + 1; j < 5; ++j) met.emplace_back(numbers[i], numbers[j]);
  return met;
}

bool exists(const std::pair<int32_t, int32_t>& met, bool pairs) {
  const auto [first, second] = met;
  if (pairs) return first >= 1 && first <= 89 && second >= 2 && second <= 90;
  return first >= 1 && first <= 90;
}

}  // namespace

DistanceFigures distances_of(const Archive& archive, const DistanceQuery& query) {
  const Draws draws = draws_of(archive, query);
  std::map<DistanceKey, std::vector<int32_t>> places;
  DistanceFigures figures;
  for (size_t draw = 0; draw < draws.size() && figures.error == 0; ++draw) {
    const int32_t wheel = query.all_wheels ? -1 : enumerator_of(draws[draw]->wheel);
    if (wheel == 0) {
      figures.error = 5;
      break;
    }
    for (const auto& met : met_in(*draws[draw], query)) {
      if (!exists(met, query.pairs)) {
        figures.error = 9;
        break;
      }
      places[{wheel, met.first, met.second}].push_back(place_in_count(draws, draw, query));
    }
  }
  for (const auto& [key, list] : places)
    for (size_t i = 0; i < list.size(); ++i) figures.lists[key].push_back(i == 0 ? list[0] : list[i] - list[i - 1]);
  return figures;
}

std::tuple<double, double, double> means_of(const std::vector<int32_t>& list) {
  double sum = 0;
  for (size_t i = 1; i < list.size(); ++i) sum += list[i];
  const auto [least, most] = std::minmax_element(list.begin() + 1, list.end());
  return {sum / static_cast<double>(list.size() - 1), *least, *most};
}

}  // namespace testing_support
