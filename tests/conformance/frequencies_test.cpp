#include <gtest/gtest.h>

#include "tests/conformance/back_end.h"
#include "tests/support/frequency_oracle.h"
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
using Lines = std::vector<std::string>;

class FrequenciesTest : public BackEnd {
 protected:
  FrequenciesTest() { frequency_->ActiveConnection(connector_); }
  /// What the getters say: cells and, when there is one, the ranking.
  template <class Value, class Cell, class Number, class Wheel, class Top>
  Figures<Value> figures(Cell cell, Number number_at, Wheel wheel_at, Top value_at, bool ranked) {
    Figures<Value> result;
    for (int32_t wheel = 1; wheel <= 11; ++wheel)
      for (int16_t number = 1; number <= 90; ++number) result.cells.push_back(((*frequency_).*cell)(number, wheel));
    for (int16_t i = 0; ranked && i < 90; ++i)
      result.ranking.emplace_back(((*frequency_).*number_at)(i), ((*frequency_).*wheel_at)(i),
                                  ((*frequency_).*value_at)(i));
    return result;
  }
  Figures<int32_t> counts(bool ranked) {
    using Class = vestara::cFrequenza;
    return figures<int32_t>(&Class::GetFrqNum, &Class::GetFrqTopTenNumero, &Class::GetFrqTopTenERuota,
                            &Class::GetFrqTopTen, ranked);
  }
  Figures<float> averages(bool ranked) {
    using Class = vestara::cFrequenza;
    return figures<float>(&Class::GetFrqNumAVG, &Class::GetFrqTopTenNumeroAVG, &Class::GetFrqTopTenERuotaAVG,
                          &Class::GetFrqTopTenAVG, ranked);
  }
  static Lines entries(const char* member, int32_t error) {
    return error == 0 ? Lines{} : Lines{"cFrequenza." + std::string(member) + "() " + std::to_string(error)};
  }

  testing_support::LogCapture log_;
  automation::Ref<vestara::cFrequenza> frequency_ = automation::make<vestara::cFrequenza>();
};

INSTANTIATE_TEST_SUITE_P(Engines, FrequenciesTest, engines(), engine_name);

TEST_P(FrequenciesTest, AThousandArchivesAgreeWithTheOracle) {
  size_t loads = 0, failures = 0, levels = 0;
  decltype(Figures<int32_t>::ranking) count_ranking;
  decltype(Figures<float>::ranking) average_ranking;
  for (uint64_t seed = 1; seed <= seeds() && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    testing_support::Random random(seed);
    const Archive archive = testing_support::odd_archive(random);
    store(archive);
    for (DrawQuery query; !HasFailure() && !random.one_in(3);
         query = testing_support::random_draw_query(random, archive)) {
      SCOPED_TRACE("wheels " + query.wheels + ", from " + testing_support::describe(query.from) + ", to " +
                   testing_support::describe(query.to));
      const auto expected = testing_support::counts_of(archive, query);
      frequency_->LoadFrequenti(query.from, query.to, query.wheels);
      ASSERT_EQ(log_.take(), entries("LoadFrequenti", expected.error));
      if (expected.error == 0) count_ranking = expected.ranking;
      const auto found = counts(!count_ranking.empty());
      ASSERT_EQ(found.cells, expected.cells);
      ASSERT_EQ(found.ranking, count_ranking) << "after an error the one before";

      const auto expected_averages = testing_support::averages_of(archive, query);
      frequency_->LoadFrequenzaMedia(query.from, query.to, query.wheels);
      ASSERT_EQ(log_.take(), entries("LoadFrequenzaMedia", expected_averages.error));
      if (expected_averages.error == 0) average_ranking = expected_averages.ranking;
      const auto found_averages = averages(!average_ranking.empty());
      ASSERT_EQ(found_averages.cells, expected_averages.cells);
      ASSERT_EQ(found_averages.ranking, average_ranking) << "after an error the one before";
      ++loads;
      failures += expected.error != 0;
      levels += expected.error == 0 && std::get<0>(expected.ranking[5]) > 0;
    }
  }
  EXPECT_GT(loads, 1500 * seeds() / 1000);
  EXPECT_GT(failures, 300 * seeds() / 1000);
  EXPECT_GT(levels, 50 * seeds() / 1000);
}

TEST_P(FrequenciesTest, DatesAreCountedNotDraws) {
  store({{day(2026, 1, 2), 1, "BA", {1, 2, 3, 4, 5}},
         {day(2026, 1, 2), 1, "NA", {1, 2, 3, 4, 6}},
         {day(2026, 1, 6), 2, "NA", {1, 2, 3, 4, 7}},
         {day(2026, 1, 9), 3, "BA", {1, 2, 3, 4, 8}},
         {day(2026, 1, 9), 4, "BA", {1, 2, 3, 4, 9}},
         {day(2026, 1, 13), 5, "RN", {1, 2, 3, 4, 90}}});
  const struct {
    const char* what;
    Variant from, to;
    const char* wheels;
    int16_t number;
    const char* wheel;
    int32_t count;
    float average;
  } rows[] = {
      {"four dates", Missing{}, Missing{}, "", 1, "BA", 3, 75.0F},
      {"either of two wheels: three dates", Missing{}, Missing{}, "BA,NA", 1, "NA", 2, 200.0F / 3},
      {"one wheel: two dates, two contests on one", Missing{}, Missing{}, "BA", 1, "BA", 3, 150.0F},
      {"the period holds for the first wheel only", day(2026, 1, 9), Missing{}, "BA,NA", 1, "BA", 2, 200.0F / 3},
      {"and not for the second", day(2026, 1, 9), Missing{}, "BA,NA", 1, "NA", 2, 200.0F / 3},
      {"both bounds are of the period", day(2026, 1, 6), day(2026, 1, 9), "", 1, "BA", 2, 100.0F},
      {"never came out", Missing{}, Missing{}, "", 90, "BA", 0, 0.0F},
      {"no draws", day(2027, 1, 1), Missing{}, "", 1, "BA", 0, 0.0F},
      {"no date", "x", Missing{}, "", 1, "BA", 0, 0.0F}};
  for (const auto& row : rows) {
    frequency_->LoadFrequenti(row.from, row.to, row.wheels);
    frequency_->LoadFrequenzaMedia(row.from, row.to, row.wheels);
    EXPECT_EQ(frequency_->GetFrqNum(row.number, row.wheel), row.count) << row.what;
    EXPECT_EQ(frequency_->GetFrqNumAVG(row.number, row.wheel), row.average) << row.what;
  }
  EXPECT_EQ(log_.bytes(), "");
}

}  // namespace
}  // namespace conformance
