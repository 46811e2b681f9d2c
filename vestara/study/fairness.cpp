#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "vestara/study/chance/hit_chance.h"
#include "vestara/study/chance/probability_tails.h"
#include "vestara/study/draw_counts.h"
#include "vestara/study/figures.h"

namespace vestara::study {
namespace {

/// A statistic with its chance; nothing where it does not exist.
struct Outcome {
  std::optional<double> statistic;
  std::optional<int32_t> degrees;
  std::optional<double> p;
};

Outcome chi_square(double statistic, int32_t degrees) {
  return {statistic, degrees, chi_square_tail(statistic, degrees)};
}

Outcome normal(double z) { return {z, std::nullopt, normal_tails(z)}; }

/// Pearson's statistic of cells that are all expected alike.
double pearson(std::span<const int32_t> seen, double expected) {
  double sum = 0;
  for (const int32_t count : seen) sum += (count - expected) * (count - expected) / expected;
  return sum;
}

double pearson(std::span<const int32_t> seen, std::span<const double> expected) {
  double sum = 0;
  for (size_t i = 0; i < seen.size(); ++i) sum += (seen[i] - expected[i]) * (seen[i] - expected[i]) / expected[i];
  return sum;
}

/// Five different numbers a draw vary less than five independent ones: the factor is 89/85.
double numbers_statistic(const DrawCounts& counts) {
  constexpr double correction = (number_count - 1.0) / (number_count - drawn_count);
  return correction * pearson(counts.numbers, counts.draws * (1.0 * drawn_count / number_count));
}

Outcome numbers_test(const DrawCounts& counts) { return chi_square(numbers_statistic(counts), number_count - 1); }

/// Pearson's statistic of the pairs is a sum of two independent parts with these weights, the first of which the
/// numbers' own statistic tells; the other is left.
Outcome pairs_test(const DrawCounts& counts) {
  constexpr double all = choices(number_count, drawn_count);
  constexpr double chance = 10.0 / number_pairs;
  constexpr double of_numbers = 4.0 * choices(number_count - 3, 3) / (all * chance);
  constexpr double of_pairs = 1.0 * choices(number_count - 4, 3) / (all * chance);
  const double statistic = pearson(counts.pairs, counts.draws * chance);
  return chi_square((statistic - of_numbers * numbers_statistic(counts)) / of_pairs, number_pairs - number_count);
}

Outcome first_test(const DrawCounts& counts) {
  return chi_square(pearson(counts.first, 1.0 * counts.draws / number_count), number_count - 1);
}

Outcome overlap_test(const DrawCounts& counts) {
  std::array<double, overlap_cells> expected{};
  for (int32_t common = 0; common < overlap_cells; ++common) {
    const double with_more = common + 1 < overlap_cells ? hit_chance(drawn_count, common + 1) : 0;
    expected[static_cast<size_t>(common)] = (counts.draws - 1) * (hit_chance(drawn_count, common) - with_more);
  }
  return chi_square(pearson(counts.overlap, expected), overlap_cells - 1);
}

Outcome parity_test(const DrawCounts& counts) {
  constexpr size_t half = number_count / 2;
  std::array<double, drawn_count + 1> expected{};
  for (size_t even = 0; even < expected.size(); ++even)
    expected[even] = counts.draws * (1.0 * choices(half, even) * choices(half, drawn_count - even) /
                                     choices(number_count, drawn_count));
  return chi_square(pearson(counts.even, expected), drawn_count);
}

double mean_of(const std::vector<int32_t>& values) {
  double sum = 0;
  for (const int32_t value : values) sum += value;
  return sum / static_cast<double>(values.size());
}

Outcome sum_test(const DrawCounts& counts) {
  constexpr double mean = drawn_count * (number_count + 1) / 2.0;
  constexpr double variance =
      drawn_count * (1.0 * number_count * number_count - 1) / 12 * (number_count - drawn_count) / (number_count - 1);
  return normal((mean_of(counts.sums) - mean) / std::sqrt(variance / counts.draws));
}

Outcome serial_test(const DrawCounts& counts) {
  const double mean = mean_of(counts.sums);
  double with_next = 0;
  double squares = 0;
  for (size_t i = 0; i < counts.sums.size(); ++i) {
    const double here = counts.sums[i] - mean;
    squares += here * here;
    if (i + 1 < counts.sums.size()) with_next += here * (counts.sums[i + 1] - mean);
  }
  if (squares == 0) return {};
  return normal(with_next / squares * std::sqrt(counts.draws));
}

/// A gap of g draws fits at draws - g - 1 places, and stands at each with the chance of two draws with the number and
/// g without. Thirteen classes have 11 degrees of freedom, not 12: five numbers a draw fix two sums, how many gaps are
/// closed and how many draws they take up, but for what the ends cut off.
Outcome gaps_test(const DrawCounts& counts) {
  constexpr double chance = 1.0 * drawn_count / number_count;
  std::array<double, gap_classes> expected{};
  double at_a_place = chance * chance;
  for (int32_t gap = 0; gap + 1 < counts.draws; ++gap) {
    expected[static_cast<size_t>(std::min(gap / gap_class_width, gap_classes - 1))] +=
        number_count * (counts.draws - gap - 1.0) * at_a_place;
    at_a_place *= 1 - chance;
  }
  constexpr int32_t fixed_sums = 2;
  return chi_square(pearson(counts.gaps, expected), gap_classes - fixed_sums);
}

struct Test {
  std::string_view name;
  Outcome (*outcome)(const DrawCounts& counts);
  int32_t fewest_draws;
};
constexpr std::array<Test, 8> tests{{{"numbers", numbers_test, fewest_draws_tested},
                                     {"pairs", pairs_test, fewest_draws_tested},
                                     {"first", first_test, fewest_draws_tested},
                                     {"overlap", overlap_test, fewest_draws_of_rare_cells},
                                     {"parity", parity_test, fewest_draws_tested},
                                     {"sum", sum_test, fewest_draws_tested},
                                     {"serial", serial_test, fewest_draws_tested},
                                     {"gaps", gaps_test, fewest_draws_of_rare_cells}}};

void append_tests(const DrawSequence& sequence, std::vector<FairnessTest>& rows) {
  const DrawCounts counts = count_draws(sequence);
  for (const Test& test : tests) {
    const Outcome outcome = counts.draws >= test.fewest_draws ? test.outcome(counts) : Outcome{};
    rows.push_back({sequence.name(), test.name, outcome.statistic, outcome.degrees, outcome.p, std::nullopt});
  }
}

}  // namespace

std::vector<FairnessTest> fairness_tests(const Draws& draws, const Selection& selection) {
  std::vector<DrawSequence> sequences;
  for (const int32_t wheel : selection.wheels.wheels())
    sequences.push_back(DrawSequence::of_wheel(draws, wheel, selection.period));
  const bool are_empty =
      std::all_of(sequences.begin(), sequences.end(), [](const DrawSequence& one) { return one.draws() == 0; });
  if (are_empty) return {};
  std::vector<FairnessTest> rows;
  for (const DrawSequence& sequence : sequences) append_tests(sequence, rows);
  std::vector<std::optional<double>> p;
  p.reserve(rows.size());
  for (const FairnessTest& row : rows) p.push_back(row.p);
  const auto adjusted = holm_adjusted(p);
  for (size_t i = 0; i < rows.size(); ++i) rows[i].p_holm = adjusted[i];
  return rows;
}

}  // namespace vestara::study
