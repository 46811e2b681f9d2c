#include "vestara/draws/draw_sequence.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vestara {
namespace {

std::shared_ptr<const LoadedDraws> loaded(LoadedDraws::ByWheel draws) {
  return std::make_shared<const LoadedDraws>(std::move(draws));
}

/// Bari on days 10, 20, 20 and 30, Cagliari on 20 and 25, the national wheel on 40. The first number tells the row.
LoadedDraws::ByWheel few() {
  LoadedDraws::ByWheel draws;
  draws[0] = {{30, 4, {4, 6, 7, 8, 9}},
              {20, 3, {3, 6, 7, 8, 9}},
              {20, std::nullopt, {2, 6, 7, 8, 9}},
              {10, 1, {1, 6, 7, 8, 9}}};
  draws[1] = {{20, 3, {21, 6, 7, 8, 9}}, {25, 3, {22, 6, 7, 8, 9}}};
  draws[10] = {{40, 5, {90, 64, 65, 1, 89}}};
  return draws;
}

WheelSet wheels(std::initializer_list<int32_t> given) {
  WheelSet set;
  for (const int32_t wheel : given) set.add(wheel);
  return set;
}

/// "draw:day:first number" of every row, in the order of the walk.
std::vector<std::string> rows_of(const DrawSequence& sequence) {
  std::vector<std::string> rows;
  sequence.each_row([&](int32_t draw, size_t row) {
    EXPECT_EQ(sequence.day(draw), sequence.loaded().day(row));
    rows.push_back(std::to_string(draw) + ":" + std::to_string(sequence.day(draw)) + ":" +
                   std::to_string(sequence.loaded().numbers(row)[0]));
  });
  return rows;
}

using Rows = std::vector<std::string>;

TEST(LoadedDraws, StandByWheelDateAndContest) {
  const LoadedDraws draws{few()};
  ASSERT_EQ(draws.rows(), 7U);
  const std::vector<uint8_t> firsts{1, 2, 3, 4, 21, 22, 90};
  for (size_t row = 0; row < firsts.size(); ++row) EXPECT_EQ(draws.numbers(row)[0], firsts[row]);
  EXPECT_EQ(draws.contest(0), 1);
  EXPECT_EQ(draws.contest(1), std::nullopt);
  EXPECT_EQ(draws.numbers(6), (DrawnNumbers{90, 64, 65, 1, 89}));
  for (const int32_t number : {1, 64, 65, 89, 90}) EXPECT_TRUE(draws.mask(6).contains(number));
  EXPECT_EQ(draws.mask(6).count(), 5);
}

TEST(DrawSequence, OfOneWheel) {
  const auto draws = loaded(few());
  const struct {
    int32_t wheel;
    DrawPeriod period;
    Rows rows;
  } rows[] = {{1, {}, {"0:10:1", "1:20:2", "2:20:3", "3:30:4"}},
              {1, {20, 20}, {"0:20:2", "1:20:3"}},
              {1, {11, 29}, {"0:20:2", "1:20:3"}},
              {1, {std::nullopt, 10}, {"0:10:1"}},
              {1, {31, std::nullopt}, {}},
              {2, {}, {"0:20:21", "1:25:22"}},
              {3, {}, {}},
              {11, {40, 40}, {"0:40:90"}}};
  for (const auto& row : rows) {
    const auto sequence = DrawSequence::of_wheel(draws, row.wheel, row.period);
    EXPECT_EQ(rows_of(sequence), row.rows);
    EXPECT_EQ(sequence.draws(), static_cast<int32_t>(row.rows.size()));
    EXPECT_EQ(sequence.draws_by_wheels()[1], sequence.draws());
  }
}

TEST(DrawSequence, OfDates) {
  const auto draws = loaded(few());
  const struct {
    WheelSet wheels;
    DrawPeriod period;
    Rows rows;
    int32_t of_one, of_two;  ///< dates with one wheel, with two
  } rows[] = {
      {wheels({1, 2}), {}, {"0:10:1", "1:20:2", "1:20:3", "1:20:21", "2:25:22", "3:30:4"}, 3, 1},
      {wheels({2, 11}), {}, {"0:20:21", "1:25:22", "2:40:90"}, 3, 0},
      {wheels({1}), {}, {"0:10:1", "1:20:2", "1:20:3", "2:30:4"}, 3, 0},
      {wheels({1, 2}), {20, 25}, {"0:20:2", "0:20:3", "0:20:21", "1:25:22"}, 1, 1},
      {wheels({3}), {}, {}, 0, 0},
  };
  for (const auto& row : rows) {
    const auto sequence = DrawSequence::of_dates(draws, row.wheels, row.period);
    EXPECT_EQ(rows_of(sequence), row.rows);
    EXPECT_EQ(sequence.draws_by_wheels()[1], row.of_one);
    EXPECT_EQ(sequence.draws_by_wheels()[2], row.of_two);
    EXPECT_EQ(sequence.name(), row.wheels.name());
  }
}

TEST(DrawSequence, WheelsWithoutADrawAreLeftOut) {
  const auto names = [&](const WheelSet& set, const DrawPeriod& period, WheelView view) {
    std::string joined;
    for (const auto& sequence : draw_sequences(loaded(few()), set, period, view)) joined += sequence.name() + " ";
    return joined;
  };
  EXPECT_EQ(names(WheelSet::all(), {}, WheelView::each), "BA CA RN ");
  EXPECT_EQ(names(wheels({11, 1, 5}), {}, WheelView::each), "BA RN ");
  EXPECT_EQ(names(WheelSet::all(), {40, 40}, WheelView::each), "RN ");
  EXPECT_EQ(names(WheelSet::all(), {}, WheelView::together), "all ");
  EXPECT_EQ(names(WheelSet::all(), {41, 50}, WheelView::together), "");
}

}  // namespace
}  // namespace vestara
