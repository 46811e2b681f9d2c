#include <gtest/gtest.h>

#include <algorithm>

#include "tests/conformance/back_end.h"
#include "tests/support/values.h"
#include "vestara/archive/hit_search.h"
#include "vestara/distances/distance_lists.h"
#include "vestara/distances/distance_walk.h"
#include "vestara/distances/gap_list.h"
#include "vestara/foundation/wheels.h"
#include "vestara/frequency/loads.h"

// The typed loads where they differ from the classes: the period holds for every wheel. Asking for several wheels at
// once must say the same as asking for each by itself, with the binding of the classes, where one wheel leaves no
// choice.

namespace conformance {
namespace {

using testing_support::all_aliases;
using testing_support::Archive;
using testing_support::Random;
using vestara::Averages;
using vestara::Counts;
using vestara::Delays;
using vestara::DrawSelection;
using vestara::PeriodBinding;
using vestara::WheelFilter;
using vestara::WheelGrid;

class TypedLoadsTest : public BackEnd {
 protected:
  void SetUp() override {
    BackEnd::SetUp();
    if (!url_.empty()) {
      ASSERT_TRUE(vestara::PreloadRuoteAlias(connector_));
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, TypedLoadsTest, engines(), engine_name);

template <class Cell>
void expect_equal_wheel(const WheelGrid<Cell>& grid, const WheelGrid<Cell>& expected, int32_t wheel) {
  for (int32_t number = 1; number <= vestara::number_count; ++number)
    ASSERT_EQ(grid.at(wheel, number), expected.at(wheel, number)) << "wheel " << wheel << ", number " << number;
}

TEST_P(TypedLoadsTest, SeveralWheelsSayTheSameAsEachByItself) {
  size_t bounded = 0;
  for (uint64_t seed = 1; seed <= seeds() / 10 && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random(seed);
    const Archive archive = random_archive(random, {.dates = 12});
    store(archive);
    DrawSelection selection;
    std::vector<std::string> quoted;
    for (const std::string& alias : all_aliases())
      if (random.one_in(3)) quoted.push_back("'" + alias + "'");
    if (quoted.empty() || archive.empty()) continue;
    selection.wheels = WheelFilter(quoted);
    if (random.one_in(2)) selection.from = archive[archive.size() / 4].date;
    if (random.one_in(2)) selection.to = archive[archive.size() * 3 / 4].date;
    bounded += selection.from.is_set() || selection.to.is_set();

    const Delays delays = load_delays(*connector_, selection);
    const Counts counts = load_counts(*connector_, selection);
    const Averages averages = load_averages(*connector_, selection);
    Delays none;
    none.grid.fill(-1);
    for (int32_t wheel = 1; wheel <= vestara::wheel_count; ++wheel) {
      const std::string alias = "'" + all_aliases().at(static_cast<size_t>(wheel - 1)) + "'";
      if (std::find(quoted.begin(), quoted.end(), alias) == quoted.end()) {
        expect_equal_wheel(delays.grid, none.grid, wheel);
        continue;
      }
      const DrawSelection single{WheelFilter({alias}), selection.from, selection.to};
      constexpr auto contract = PeriodBinding::first_wheel;
      expect_equal_wheel(delays.grid, load_delays(*connector_, single, contract).grid, wheel);
      const Counts of_wheel = load_counts(*connector_, single, contract);
      expect_equal_wheel(counts.grid, of_wheel.grid, wheel);
      for (int32_t number = 1; number <= vestara::number_count; ++number)
        ASSERT_EQ(averages.times.at(wheel, number), of_wheel.grid.at(wheel, number));
    }
  }
  EXPECT_GT(bounded, 5U) << "the selections have bounds to compare";
}

TEST_P(TypedLoadsTest, ARefusedStatementIsAnError) {
  ASSERT_TRUE(execute("DROP TABLE storico"));
  EXPECT_NE(testing_support::error_of([&] { load_delays(*connector_, {}); }), 0);
  EXPECT_NE(connector_->LastError(), "");
  EXPECT_NE(testing_support::error_of([&] { load_gaps(*connector_, {.numbers = "5"}); }), 0);
  EXPECT_NE(testing_support::error_of([&] { find_hits(*connector_, {.numbers = "5"}); }), 0);
  EXPECT_NE(testing_support::error_of([&] { load_wheel_distances(*connector_, vestara::Recorded::numbers, {}, {}); }),
            0);
}

}  // namespace
}  // namespace conformance
