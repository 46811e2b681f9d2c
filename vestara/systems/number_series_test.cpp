#include "vestara/systems/number_series.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>

#include "automation/coercion.h"
#include "tests/support/events.h"
#include "tests/support/log_capture.h"
#include "tests/support/random.h"
#include "tests/support/values.h"
#include "vestara/systems/systems.h"

namespace vestara {
namespace {

using automation::Array;
using automation::Empty;
using automation::InvokeKind;
using automation::Null;
using automation::Variant;
using automation::VariantKind;
using testing_support::describe;
using testing_support::error_of;
using testing_support::ImpatientHost;
using testing_support::outcome;
using Values = std::vector<Variant>;

constexpr int32_t smallest = std::numeric_limits<int32_t>::min();
constexpr int32_t largest = std::numeric_limits<int32_t>::max();

class NumberSeriesTest : public testing::Test {
 protected:
  std::vector<int32_t> series(int32_t count, int32_t least, int32_t most, bool repeat = false) {
    Array array;
    systems_.GetRndNumber(array, count, least, most, repeat);
    EXPECT_EQ(array.element(), VariantKind::long_integer);
    EXPECT_EQ(array.bounds(), (std::vector<Array::Bound>{{0, count}}));
    std::vector<int32_t> numbers;
    for (const auto& item : array.items()) numbers.push_back(automation::to_long(item));
    return numbers;
  }
  std::string call(std::string_view member, Values arguments, const std::vector<std::string_view>& names = {}) {
    given_ = std::move(arguments);
    return outcome([&] { return systems_.call(member, InvokeKind::method, given_, names); });
  }

