#include "vestara/systems/integral.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "automation/yield.h"
#include "tests/support/events.h"
#include "tests/support/late_bound_test.h"
#include "tests/support/values.h"
#include "vestara/systems/systems.h"

namespace vestara {
namespace {

using automation::Variant;
using testing_support::error_of;
using testing_support::ImpatientHost;
using Calls = std::vector<std::string>;

// The labels as the log has always shown them: another class, a slip, a blank behind.
constexpr const char* no_room = "cStatistiche.CombinazioniStrBit()  9";
constexpr const char* no_factorial = "cStatustiche.ContaCombinazioniIntegrali() 6";

class IntegralTest : public testing_support::LateBoundTest<cSistemi> {
 protected:
  cSistemi& systems_ = object_;
};

/// "1,2,…,n".
std::string numbers_to(int32_t count) {
  std::string list;
  for (int32_t i = 1; i <= count; ++i) list += (i == 1 ? "" : ",") + std::to_string(i);
  return list;
}

/// Takes each item in turn, then chooses the rest behind it. `before` ends in a comma, or is empty.
void choose(std::span<const std::string_view> items, size_t chosen, const std::string& before, Calls& lines) {
  for (size_t i = 0; i < items.size(); ++i) {
    const std::string line = before + std::string(items[i]);
    if (chosen == 1)
      lines.push_back(line);
    else
      choose(items.subspan(i + 1), chosen - 1, line + ",", lines);
  }
}

TEST_F(IntegralTest, Counts) {
  const struct {
    int16_t items, chosen;
    double expected;
    Calls log;
  } rows[] = {{90, 2, 4005, {}},
              {90, 5, 43949268, {}},
              {90, 1, 90, {}},
              {12, 12, 1, {}},
              {1, 1, 1, {}},
              {5, 6, 0, {}},
              {0, 1, 0, {}},
              {0, 12, 0, {}},
              {10, 0, 0, {}},
              {0, 0, 0, {}},
              {10, -1, 0, {}},
              {10, -32768, 0, {}},
              {-5, 1, -5, {}},
              {-5, 2, 15, {}},
              {-1, 3, -1, {}},
              {-32768, 0, 0, {}},
              {32767, 1, 32767, {}},
              {32767, 2, 536821761, {}},
              {20, 13, 0, {no_factorial}},
              {90, 13, 0, {no_factorial}},
              {13, 13, 0, {no_factorial}},
              {5, 13, 0, {no_factorial}},
              {90, 90, 0, {no_factorial}},
              {90, 32767, 0, {no_factorial}},
              {-32768, 1, 0, {no_factorial}},  // one below does not fit 16 bits either
              {-32767, 2, 0, {no_factorial}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::to_string(row.chosen) + " of " + std::to_string(row.items));
    EXPECT_EQ(systems_.ContaCombinazioniIntegrali(row.items, row.chosen), row.expected);
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_EQ(error_of([&] { integral_count(row.items, row.chosen); }), row.log.empty() ? 0 : 6);
  }
}

// Pascal's triangle is exact here. The product is exact as long as it fits the 53 bits of a double.
TEST_F(IntegralTest, CountsAreExactAsFarAsADoubleIs) {
  std::vector<std::vector<uint64_t>> triangle(91, std::vector<uint64_t>(13, 0));
  for (size_t n = 0; n <= 90; ++n) {
    triangle[n][0] = 1;
    for (size_t k = 1; k <= 12 && n > 0; ++k) triangle[n][k] = triangle[n - 1][k - 1] + triangle[n - 1][k];
    long double product = 1;
    for (size_t k = 1; k <= 12; ++k) {
      SCOPED_TRACE(std::to_string(k) + " of " + std::to_string(n));
      product *= k <= n ? static_cast<long double>(n - k + 1) : 0;
      const auto expected = static_cast<double>(triangle[n][k]);
      const double count = systems_.ContaCombinazioniIntegrali(static_cast<int16_t>(n), static_cast<int16_t>(k));
      if (product <= std::ldexp(1.0L, 53))
        EXPECT_EQ(count, expected);
      else
        EXPECT_NEAR(count / expected, 1, 1e-15);
    }
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(IntegralTest, LinesInOrder) {
  const std::vector<std::string_view> items = {"7", "3", "90", "3", "x", " 5", "", "12", "1", "44", "2", "81"};
  for (size_t n = 1; n <= items.size(); ++n) {
    for (size_t k = 1; k <= n; ++k) {
      const std::span chosen_from(items.data(), n);
      Calls expected;
      choose(chosen_from, k, "", expected);
      const auto count = static_cast<int32_t>(expected.size());
      const std::string text = integral_lines(chosen_from, static_cast<int16_t>(k), count);
      std::string joined;
      for (const auto& line : expected) joined += (&line == &expected[0] ? "" : "\r\n") + line;
      ASSERT_EQ(text, joined) << k << " of " << n;
    }
  }
}

TEST_F(IntegralTest, CombinationsOfAList) {
  const struct {
    const char* what;
    std::string numbers;
    int16_t chosen;
    std::string expected;
    int32_t count;
    Calls log;
  } rows[] = {
      {"four", "5,7,9,11", 3, "5,7,9\r\n5,7,11\r\n5,9,11\r\n7,9,11", 4, {}},
      {"three", "1,2,3", 2, "1,2\r\n1,3\r\n2,3", 3, {}},
      {"singles", "1,2,3", 1, "1\r\n2\r\n3", 3, {}},
      {"the whole list", "3,1,2", 3, "3,1,2", 1, {}},
      {"one", "7", 1, "7", 1, {}},
      {"never sorted", "9,1,5", 2, "9,1\r\n9,5\r\n1,5", 3, {}},
      {"duplicates", "5,5,7", 2, "5,5\r\n5,7\r\n5,7", 3, {}},
      {"blanks stay", "1, 2,3 ", 2, "1, 2\r\n1,3 \r\n 2,3 ", 3, {}},
      {"anything is an item", "a;b,é\r\n,-1", 2, "a;b,é\r\n\r\na;b,-1\r\né\r\n,-1", 3, {}},
      {"empty items", ",", 2, ",", 1, {}},
      {"empty lines", ",", 1, "\r\n", 2, {}},
      {"one line of blanks", "  ", 1, "  ", 1, {}},
      {"twelve of twelve", numbers_to(12), 12, numbers_to(12), 1, {}},
      {"none to choose", "1,2,3", 0, "", 0, {no_room}},
      {"fewer than none", "1,2,3", -1, "", 0, {no_room}},
      {"far fewer than none", "1,2,3", -32768, "", 0, {no_room}},
      {"more than there are", "1,2,3", 4, "", 0, {no_room}},
      {"empty list", "", 1, "", 0, {no_room}},
      {"empty list, none", "", 0, "", 0, {no_room}},
      {"thirteen", numbers_to(20), 13, "", 0, {no_factorial, no_room}},
      {"thirteen of thirteen", numbers_to(13), 13, "", 0, {no_factorial, no_room}},
      {"thirteen of three", "1,2,3", 13, "", 0, {no_factorial, no_room}},
      {"many", "1,2,3", 32767, "", 0, {no_factorial, no_room}},
      {"beyond 32 bits", numbers_to(90), 12, "", 0, {"cStatistiche.CombinazioniStrBit()  6"}},
      {"just beyond 32 bits", numbers_to(40), 11, "", 0, {"cStatistiche.CombinazioniStrBit()  6"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    int32_t count = 77;
    EXPECT_EQ(systems_.CombinazioniIntegraliString(row.numbers, row.chosen, count), row.expected);
    EXPECT_EQ(count, row.count);
    EXPECT_EQ(log_.take(), row.log);
  }
}

TEST_F(IntegralTest, ThirtyTwoAndThirtyThreeNumbers) {
  for (const int32_t n : {31, 32, 33, 90}) {
    SCOPED_TRACE(n);
    const std::string list = numbers_to(n);
    std::string expected;
    for (int32_t i = 1; i <= n; ++i)
      for (int32_t j = i + 1; j <= n; ++j)
        expected += (expected.empty() ? "" : "\r\n") + std::to_string(i) + "," + std::to_string(j);
    int32_t count = 0;
    EXPECT_EQ(systems_.CombinazioniIntegraliString(list, 2, count), expected);
    EXPECT_EQ(count, n * (n - 1) / 2);
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(IntegralTest, Masks) {
  EXPECT_EQ(integral_masks(3, 2), (std::vector<uint32_t>{0b011, 0b101, 0b110}));
  EXPECT_EQ(integral_masks(4, 3), (std::vector<uint32_t>{0b0111, 0b1011, 0b1101, 0b1110}));
  EXPECT_EQ(integral_masks(1, 1), std::vector<uint32_t>{1});
  const auto singles = integral_masks(32, 1);
  ASSERT_EQ(singles.size(), 32U);
  for (size_t i = 0; i < 32; ++i) EXPECT_EQ(singles[i], uint32_t{1} << i);
  const auto pairs = integral_masks(32, 2);
  EXPECT_EQ(pairs.size(), 496U);
  EXPECT_EQ(pairs.front(), 3U);
  EXPECT_EQ(pairs[30], 0x80000001U) << "the sign bit stands for the last of 32";
  EXPECT_EQ(pairs.back(), 0xC0000000U);
  for (const uint32_t mask : integral_masks(20, 5)) EXPECT_EQ(std::popcount(mask), 5);
  EXPECT_EQ(error_of([] { integral_masks(33, 1); }), 9);
  EXPECT_EQ(error_of([] { integral_masks(90, 2); }), 9);
}

TEST_F(IntegralTest, MorePiecesThanSixteenBitsCount) {
  const std::string most(32766, ',');  // 32,767 empty pieces
  int32_t count = 77;
  EXPECT_EQ(systems_.CombinazioniIntegraliString(numbers_to(32767), 1, count).size(), numbers_to(32767).size() + 32766);
  EXPECT_EQ(count, 32767);
  systems_.CombinazioniIntegraliString(most, 1, count);
  EXPECT_EQ(count, 32767);
  EXPECT_EQ(log_.bytes(), "");
  EXPECT_EQ(systems_.CombinazioniIntegraliString(most + ",", 1, count), "");
  EXPECT_EQ(log_.take(), Calls{"cStatistiche.CombinazioniIntegraliString() 6"});
}

TEST_F(IntegralTest, YieldsOnceALine) {
  const struct {
    int32_t items;
    int16_t chosen;
    int32_t yields;
  } rows[] = {{3, 2, 3}, {1, 1, 1}, {10, 5, 252}, {3, 0, 0}, {3, 4, 0}};
  for (const auto& row : rows) {
    const ImpatientHost host(1000, 0);
    systems_.CombinazioniIntegraliString(numbers_to(row.items), row.chosen);
    EXPECT_EQ(host.yields(), row.yields);
  }
}

TEST_F(IntegralTest, AHostMayEndTheListing) {
  int32_t count = 77;
  {
    const ImpatientHost host(5, 1234);
    EXPECT_EQ(systems_.CombinazioniIntegraliString(numbers_to(20), 10, count), "");
    EXPECT_EQ(host.yields(), 6);
  }
  EXPECT_EQ(log_.take(), Calls{"cStatistiche.CombinazioniIntegraliString() 1234"});
  EXPECT_EQ(count, 184756) << "was known before the first line";
  EXPECT_EQ(systems_.CombinazioniIntegraliString("1,2", 2, count), "1,2");
}

// A yield hands the thread to the host, which may call the same object again.
TEST_F(IntegralTest, AHostMayListWhileAListingYields) {
  std::string inner;
  automation::set_yield_hook([&] {
    automation::set_yield_hook({});
    inner = systems_.CombinazioniIntegraliString("7,8,9", 2);
  });
  EXPECT_EQ(systems_.CombinazioniIntegraliString("1,2,3", 2), "1,2\r\n1,3\r\n2,3");
  EXPECT_EQ(inner, "7,8\r\n7,9\r\n8,9");
}

TEST_F(IntegralTest, LateBoundCallsWriteTheCountBackAndNothingElse) {
  const struct {
    std::vector<Variant> arguments;
    std::vector<std::string_view> names;
    const char* expected;
    std::vector<Variant> left;
  } rows[] = {{{"1,2,3", 2, 0}, {}, "text 1,2\r\n1,3\r\n2,3", {"1,2,3", 2, 3}},
              {{"1,2,3", "2", "5"}, {}, "text 1,2\r\n1,3\r\n2,3", {"1,2,3", "2", 3}},
              {{"1,2,3", 2}, {}, "text 1,2\r\n1,3\r\n2,3", {"1,2,3", 2}},
              {{12, 1, automation::Empty{}}, {}, "text 12", {12, 1, 1}},
              {{9, 3, "1,2,3"}, {"nCombi", "iNumeroElementi", "sNumeri"}, "text 1,2,3", {1, 3, "1,2,3"}},
              {{"1,2,3", 0, 7}, {}, "text ", {"1,2,3", 0, 0}},
              {{"1,2,3", 70000, 7}, {}, "error 6", {"1,2,3", 70000, 7}},
              {{"1,2,3"}, {}, "error 449", {"1,2,3"}}};
  for (const auto& row : rows) {
    EXPECT_EQ(call("CombinazioniIntegraliString", row.arguments, row.names), row.expected);
    EXPECT_EQ(given_, row.left);
  }
  EXPECT_EQ(log_.take(), Calls{no_room}) << "none to choose";
  EXPECT_EQ(call("ContaCombinazioniIntegrali", {"90", 2}), "Double 4005");
  EXPECT_EQ(call("ContaCombinazioniIntegrali", {2, 90}, {"nComb", "nCifre"}), "Double 4005");
  EXPECT_EQ(call("ContaCombinazioniIntegrali", {20, 13}), "Double 0");
  EXPECT_EQ(log_.take(), Calls{no_factorial});
  EXPECT_EQ(call("ContaCombinazioniIntegrali", {40000, 2}), "error 6");
  EXPECT_EQ(call("ContaCombinazioniIntegrali", {90}), "error 449");
}

}  // namespace
}  // namespace vestara
