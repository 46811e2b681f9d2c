#include <gtest/gtest.h>

#include <algorithm>

#include "tests/conformance/back_end.h"
#include "tests/support/delay_oracle.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "vestara/frequency/frequency.h"

namespace conformance {
namespace {

using automation::Missing;
using automation::Variant;
using testing_support::Archive;
using testing_support::day;
using testing_support::DrawQuery;
using testing_support::Figures;
using Ranking = decltype(Figures<int32_t>::ranking);
using Lines = std::vector<std::string>;

class DelaysTest : public BackEnd {
 protected:
  DelaysTest() { frequency_->ActiveConnection(connector_); }
  void load(const DrawQuery& query) { frequency_->LoadRitardi(query.from, query.to, query.wheels); }
  std::vector<int32_t> cells() {
    std::vector<int32_t> result;
    for (int32_t wheel = 1; wheel <= 11; ++wheel)
      for (int16_t number = 1; number <= 90; ++number) result.push_back(frequency_->GetRitNum(number, wheel));
    return result;
  }
  Ranking ranking() {
    Ranking result;
    for (int16_t i = 0; i < 90; ++i)
      result.emplace_back(frequency_->GetRitTopTenNumero(i), frequency_->GetRitTopTenERuota(i),
                          frequency_->GetRitTopTen(i));
    return result;
  }

  testing_support::LogCapture log_;
  automation::Ref<vestara::cFrequenza> frequency_ = automation::make<vestara::cFrequenza>();
};

INSTANTIATE_TEST_SUITE_P(Engines, DelaysTest, engines(), engine_name);

TEST_P(DelaysTest, AThousandArchivesAgreeWithTheOracle) {
  size_t loads = 0, failures = 0, full_grids = 0, zero_filled = 0;
  Ranking expected_ranking;
  for (uint64_t seed = 1; seed <= seeds() && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    testing_support::Random random(seed);
    const Archive archive = testing_support::odd_archive(random);
    store(archive);
    for (DrawQuery query; !HasFailure() && !random.one_in(4);
         query = testing_support::random_draw_query(random, archive)) {
      SCOPED_TRACE("wheels " + query.wheels + ", from " + testing_support::describe(query.from) + ", to " +
                   testing_support::describe(query.to));
      load(query);
      const auto expected = testing_support::delays_of(archive, query);
      ASSERT_EQ(cells(), expected.cells);
      ASSERT_EQ(log_.take(),
                expected.error == 0 ? Lines{} : Lines{"cFrequenza.LoadRitardi() " + std::to_string(expected.error)});
      if (expected.error == 0) expected_ranking = expected.ranking;
      ASSERT_TRUE(expected_ranking.empty() || ranking() == expected_ranking) << "after an error the one before";
      ++loads;
      failures += expected.error != 0;
      full_grids += std::ranges::count(expected.cells, -1) == 0;
      zero_filled += expected.error == 0 && expected.ranking.back() == std::tuple(0, 0, 0);
    }
  }
  EXPECT_GT(loads, 2000 * seeds() / 1000);
  EXPECT_GT(failures, 200 * seeds() / 1000);
  EXPECT_GT(full_grids, 20 * seeds() / 1000);
  EXPECT_GT(zero_filled, 50 * seeds() / 1000);
}

/// BA and NA in January 2026; NA with a row of zeros and an older draw.
class DelayCasesTest : public DelaysTest {
 protected:
  DelayCasesTest() {
    store({{day(2025, 1, 1), 1, "NA", {61, 62, 63, 64, 65}},
           {day(2026, 1, 2), 1, "BA", {1, 2, 3, 4, 5}},
           {day(2026, 1, 6), 2, "BA", {6, 7, 8, 9, 10}},
           {day(2026, 1, 6), 2, "NA", {11, 12, 13, 14, 15}},
           {day(2026, 1, 9), 3, "BA", {1, 2, 3, 4, 11}},
           {day(2026, 1, 9), 3, "RN", {90, 89, 88, 87, 86}}});
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, DelayCasesTest, engines(), engine_name);

TEST_P(DelayCasesTest, Cases) {
  const struct {
    const char* what;
    Variant from, to;
    const char* wheels;
    int16_t number;
    const char* wheel;
    int32_t delay;
  } rows[] = {{"the newest draw", Missing{}, Missing{}, "", 11, "BA", 0},
              {"another wheel of the same number", Missing{}, Missing{}, "", 11, "NA", 0},
              {"the oldest draw", Missing{}, Missing{}, "", 5, "BA", 2},
              {"of another wheel", Missing{}, Missing{}, "", 61, "NA", 1},
              {"up to a date", Missing{}, day(2026, 1, 8), "", 5, "BA", 1},
              {"of the date itself", Missing{}, "09/01/2026", "BA", 11, "BA", 0},
              {"out of the period", day(2026, 1, 3), Missing{}, "BA", 5, "BA", -1},
              {"a wheel that was not asked for", Missing{}, Missing{}, "BA", 90, "RN", -1},
              {"the period holds for the first wheel", day(2026, 1, 3), Missing{}, "BA,NA", 5, "BA", -1},
              {"and for no other", day(2026, 1, 3), Missing{}, "BA,NA", 61, "NA", 1},
              {"a date that is none, first wheel", "x", Missing{}, "BA,NA", 11, "BA", -1},
              {"a date that is none, second wheel", "x", Missing{}, "BA,NA", 61, "NA", 1},
              {"an unknown wheel", Missing{}, Missing{}, "ZZ", 1, "BA", -1},
              {"a wheel behind a blank", Missing{}, Missing{}, "BA, NA", 61, "NA", -1},
              {"a quote, which the database refuses", Missing{}, Missing{}, "BA,'", 1, "BA", -1},
              {"RN is a wheel like the others", Missing{}, Missing{}, "RN", 86, "RN", 0}};
  for (const auto& row : rows) {
    frequency_->LoadRitardi(row.from, row.to, row.wheels);
    EXPECT_EQ(frequency_->GetRitNum(row.number, row.wheel), row.delay) << row.what;
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_P(DelayCasesTest, AZeroOfALaterWheelEndsTheLoad) {
  ASSERT_TRUE(execute("UPDATE storico SET estr3=0 WHERE ruota='NA' AND dtEstr='2026-01-06'"));
  load({Missing{}, Missing{}, "NA,BA"});
  EXPECT_EQ(frequency_->GetRitNum(61, "NA"), 0) << "its own condition keeps the first wheel whole";
  load({Missing{}, Missing{}, "BA,NA"});
  EXPECT_EQ(log_.take(), Lines{"cFrequenza.LoadRitardi() 9"});
  EXPECT_EQ(frequency_->GetRitNum(12, "NA"), 0);
  EXPECT_EQ(frequency_->GetRitNum(13, "NA"), -1);
  EXPECT_EQ(frequency_->GetRitNum(5, "BA"), -1) << "older than the row that failed";
  EXPECT_EQ(ranking()[0], std::tuple(5, 1, 2)) << "of the load before";
}

}  // namespace
}  // namespace conformance