  testing_support::LogCapture log_;
  cSistemi systems_;
  Values given_;  // as the last late-bound call left them
};

/// How far counts of equally likely outcomes are from equal: near their number, rarely beyond twice as much.
double chi_square(const std::vector<int32_t>& counts) {
  double total = 0;
  for (const int32_t count : counts) total += count;
  const double expected = total / static_cast<double>(counts.size());
  double sum = 0;
  for (const int32_t count : counts) sum += (count - expected) * (count - expected) / expected;
  return sum;
}

TEST_F(NumberSeriesTest, NumbersLieInTheRangeAndAreDistinctUnlessTheyMayRepeat) {
  const struct {
    int32_t count, least, most;
    bool repeat;
  } rows[] = {{1, 1, 90, false},
              {5, 1, 90, false},
              {89, 1, 90, false},
              {90, 1, 90, false},
              {11, -5, 5, false},
              {3, largest - 2, largest, false},
              {3, smallest, smallest + 2, false},
              {1, 7, 7, false},
              {3, 7, 7, true},
              {500, 1, 90, true},
              {100, -1, 1, true},
              {5000, -2500, 2499, false},
              {20, 1, 1000000, false}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::to_string(row.count) + " of " + std::to_string(row.least) + " to " + std::to_string(row.most));
    for (int turn = 0; turn < 20; ++turn) {
      const auto numbers = series(row.count, row.least, row.most, row.repeat);
      ASSERT_EQ(numbers.size(), static_cast<size_t>(row.count));
      EXPECT_GE(std::ranges::min(numbers), row.least);
      EXPECT_LE(std::ranges::max(numbers), row.most);
      if (!row.repeat) {
        EXPECT_EQ(std::set(numbers.begin(), numbers.end()).size(), numbers.size());
      }
    }
  }
}

TEST_F(NumberSeriesTest, EqualBoundsRepeatTheirNumber) {
  EXPECT_EQ(series(3, 7, 7, true), (std::vector<int32_t>{7, 7, 7}));
  EXPECT_EQ(series(1, -7, -7), (std::vector<int32_t>{-7}));
}

TEST_F(NumberSeriesTest, TheLargestRangeIsAllowed) {
  const int32_t last = (1 << 30) - 1;
  for (const int32_t least : {0, -last, smallest}) EXPECT_EQ(series(5, least, least + last, true).size(), 5U) << least;
}

TEST_F(NumberSeriesTest, RepetitionDoesHappen) {
  const auto numbers = series(91, 1, 90, true);
  EXPECT_LT(std::set(numbers.begin(), numbers.end()).size(), numbers.size());
}

// With 89 degrees of freedom the bounds are some eight standard deviations away.
TEST_F(NumberSeriesTest, EveryNumberIsAsLikelyAsEveryOther) {
  const struct {
    const char* what;
    int32_t calls, count;
    bool repeat;
  } rows[] = {{"a long series", 20, 1000, true},
              {"the first number of many calls", 5000, 1, true},
              {"draws of five", 4000, 5, false}};
  for (const auto& row : rows) {
    std::vector<int32_t> counts(90, 0);
    for (int32_t turn = 0; turn < row.calls; ++turn)
      for (const int32_t number : series(row.count, 1, 90, row.repeat)) ++counts[static_cast<size_t>(number - 1)];
    EXPECT_LT(chi_square(counts), 200) << row.what;
    EXPECT_GT(chi_square(counts), 25) << row.what;
    EXPECT_GT(std::ranges::min(counts), 0) << row.what;
  }
}

TEST_F(NumberSeriesTest, OrderOfAFullSeriesIsRandomToo) {
  std::vector<int32_t> places(90, 0);  // where the number 1 stands
  for (int turn = 0; turn < 2000; ++turn) {
    const auto numbers = series(90, 1, 90);
    ++places[static_cast<size_t>(std::ranges::find(numbers, 1) - numbers.begin())];
  }
  EXPECT_LT(chi_square(places), 200);
}

TEST_F(NumberSeriesTest, TwoCallsInARowDiffer) {
  std::set<std::vector<int32_t>> seen;
  for (int turn = 0; turn < 200; ++turn) EXPECT_TRUE(seen.insert(series(20, 1, 1000000, true)).second);
}

TEST_F(NumberSeriesTest, ErrorsReachTheCallerWithoutAnEntry) {
  const struct {
    int32_t count, least, most;
    bool repeat;
    int32_t error;
  } rows[] = {{0, 1, 90, false, 9},
              {0, 1, 90, true, 9},
              {-1, 1, 90, true, 9},
              {smallest, 1, 90, true, 9},
              {1, 2, 1, false, 9},
              {1, 2, 1, true, 9},
              {1, largest, smallest, true, 9},
              {most_random_numbers + 1, 1, 90, true, 7},
              {largest, 1, largest, false, 7},
              {1, 0, 1 << 30, false, 7},
              {1, 0, 1 << 30, true, 7},
              {1, smallest, largest, false, 7}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::to_string(row.count) + " of " + std::to_string(row.least) + " to " + std::to_string(row.most));
    Array array;
    EXPECT_EQ(error_of([&] { systems_.GetRndNumber(array, row.count, row.least, row.most, row.repeat); }), row.error);
    const Values late{Array(VariantKind::long_integer, 0, {1, 2}), row.count, row.least, row.most, row.repeat};
    EXPECT_EQ(call("GetRndNumber", late), "error " + std::to_string(row.error));
    EXPECT_EQ(given_, late);
  }
  EXPECT_EQ(log_.bytes(), "");
}

// More numbers than there are: the loop would never end, but the host can end it.
TEST_F(NumberSeriesTest, AHostMayEndTheSeriesThatNeverEnds) {
  const struct {
    int32_t count, least, most;
  } rows[] = {{91, 1, 90}, {2, 7, 7}, {4, smallest, smallest + 2}, {4, largest - 2, largest}};
  for (const auto& row : rows) {
    ImpatientHost host(20000, 1234);
    Array array;
    EXPECT_EQ(error_of([&] { systems_.GetRndNumber(array, row.count, row.least, row.most, false); }), 1234);
    EXPECT_EQ(host.yields(), 20001);
  }
  EXPECT_EQ(log_.bytes(), "");
  EXPECT_EQ(series(3, 7, 7, true), (std::vector<int32_t>{7, 7, 7}));
}

