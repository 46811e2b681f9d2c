#include "vestara/study/search_figures.h"

#include <gtest/gtest.h>

namespace vestara {
namespace {

WheelsPerDraw draws_of_one_wheel(int64_t draws) { return WheelsPerDraw({0, draws}); }

// One number on one wheel comes out in 5 of 90 draws.
TEST(SearchFigures, ShareAndDrawsPerHit) {
  constexpr double chance = 100.0 / 18;
  const SearchOutcome outcome{.numbers = 1, .size = 1, .wheels = 0, .draws_in_range = 12, .draws_with_hit = 2};
  const SearchFigures figures = search_figures(outcome, draws_of_one_wheel(10), 1);
  const struct {
    const char* what;
    std::optional<double> found;
    double expected;
  } rows[] = {{"wheels per draw", figures.drawn.wheels_per_draw, 1},
              {"expected hits", figures.drawn.expected_hits, 10.0 / 18},
              {"expected percent", figures.drawn.expected_percent, chance},
              {"effective percent", figures.drawn.effective_percent, 20},
              {"expected draws per hit", figures.drawn.expected_draws_per_hit, 18},
              {"effective draws per hit", figures.drawn.effective_draws_per_hit, 5},
              {"the contract's wheels", figures.contract.wheels, 1},
              {"the contract's theoretical percent", figures.contract.theoretical_percent, chance},
              {"the contract's effective percent", figures.contract.effective_percent, 100.0 / 6},
              {"the contract's theoretical draws per hit", figures.contract.theoretical_draws_per_hit, 18},
              {"the contract's effective draws per hit", figures.contract.effective_draws_per_hit, 6},
              {"percent of all wheels", figures.all_wheels.value().percent, chance},
              {"draws per hit of all wheels", figures.all_wheels.value().draws_per_hit, 18}};
  EXPECT_EQ(figures.drawn.draws, 10);
  for (const auto& row : rows) EXPECT_NEAR(row.found.value_or(-1), row.expected, 1e-9) << row.what;
}

TEST(SearchFigures, NothingWhereNothingBearsThem) {
  const SearchOutcome outcome{.numbers = 1, .size = 2};
  const SearchFigures figures = search_figures(outcome, draws_of_one_wheel(0), 0);
  for (const auto& absent :
       {figures.drawn.wheels_per_draw, figures.drawn.expected_percent, figures.drawn.effective_percent,
        figures.drawn.expected_draws_per_hit, figures.drawn.effective_draws_per_hit,
        figures.contract.theoretical_draws_per_hit, figures.contract.effective_draws_per_hit})
    EXPECT_FALSE(absent);
  EXPECT_EQ(figures.contract.effective_percent, 0);
  EXPECT_FALSE(figures.all_wheels);
}

}  // namespace
}  // namespace vestara
