#include "vestara/distances/number_distances.h"

#include <gtest/gtest.h>

#include "tests/conformance/back_end.h"
#include "tests/support/distance_oracle.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"

namespace conformance {
namespace {

using automation::Missing;
using automation::Variant;
using testing_support::Archive;
using testing_support::day;
using testing_support::DistanceFigures;
using testing_support::DistanceKey;
using testing_support::DistanceQuery;
using Lines = std::vector<std::string>;
using List = std::vector<int32_t>;

class NumberDistancesTest : public BackEnd {
 protected:
  NumberDistancesTest() { distances_.ActiveConnection(connector_); }
  bool load(const DistanceQuery& query) {
    const auto& [from, to, wheels] = query.draws;
    if (query.all_wheels)
      return query.pairs ? distances_.LoadDistanze2AmbiTutte(from, to, query.without_national, query.ascending)
                         : distances_.LoadDistanze1Tutte(from, to, query.without_national, query.ascending);
    return query.pairs ? distances_.LoadDistanze2Ambi(wheels, from, to, query.ascending)
                       : distances_.LoadDistanze1(wheels, from, to, query.ascending);
  }
  List list(const DistanceKey& key) const {
    const auto [wheel, first, second] = key;
    const auto array = second == 0 ? distances_.GetDistanzeSingleNumber(first, wheel)
                                   : distances_.GetDistanzeAmbi(first, second, wheel);
    List result;
    for (const auto& item : array.items()) result.push_back(*item.get_if<int32_t>());
    return result;
  }
  std::tuple<double, double, double> means(const DistanceKey& key) const {
    const auto [wheel, first, second] = key;
    double least = 0, most = 0, mean = 0;
    if (wheel < 0)
      mean = second == 0 ? distances_.GetDistanzeAVG1Tutte(first, least, most)
                         : distances_.GetDistanzeAVG2AmbiTutte(first, second, least, most);
    else
      mean = second == 0 ? distances_.GetDistanzeAVG1(first, wheel, least, most)
                         : distances_.GetDistanzeAVG2Ambi(first, second, wheel, least, most);
    return {mean, least, most};
  }

  void check(const DistanceKey& key, const DistanceFigures& expected);
  void check_all(const DistanceQuery& query, const DistanceFigures& expected);