TEST_F(NumberSeriesTest, YieldsAtEachTurn) {
  const ImpatientHost host(1000, 1234);
  series(50, 7, 7, true);
  EXPECT_EQ(host.yields(), 50);
  series(1, 1, 90);
  EXPECT_EQ(host.yields(), 51);
  series(20, 1, 20);
  EXPECT_GE(host.yields(), 71);
}

TEST_F(NumberSeriesTest, LateBoundSeriesComesBackInTheCallersVariable) {
  const struct {
    Values arguments;
    std::vector<std::string_view> names;
    size_t place;
    const char* after;
  } rows[] = {
      {{Empty{}, 3, 7, 7, true}, {}, 0, "Array [Long 7] [Long 7] [Long 7]"},
      {{Array(), 2, 7, 7, true}, {}, 0, "Array [Long 7] [Long 7]"},
      {{Array(VariantKind::text, 5, {"a", "b", "c"}), "1", "-7", -7.0, false}, {}, 0, "Array [Long -7]"},
      {{Array(VariantKind::empty, {{1, 2}, {1, 2}}), 1, 0, 0, 0}, {}, 0, "Array [Long 0]"},
      {{true, 7, 7, 2, Empty{}}, {"bRepeat", "maxNum", "minNum", "kNum", "serieOUT"}, 4, "Array [Long 7] [Long 7]"}};
  for (const auto& row : rows) {
    EXPECT_EQ(call("GetRndNumber", row.arguments, row.names), "Empty");
    EXPECT_EQ(describe(given_[row.place]), row.after);
  }
  EXPECT_EQ(call("GetRndNumber", {5, 3, 7, 7, true}), "error 13");
  EXPECT_EQ(call("GetRndNumber", {"5", 3, 7, 7, true}), "error 13");
  EXPECT_EQ(call("GetRndNumber", {Empty{}, 3, 7, 7}), "error 449");
  EXPECT_EQ(call("GetRndNumber", {Empty{}, "x", 7, 7, true}), "error 13");
}

TEST_F(NumberSeriesTest, SortsByNumberAndKeepsTheOrderOfEqualOnes) {
  const struct {
    Values given, expected;
  } rows[] = {{{5, 3, 9, 3}, {3, 3, 5, 9}},
              {{5}, {5}},
              {{2, 1}, {1, 2}},
              {{1, 2, 3}, {1, 2, 3}},
              {{3, 2, 1}, {1, 2, 3}},
              {{}, {}},
              {{"10", "9", "100", "1"}, {"1", "9", "10", "100"}},
              {{"10", 9, 1.0, int16_t{2}}, {1.0, int16_t{2}, 9, "10"}},
              {{"2", 2, 2.0, "02", "1"}, {"1", "2", 2, 2.0, "02"}},
              {{2.5, 2, 3.5, 3, 1.5}, {2.5, 2, 1.5, 3, 3.5}},
              {{" 3", "-4 ", "+1"}, {"-4 ", "+1", " 3"}},
              {{0, true, false, -2}, {-2, true, 0, false}},
              {{1, Empty{}, -1}, {-1, Empty{}, 1}},
              {{largest, 0, smallest}, {smallest, 0, largest}},
              {{"word"}, {"word"}},
              {{Null{}}, {Null{}}}};
  for (const auto& row : rows) {
    Variant array(Array(VariantKind::empty, 0, row.given));
    systems_.ArrNumbersSort(array);
    EXPECT_EQ(array, Variant(Array(VariantKind::empty, 0, row.expected)));
  }
}

TEST_F(NumberSeriesTest, BoundsAndDeclaredKindStay) {
  for (const int32_t lower : {-3, 0, 1, 100}) {
    Variant array(Array(VariantKind::long_integer, lower, {5, 3, 9, 3}));
    systems_.ArrNumbersSort(array);
    EXPECT_EQ(array, Variant(Array(VariantKind::long_integer, lower, {3, 3, 5, 9})));
  }
}

