#include "vestara/study/chance/histogram.h"

#include <gtest/gtest.h>

#include <numeric>

namespace vestara {
namespace {

std::vector<int64_t> up_to(int64_t most) {
  std::vector<int64_t> values(static_cast<size_t>(most) + 1);
  std::iota(values.begin(), values.end(), 0);
  return values;
}

/// So many fifteens that a class would be one value wide, and two others.
std::vector<int64_t> around_fifteen(int64_t least, int64_t most) {
  std::vector<int64_t> values(100, 15);
  values.push_back(least);
  values.push_back(most);
  return values;
}
/// The counts of around_fifteen(0, values - 1): thirty values in classes of one, thirty-one in classes of two.
std::vector<size_t> counts_around_fifteen(size_t values) {
  const bool single = values == 30;
  std::vector<size_t> counts(single ? 30 : 16, 0);
  counts.front() = counts.back() = 1;
  counts.at(single ? 15 : 7) = 100;
  return counts;
}

TEST(Histogram, ChoosesItsClasses) {
  struct Row {
    const char* why;
    std::vector<int64_t> values;
    int64_t first, width;
    std::vector<size_t> counts;
  };
  for (const Row& row : {Row{"nothing", {}, 0, 1, {}},
                         {"one value", {7}, 7, 1, {1}},
                         {"all equal", {7, 7, 7}, 7, 1, {3}},
                         {"small whole numbers", {1, 1, 1, 2, 2, 2, 2, 3}, 1, 1, {3, 4, 1}},
                         {"an empty class between", {0, 0, 0, 0, 3}, 0, 1, {4, 0, 0, 1}},
                         {"begins at a multiple", {13, 14, 18, 19, 23, 24, 28, 29}, 10, 10, {4, 4}},
                         {"an even spread", up_to(99), 0, 50, {50, 50}},
                         {"thirty classes", around_fifteen(0, 29), 0, 1, counts_around_fifteen(30)},
                         {"one value too many for them", around_fifteen(0, 30), 0, 2, counts_around_fifteen(31)}}) {
    const Histogram histogram = histogram_of(row.values);
    EXPECT_EQ(histogram.first, row.first) << row.why;
    EXPECT_EQ(histogram.width, row.width) << row.why;
    EXPECT_EQ(histogram.counts, row.counts) << row.why;
  }
}

TEST(Histogram, HasThirtyClassesAtMostAndLosesNothing) {
  for (const int64_t most : {29, 30, 31, 99, 1000, 99999}) {
    std::vector<int64_t> values(10000, 1);
    values.push_back(most);
    const Histogram histogram = histogram_of(values);
    EXPECT_LE(histogram.counts.size(), 30U) << most;
    EXPECT_EQ(std::accumulate(histogram.counts.begin(), histogram.counts.end(), size_t{0}), values.size());
    EXPECT_LE(histogram.least(histogram.counts.size() - 1), most);
    EXPECT_GE(histogram.most(histogram.counts.size() - 1), most);
  }
}

}  // namespace
}  // namespace vestara
