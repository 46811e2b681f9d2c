#include "tests/support/study_fairness_oracle.h"

#include <algorithm>
#include <cmath>

namespace testing_support::study {

using automation::Null;
using automation::Variant;
using Drawings = std::vector<Numbers>;

namespace {

template <class Counts, class Expected>
long double pearson(const Counts& counts, const Expected& expected) {
  long double sum = 0;
  for (size_t i = 0; i < counts.size(); ++i) sum += (counts[i] - expected[i]) * (counts[i] - expected[i]) / expected[i];
  return sum;
}

/// All cells alike.
template <class Counts>
long double pearson_flat(const Counts& counts, long double expected) {
  return pearson(counts, std::vector<long double>(counts.size(), expected));
}

long double of(size_t count) { return static_cast<long double>(count); }
long double share(int64_t part, int64_t whole) {
  return static_cast<long double>(part) / static_cast<long double>(whole);
}

bool holds(const Numbers& draw, int32_t number) { return std::ranges::count(draw, number) == 1; }

size_t common(const Numbers& a, const Numbers& b) {
  return static_cast<size_t>(std::ranges::count_if(a, [&](int32_t number) { return holds(b, number); }));
}

long double sum_of(const Numbers& draw) {
  long double sum = 0;
  for (const int32_t number : draw) sum += number;
  return sum;
}

/// The weight of the part of the pairs' statistic that pairs share with groups of `i` numbers (Genest, Lockhart and
/// Stephens 2002): C(k-i,t-i) C(N-t-i,k-t) / (C(N,k) p) with p = C(k,t)/C(N,t), N = 90, k = 5, t = 2.
long double pair_weight(int64_t i) {
  const long double p = share(binomial(5, 2), binomial(90, 2));
  return static_cast<long double>(binomial(5 - i, 2 - i) * binomial(88 - i, 3)) /
         (static_cast<long double>(binomial(90, 5)) * p);
}

/// Numbers of one drawing exclude each other: 89/85 makes the statistic's mean its degrees.
long double corrected_numbers(const Drawings& draws) { return 89.0L / 85.0L * pearson_of_numbers(draws); }

long double clean_pairs(const Drawings& draws) {
  return (pearson_of_pairs(draws) - pair_weight(1) * corrected_numbers(draws)) / pair_weight(2);
}

long double first_numbers(const Drawings& draws) {
  std::vector<long double> counts(90);
  for (const auto& draw : draws) ++counts[static_cast<size_t>(draw[0] - 1)];
  return pearson_flat(counts, of(draws.size()) / 90);
}

long double overlap(const Drawings& draws) {
  std::vector<long double> expected(4);
  for (int64_t j = 0; j <= 5; ++j)
    expected[static_cast<size_t>(std::min<int64_t>(j, 3))] +=
        of(draws.size() - 1) * share(binomial(5, j) * binomial(85, 5 - j), binomial(90, 5));
  return pearson(overlaps(draws), expected);
}

long double parity(const Drawings& draws) {
  std::vector<long double> expected;
  for (int64_t j = 0; j <= 5; ++j)
    expected.push_back(of(draws.size()) * share(binomial(45, j) * binomial(45, 5 - j), binomial(90, 5)));
  return pearson(even_counts(draws), expected);
}

long double mean_sum(const Drawings& draws) {
  long double total = 0;
  for (const auto& draw : draws) total += sum_of(draw);
  return total / of(draws.size());
}

long double sum_z(const Drawings& draws) {
  constexpr long double variance = 5.0L * (90 * 90 - 1) / 12 * 85 / 89;
  return (mean_sum(draws) - 5 * 91 / 2.0L) / std::sqrt(variance / of(draws.size()));
}

long double serial_z(const Drawings& draws) {
  const long double mean = mean_sum(draws);
  long double products = 0;
  long double squares = 0;
  for (size_t i = 0; i < draws.size(); ++i) {
    const long double deviation = sum_of(draws[i]) - mean;
    squares += deviation * deviation;
    if (i > 0) products += deviation * (sum_of(draws[i - 1]) - mean);
  }
  return products / squares * std::sqrt(of(draws.size()));
}

long double gap_statistic(const Drawings& draws) { return pearson(closed_gaps(draws), expected_gaps(draws.size())); }

struct Test {
  const char* name;
  long double (*statistic)(const Drawings&);
  int32_t degrees;  ///< 0: a standard normal
  size_t least_draws;
};
// The gaps of 90 numbers have 11 degrees in their 13 classes: five numbers a draw fix how many gaps there are and, but
// for the ends, how long they are together.
constexpr Test tests[] = {{"numbers", corrected_numbers, 89, 100},
                          {"pairs", clean_pairs, 3915, 100},
                          {"first", first_numbers, 89, 100},
                          {"overlap", overlap, 3, 2000},
                          {"parity", parity, 5, 100},
                          {"sum", sum_z, 0, 100},
                          {"serial", serial_z, 0, 100},
                          {"gaps", gap_statistic, 11, 2000}};

std::vector<Numbers> drawings_of(const Draws& draws, const Selection& selection, size_t wheel) {
  std::vector<Numbers> drawings;
  for (const auto& series : series_of(draws, {{wheel}, selection.since, selection.until, Wheels::each}))
    for (const auto& moment : series.moments) drawings.push_back(moment.drawings[0]);
  return drawings;
}

using Row = std::vector<Variant>;

Row fairness_row(const std::string& wheel, const std::string& test, const std::vector<FairnessResult>& results) {
  for (const auto& result : results)
    if (result.test == test) return {wheel, test, result.statistic, result.degrees, result.p, Null{}};
  return {wheel, test, Null{}, Null{}, Null{}, Null{}};
}

/// Fills in the last column: over all rows that have a p.
void adjust(std::vector<Row>& rows) {
  std::vector<double> p;
  for (const auto& row : rows)
    if (const auto* value = row[4].get_if<double>()) p.push_back(*value);
  size_t next = 0;
  const auto adjusted = holm(p);
  for (auto& row : rows)
    if (!row[4].is_null()) row[5] = adjusted[next++];
}

}  // namespace

// For whole degrees the incomplete gamma function is a finite sum: exp(-h) h^j / Gamma(j+1) for j = 0, 1, … below
// degrees/2 when they are even; for j = 1/2, 3/2, … and erfc(sqrt(h)) when they are odd; h is half the value.
long double chi_square_tail(long double value, int32_t degrees) {
  if (value <= 0) return 1;
  const long double half = value / 2;
  const bool odd = degrees % 2 == 1;
  long double tail = odd ? std::erfc(std::sqrt(half)) : 0;
  for (long double j = odd ? 0.5L : 0; j < degrees / 2.0L; ++j)
    tail += std::exp(j * std::log(half) - half - std::lgamma(j + 1));
  return std::min(tail, 1.0L);
}

long double two_sided(long double z) { return std::erfc(std::abs(z) / std::sqrt(2.0L)); }

std::vector<double> holm(const std::vector<double>& p) {
  std::vector<double> adjusted;
  for (const double mine : p) {
    double largest = 0;
    for (const double smaller : p) {
      if (smaller > mine) continue;
      const auto before = std::ranges::count_if(p, [&](double other) { return other < smaller; });
      largest = std::max(largest, static_cast<double>(p.size() - static_cast<size_t>(before)) * smaller);
    }
    adjusted.push_back(std::min(largest, 1.0));
  }
  return adjusted;
}

long double pearson_of_numbers(const Drawings& draws) {
  std::vector<long double> counts(90);
  for (const auto& draw : draws)
    for (const int32_t number : draw) ++counts[static_cast<size_t>(number - 1)];
  return pearson_flat(counts, of(draws.size()) * 5 / 90);
}

long double pearson_of_pairs(const Drawings& draws) {
  std::vector<long double> counts(static_cast<size_t>(90 * 90));
  for (const auto& draw : draws)
    for (const int32_t low : draw)
      for (const int32_t high : draw)
        if (low < high) ++counts[static_cast<size_t>((low - 1) * 90 + high - 1)];
  std::vector<long double> pairs;
  for (size_t low = 0; low < 90; ++low)
    for (size_t high = low + 1; high < 90; ++high) pairs.push_back(counts[low * 90 + high]);
  return pearson_flat(pairs, of(draws.size()) * share(binomial(5, 2), binomial(90, 2)));
}

std::array<long double, 4> overlaps(const Drawings& draws) {
  std::array<long double, 4> counts{};
  for (size_t i = 1; i < draws.size(); ++i) ++counts.at(std::min<size_t>(common(draws[i], draws[i - 1]), 3));
  return counts;
}

std::array<long double, 6> even_counts(const Drawings& draws) {
  std::array<long double, 6> counts{};
  for (const auto& draw : draws)
    ++counts.at(static_cast<size_t>(std::ranges::count_if(draw, [](int32_t number) { return number % 2 == 0; })));
  return counts;
}

GapClasses closed_gaps(const Drawings& draws) {
  GapClasses classes{};
  for (int32_t number = 1; number <= 90; ++number) {
    std::vector<size_t> places;
    for (size_t i = 0; i < draws.size(); ++i)
      if (holds(draws[i], number)) places.push_back(i);
    for (size_t i = 1; i < places.size(); ++i)
      ++classes.at(std::min<size_t>((places[i] - places[i - 1] - 1) / 6, classes.size() - 1));
  }
  return classes;
}

GapClasses expected_gaps(size_t draws) {
  GapClasses classes{};
  constexpr long double p = 5.0L / 90;
  for (size_t gap = 0; gap + 2 <= draws; ++gap)
    classes.at(std::min<size_t>(gap / 6, classes.size() - 1)) +=
        90 * of(draws - gap - 1) * p * std::pow(1 - p, of(gap)) * p;
  return classes;
}

std::vector<FairnessResult> fairness_of(const Drawings& draws) {
  std::vector<FairnessResult> results;
  for (const auto& test : tests) {
    if (draws.size() < test.least_draws) continue;
    const long double statistic = test.statistic(draws);
    const bool normal = test.degrees == 0;
    const long double p = normal ? two_sided(statistic) : chi_square_tail(statistic, test.degrees);
    results.push_back({test.name, static_cast<double>(statistic), normal ? Variant(Null{}) : Variant(test.degrees),
                       static_cast<double>(p)});
  }
  return results;
}

Table fairness(const Draws& draws, const Selection& selection) {
  Table table{.columns = {"wheel", "test", "statistic", "degrees", "p", "p_holm"}, .rows = {}};
  if (series_of(draws, selection).empty()) return table;
  for (const size_t wheel : selection.wheels) {
    const auto results = fairness_of(drawings_of(draws, selection, wheel));
    for (const auto& test : tests) table.rows.push_back(fairness_row(all_aliases()[wheel], test.name, results));
  }
  adjust(table.rows);
  return table;
}

}  // namespace testing_support::study
