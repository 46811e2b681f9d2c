
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "tests/support/random.h"
#include "vestara/study/draw_counts.h"
#include "vestara/study/figures.h"

namespace vestara::study {
namespace {

/// Fair draws of one wheel, a day each.
std::vector<LoadedDraw> fair_draws(uint64_t seed, int32_t count) {
  testing_support::Random random(seed);
  std::vector<LoadedDraw> draws;
  std::array<uint8_t, number_count> urn{};
  std::iota(urn.begin(), urn.end(), uint8_t{1});
  for (int32_t day = 1; day <= count; ++day) {
    LoadedDraw draw{day, day, {}};
    for (size_t i = 0; i < draw.numbers.size(); ++i) {
      std::swap(urn[i], urn[i + random.below(urn.size() - i)]);
      draw.numbers[i] = urn[i];
    }
    draws.push_back(draw);
  }
  return draws;
}

std::shared_ptr<const LoadedDraws> on_bari(std::vector<LoadedDraw> draws) {
  LoadedDraws::ByWheel all;
  all[0] = std::move(draws);
  return std::make_shared<const LoadedDraws>(std::move(all));
}

/// The first wheels: one is Bari alone.
Selection first_wheels(int32_t count) {
  Selection selection{{}, {}};
  for (int32_t wheel = 1; wheel <= count; ++wheel) selection.wheels.add(wheel);
  return selection;
}

TEST(DrawCounts, OfThreeDraws) {
  const auto draws = on_bari({{1, 1, {90, 1, 2, 3, 4}}, {2, 2, {4, 3, 2, 1, 90}}, {10, 3, {5, 7, 9, 11, 90}}});
  const DrawCounts counts = count_draws(DrawSequence::of_wheel(draws, 1, {}));
  EXPECT_EQ(counts.draws, 3);
  EXPECT_EQ(counts.numbers[0], 2);
  EXPECT_EQ(counts.numbers[89], 3);
  EXPECT_EQ(counts.first[89], 1);
  EXPECT_EQ(counts.first[3], 1);
  EXPECT_EQ(counts.pairs[0], 2) << "1 and 2";
  EXPECT_EQ(std::accumulate(counts.pairs.begin(), counts.pairs.end(), 0), 30);
  EXPECT_EQ(counts.overlap, (std::array<int32_t, overlap_cells>{0, 1, 0, 1}));
  EXPECT_EQ(counts.even, (std::array<int32_t, 6>{0, 1, 0, 2, 0, 0}));
  EXPECT_EQ(counts.sums, (std::vector<int32_t>{100, 100, 122}));
  EXPECT_EQ(counts.gaps[0], 6) << "five numbers at once, one of them once more";
}

TEST(DrawCounts, GapsByTheirClass) {
  std::vector<LoadedDraw> draws;
  const std::vector<int32_t> with{0, 1, 7, 14, 86, 160};
  for (int32_t draw = 0; draw <= 160; ++draw) {
    const bool has = std::find(with.begin(), with.end(), draw) != with.end();
    draws.push_back({draw, draw, {static_cast<uint8_t>(has ? 90 : 89), 1, 2, 3, 4}});
  }
  const auto counts = count_draws(DrawSequence::of_wheel(on_bari(draws), 1, {}));
  // 1 to 4 have 160 gaps each and 89 has 154, all short; 90 has one of 0, 5, 6, 71 and 73 draws.
  EXPECT_EQ(counts.gaps, (std::array<int32_t, gap_classes>{4 * 160 + 154 + 2, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1}));
}

TEST(Fairness, TellsNothingOfFewDraws) {
  const struct {
    int32_t draws;
    const char* told;  ///< a letter for each test, in order: whether it says something
  } rows[] = {{1, "--------"}, {99, "--------"}, {100, "yyy-yyy-"}, {1999, "yyy-yyy-"}, {2000, "yyyyyyyy"}};
  constexpr std::string_view names[] = {"numbers", "pairs", "first", "overlap", "parity", "sum", "serial", "gaps"};
  for (const auto& row : rows) {
    const auto tests = fairness_tests(on_bari(fair_draws(7, row.draws)), first_wheels(1));
    ASSERT_EQ(tests.size(), 8U);
    std::string told;
    for (size_t i = 0; i < tests.size(); ++i) {
      EXPECT_EQ(tests[i].wheel, "BA");
      EXPECT_EQ(tests[i].test, names[i]);
      EXPECT_EQ(tests[i].statistic.has_value(), tests[i].p.has_value());
      EXPECT_EQ(tests[i].p.has_value(), tests[i].p_holm.has_value());
      told += tests[i].p ? 'y' : '-';
    }
    EXPECT_EQ(told, row.told) << row.draws;
  }
}

TEST(Fairness, HasRowsOfWheelsWithoutDraws) {
  const auto tests = fairness_tests(on_bari(fair_draws(7, 100)), first_wheels(3));
  ASSERT_EQ(tests.size(), 24U);
  for (size_t i = 0; i < tests.size(); ++i) {
    EXPECT_EQ(tests[i].wheel, i < 8 ? "BA" : i < 16 ? "CA" : "FI");
    EXPECT_EQ(tests[i].test, tests[i % 8].test);
    if (i >= 8) {
      EXPECT_TRUE(!tests[i].statistic && !tests[i].degrees && !tests[i].p && !tests[i].p_holm) << i;
    }
  }
  EXPECT_TRUE(fairness_tests(on_bari({}), first_wheels(3)).empty()) << "no draws at all";
}

TEST(Fairness, HasItsDegrees) {
  const auto tests = fairness_tests(on_bari(fair_draws(8, 2000)), first_wheels(1));
  const std::optional<int32_t> degrees[] = {89, 3915, 89, 3, 5, std::nullopt, std::nullopt, 11};
  for (size_t i = 0; i < tests.size(); ++i) EXPECT_EQ(tests[i].degrees, degrees[i]) << tests[i].test;
}

/// Changes fair draws so that one test above all must notice.
struct Bias {
  const char* test;
  void (*spoil)(std::vector<LoadedDraw>& draws);
};

void swap_in(LoadedDraw& draw, uint8_t wanted) {
  const auto* const there = std::find(draw.numbers.begin(), draw.numbers.end(), wanted);
  if (there == draw.numbers.end()) draw.numbers[2] = wanted;
}

TEST(Fairness, NoticesWhatIsNotFair) {
  const Bias biases[] = {
      {"numbers",
       [](std::vector<LoadedDraw>& draws) {
         for (size_t i = 0; i < draws.size(); i += 25) swap_in(draws[i], 53);
       }},
      {"pairs",
       [](std::vector<LoadedDraw>& draws) {
         for (size_t i = 0; i < draws.size(); i += 40) {
           const auto shift = static_cast<uint8_t>(i / 40 % 16);
           draws[i].numbers = {53, 54, static_cast<uint8_t>(1 + shift), static_cast<uint8_t>(20 + shift),
                               static_cast<uint8_t>(60 + shift)};
         }
       }},
      {"first",
       [](std::vector<LoadedDraw>& draws) {
         for (LoadedDraw& draw : draws)
           if (draw.day % 3 == 0) std::sort(draw.numbers.begin(), draw.numbers.end());
       }},
      {"overlap",
       [](std::vector<LoadedDraw>& draws) {
         for (size_t i = 1; i < draws.size(); i += 30) draws[i].numbers = draws[i - 1].numbers;
       }},
      {"parity",
       [](std::vector<LoadedDraw>& draws) {
         for (size_t i = 0; i < draws.size(); i += 20)
           draws[i].numbers = {2, 20, 30, 66, static_cast<uint8_t>(68 + i % 4 * 2)};
       }},
      {"sum",
       [](std::vector<LoadedDraw>& draws) {
         for (size_t i = 0; i < draws.size(); i += 12) draws[i].numbers = {1, 2, 3, 4, 5};
       }},
      {"serial",
       [](std::vector<LoadedDraw>& draws) {
         for (size_t i = 1; i < draws.size(); i += 8) draws[i].numbers = draws[i - 1].numbers;
       }},
      {"gaps",
       [](std::vector<LoadedDraw>& draws) {
         for (size_t i = 1; i < draws.size(); i += 8) draws[i].numbers = draws[i - 1].numbers;
       }},
  };
  for (const Bias& bias : biases) {
    auto draws = fair_draws(9, 4000);
    const auto p_of = [&](const std::vector<LoadedDraw>& given) {
      for (const FairnessTest& test : fairness_tests(on_bari(given), first_wheels(1)))
        if (test.test == bias.test) return *test.p;
      return -1.0;
    };
    EXPECT_GT(p_of(draws), 0.01) << bias.test;
    bias.spoil(draws);
    EXPECT_LT(p_of(draws), 1e-6) << bias.test;
  }
}

TEST(Fairness, AdjustsForAllRowsOfTheAnswer) {
  LoadedDraws::ByWheel all;
  for (uint64_t wheel = 0; wheel < 3; ++wheel) all[wheel] = fair_draws(20 + wheel, 500);
  const auto tests = fairness_tests(std::make_shared<const LoadedDraws>(std::move(all)), first_wheels(3));
  ASSERT_EQ(tests.size(), 24U);
  double least = 1;
  double least_adjusted = 1;
  for (const FairnessTest& test : tests) {
    if (!test.p) continue;
    least = std::min(least, *test.p);
    least_adjusted = std::min(least_adjusted, *test.p_holm);
    EXPECT_GE(*test.p_holm, *test.p);
  }
  EXPECT_DOUBLE_EQ(least_adjusted, std::min(1.0, 18 * least)) << "six tests of three wheels say something";
}

}  // namespace
}  // namespace vestara::study