  testing_support::LogCapture log_;
  vestara::cDistanze2 distances_;
  bool single_checked_ = false;  // one entry a load in the error log will do
};

INSTANTIATE_TEST_SUITE_P(Engines, NumberDistancesTest, engines(), engine_name);

void NumberDistancesTest::check(const DistanceKey& key, const DistanceFigures& expected) {
  const auto [wheel, first, second] = key;
  const auto found = expected.lists.find(key);
  const List none, &wanted = found == expected.lists.end() ? none : found->second;
  ASSERT_EQ(list(key), wanted) << first << " " << second << " on " << wheel;
  if (second == 0 && wheel > 0) {
    const int32_t count = distances_.ItemCount(static_cast<int16_t>(first), static_cast<int16_t>(wheel));
    ASSERT_EQ(count, std::ssize(wanted));
  }
  if (wanted.size() == 1) {
    if (std::exchange(single_checked_, true)) return;
    ASSERT_EQ(means(key), std::tuple(0.0, 0.0, 0.0));
    ASSERT_EQ(log_.take().size(), 1U);
  } else {
    ASSERT_EQ(means(key), wanted.empty() ? std::tuple(-1.0, 0.0, 0.0) : testing_support::means_of(wanted))
        << first << " " << second << " on " << wheel;
  }
}

/// Every number and every pair that there is.
void NumberDistancesTest::check_all(const DistanceQuery& query, const DistanceFigures& expected) {
  for (int32_t wheel = query.all_wheels ? -1 : 1; wheel <= (query.all_wheels ? -1 : 11); ++wheel)
    for (int32_t first = 1; first <= 90; ++first) {
      if (!query.pairs) check({wheel, first, 0}, expected);
      for (int32_t second = std::max(first, 2); query.pairs && first < 90 && second <= 90; ++second)
        check({wheel, first, second}, expected);
      if (HasFatalFailure()) return;
    }
}

DistanceQuery random_query(testing_support::Random& random, const Archive& archive) {
  DistanceQuery query{.draws = testing_support::random_draw_query(random, archive)};
  std::erase(query.draws.wheels, '\'');
  if (random.one_in(3)) query.draws = {Missing{}, Missing{}, ""};
  query.without_national = random.one_in(2);
  return query;
}

TEST_P(NumberDistancesTest, AThousandArchivesAgreeWithTheOracle) {
  size_t lists_seen = 0, failures = 0, long_lists = 0;
  for (uint64_t seed = 1; seed <= seeds() && !HasFailure(); ++seed) {
    testing_support::Random random(seed);
    const Archive archive = testing_support::odd_archive(random);
    store(archive);
    DistanceQuery query = random_query(random, archive);
    for (size_t variety = 0; variety < 8 && !HasFailure(); ++variety) {
      query.all_wheels = variety % 2 != 0;
      query.pairs = variety / 2 % 2 != 0;
      query.ascending = variety / 4 != 0;
      SCOPED_TRACE("seed " + std::to_string(seed) + ", variety " + std::to_string(variety) + ", wheels " +
                   query.draws.wheels + ", from " + testing_support::describe(query.draws.from) + ", to " +
                   testing_support::describe(query.draws.to));
      const auto expected = testing_support::distances_of(archive, query);
      ASSERT_EQ(load(query), expected.error == 0);
      const std::string label = std::string("cDistanze2.LoadDistanze") + (query.pairs ? "2Ambi" : "1") +
                                (query.all_wheels ? "Tutte" : "") + "() ";
      ASSERT_EQ(log_.take(), expected.error == 0 ? Lines{} : Lines{label + std::to_string(expected.error)});
      single_checked_ = false;
      for (const auto& [key, wanted] : expected.lists) {
        check(key, expected);
        long_lists += wanted.size() > 5;
      }
      if (!query.pairs || seed % 50 == 0) check_all(query, expected);
      lists_seen += expected.lists.size();
      failures += expected.error != 0;
    }
  }
  EXPECT_GT(lists_seen, 200000 * seeds() / 1000) << "the archives hold something to compare";
  EXPECT_GT(long_lists, 10000 * seeds() / 1000);
  EXPECT_GT(failures, 300 * seeds() / 1000);
  EXPECT_EQ(log_.bytes(), "");
}

TEST_P(NumberDistancesTest, RowsOfOneDateComeAsTheyWereStored) {
  store({{day(2026, 1, 6), 2, "BA", {1, 2, 3, 4, 5}},
         {day(2026, 1, 2), 1, "BA", {1, 2, 3, 4, 5}},
         {day(2026, 1, 6), 3, "BA", {0, 2, 3, 4, 5}},
         {day(2026, 1, 6), 4, "BA", {1, 2, 3, 4, 5}}});
  EXPECT_FALSE(distances_.LoadDistanze1("BA", Missing{}, Missing{}, false));
  EXPECT_EQ(list({1, 1, 0}), List{0});
  EXPECT_FALSE(distances_.LoadDistanze1("BA", Missing{}, Missing{}, true));
  EXPECT_EQ(list({1, 1, 0}), (List{0, 1}));
  EXPECT_FALSE(distances_.LoadDistanze2AmbiTutte(Missing{}, Missing{}, false, true));
  EXPECT_EQ(list({-1, 1, 2}), (List{1, 1}));
  EXPECT_EQ(log_.take().size(), 3U);
}

TEST_P(NumberDistancesTest, TheNationalWheelIsLeftOut) {
  store({{day(2026, 1, 2), 1, "RN", {1, 2, 3, 4, 5}},
         {day(2026, 1, 6), 2, "BA", {1, 2, 6, 7, 8}},
         {day(2026, 1, 6), 2, "RN", {1, 2, 9, 10, 11}},
         {day(2026, 1, 9), 3, "BA", {1, 2, 12, 13, 14}}});
  EXPECT_TRUE(distances_.LoadDistanze1Tutte(Missing{}, Missing{}, true, true));
  EXPECT_TRUE(distances_.LoadDistanze2AmbiTutte(Missing{}, Missing{}, false, true));
  EXPECT_EQ(list({-1, 1, 0}), (List{1, 1}));
  EXPECT_EQ(list({-1, 9, 0}), List{});
  EXPECT_EQ(list({-1, 1, 2}), (List{1, 1, 0, 1}));
}

}  // namespace
}  // namespace conformance
