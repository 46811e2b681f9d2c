#include "tests/support/frequency_oracle.h"

#include <algorithm>
#include <map>
#include <set>

namespace testing_support {

namespace {

using Pair = std::pair<std::string, std::optional<int32_t>>;  // wheel, number

Archive selected(const Archive& archive, const DrawQuery& query) {
  Archive draws;
  std::ranges::copy_if(archive, std::back_inserter(draws),
                       [&](const auto& row) { return is_selected(row, query, true) == true; });
  return draws;
}

/// Pairs and their counts, largest first; equal counts by wheel, then by number, Null before all.
std::vector<std::pair<Pair, int32_t>> pairs_of(const Archive& draws) {
  std::map<Pair, int32_t> counts;
  for (const auto& row : draws)
    for (const auto& number : row.numbers) ++counts[{row.wheel, number}];
  std::vector<std::pair<Pair, int32_t>> pairs(counts.begin(), counts.end());
  std::ranges::stable_sort(pairs, [](const auto& a, const auto& b) { return a.second > b.second; });
  return pairs;
}

/// Fills the cells with the value of each pair until one fails, and lists the pairs.
template <class Value, class Rate>
Figures<Value> figures_of(const std::vector<std::pair<Pair, int32_t>>& pairs, Rate rate) {
  Figures<Value> result{.cells = std::vector<Value>(990, 0)};
  for (const auto& [pair, count] : pairs) {
    ++result.rows;
    const auto& [alias, number] = pair;
    result.error = error_in(alias, number);
    if (result.error != 0) break;
    const int32_t wheel = enumerator_of(alias);
    result.cells[static_cast<size_t>((wheel - 1) * 90 + *number - 1)] = rate(count);
    result.ranking.emplace_back(*number, wheel, rate(count));
  }
  if (result.error != 0) result.ranking.clear();
  return result;
}

}  // namespace

Figures<int32_t> counts_of(const Archive& archive, const DrawQuery& query) {
  auto result = figures_of<int32_t>(pairs_of(selected(archive, query)), [](int32_t count) { return count; });
  if (result.error != 0) return result;
  const auto same_level = [](const auto& a, const auto& b) { return std::get<2>(a) == std::get<2>(b); };
  result.ranking.erase(std::unique(result.ranking.begin(), result.ranking.end(), same_level), result.ranking.end());
  result.ranking.resize(90, {-1, -1, -1});
  return result;
}

Figures<float> averages_of(const Archive& archive, const DrawQuery& query) {
  const Archive draws = selected(archive, query);
  std::set<int32_t> dates;
  for (const auto& row : draws) dates.insert(row.date.day());
  auto result = figures_of<float>(pairs_of(draws), [&](int32_t count) {
    return static_cast<float>(static_cast<double>(count) / static_cast<double>(dates.size()) * 100);
  });
  if (result.error == 0) result.ranking.resize(90, {0, 0, 0.0F});
  return result;
}

}  // namespace testing_support