TEST_F(NumberSeriesTest, WhatWasExchangedBeforeAFailureStays) {
  const auto of = [](Values items) { return Variant(Array(VariantKind::empty, 0, std::move(items))); };
  const struct {
    Variant given;
    int32_t error;
    Variant left;
  } rows[] = {{of({3, 2, "word"}), 13, of({2, 3, "word"})},
              {of({9, 1, 5, 2, "word", 7, 3}), 13, of({1, 5, 2, 9, "word", 7, 3})},
              {of({1, 2, "word", 0}), 13, of({1, 2, "word", 0})},
              {of({"word", 1}), 13, of({"word", 1})},
              {of({2, 1, ""}), 13, of({1, 2, ""})},
              {of({2, 1, "1,5"}), 13, of({1, 2, "1,5"})},
              {of({2, 1, Null{}}), 94, of({1, 2, Null{}})},
              {of({Null{}, "word"}), 94, of({Null{}, "word"})},
              {of({2, 1, 3e9}), 6, of({1, 2, 3e9})},
              {of({2, 1, "-99999999999"}), 6, of({1, 2, "-99999999999"})},
              {of({2, 1, of({0})}), 13, of({1, 2, of({0})})},
              {5, 13, 5},
              {"3,2,1", 13, "3,2,1"},
              {Empty{}, 13, Empty{}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(describe(row.given));
    Variant array = row.given;
    EXPECT_EQ(error_of([&] { systems_.ArrNumbersSort(array); }), row.error);
    EXPECT_EQ(array, row.left);
    EXPECT_EQ(call("ArrNumbersSort", {row.given}), "error " + std::to_string(row.error));
    EXPECT_EQ(given_[0], row.left);
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(NumberSeriesTest, TwoDimensionsCannotBeSorted) {
  Array grid(VariantKind::empty, {{0, 2}, {0, 2}});
  for (size_t i = 0; i < 4; ++i) grid.items()[i] = Variant(static_cast<int32_t>(4 - i));
  Variant array = grid;
  EXPECT_EQ(error_of([&] { systems_.ArrNumbersSort(array); }), 9);
  EXPECT_EQ(array, Variant(grid));
}

TEST_F(NumberSeriesTest, SortsAsAnObviousStableSortDoes) {
  testing_support::Random random(71);
  for (int turn = 0; turn < 200; ++turn) {
    Values items(random.below(turn < 199 ? 40 : 20000));
    for (auto& item : items) {
      const auto number = static_cast<int32_t>(random.below(60)) - 30;
      item = random.one_in(2) ? Variant(number) : Variant(std::to_string(number));
    }
    Variant array(Array(VariantKind::empty, 0, items));
    systems_.ArrNumbersSort(array);
    std::ranges::stable_sort(items, {}, automation::to_long);
    ASSERT_TRUE(array == Variant(Array(VariantKind::empty, 0, items))) << turn;
  }
}

TEST_F(NumberSeriesTest, LateBoundSort) {
  EXPECT_EQ(call("arrnumberssort", {Array(VariantKind::text, 1, {"5", "3", "9", "3"})}), "Empty");
  EXPECT_EQ(given_[0], Variant(Array(VariantKind::text, 1, {"3", "3", "5", "9"})));
  EXPECT_EQ(call("ArrNumbersSort", {Array(VariantKind::empty, 0, {2, 1})}, {"pvarArray"}), "Empty");
  EXPECT_EQ(describe(given_[0]), "Array [Long 1] [Long 2]");
  for (const Variant& wrong : {Variant(1), Variant("a"), Variant(Null{})}) {
    EXPECT_EQ(call("ArrNumbersSort", {wrong}), "error 13") << describe(wrong);
    EXPECT_EQ(given_[0], wrong);
  }
  EXPECT_EQ(call("ArrNumbersSort", {}), "error 449");
}

}  // namespace
}  // namespace vestara
