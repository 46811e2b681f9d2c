#include "vestara/study/figures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "vestara/draws/loaded_draws.h"
#include "vestara/study/chance/hit_chance.h"

// All figures on six drawings that can be counted by hand.

namespace vestara::study {
namespace {

using Lines = std::vector<std::string>;

/// Bari on days 10, 20, 30 and 40, Cagliari on 20 and 50.
std::shared_ptr<const LoadedDraws> six_drawings() {
  LoadedDraws::ByWheel draws;
  draws[0] = {
      {10, 1, {5, 4, 3, 2, 1}}, {20, 2, {9, 1, 6, 7, 8}}, {30, 3, {10, 11, 12, 13, 14}}, {40, 4, {1, 2, 17, 15, 16}}};
  draws[1] = {{20, std::nullopt, {2, 3, 20, 21, 22}}, {50, 5, {6, 4, 3, 2, 1}}};
  return std::make_shared<const LoadedDraws>(std::move(draws));
}

Selection of(std::initializer_list<int32_t> wheels, DrawPeriod period = {}) {
  Selection selection{{}, period};
  for (const int32_t wheel : wheels) selection.wheels.add(wheel);
  return selection;
}

std::string shown(const std::optional<automation::Date>& date) { return date ? std::to_string(date->day()) : "-"; }

/// "draws times delay last record from to"
std::string counts(const Figures& row) {
  return std::to_string(row.draws) + " " + std::to_string(row.times) + " " + std::to_string(row.delay) + " " +
         shown(row.last) + " " + std::to_string(row.record) + " " + shown(row.record_from) + " " + shown(row.record_to);
}

TEST(NumberFigures, OfEachWheelAndTogether) {
  const auto draws = six_drawings();
  const struct {
    WheelView view;
    size_t place;  ///< among the rows of Bari and Cagliari
    const char* wheel;
    int32_t number;
    const char* counts;
  } rows[] = {{WheelView::each, 0, "BA", 1, "4 3 0 40 1 30 30"},
              {WheelView::each, 1, "BA", 2, "4 2 0 40 2 20 30"},
              {WheelView::each, 2, "BA", 3, "4 1 3 10 3 20 40"},
              {WheelView::each, 89, "BA", 90, "4 0 4 - 4 10 40"},
              {WheelView::each, 90, "CA", 1, "2 1 0 50 1 20 20"},
              {WheelView::each, 91, "CA", 2, "2 2 0 50 0 - -"},
              {WheelView::each, 109, "CA", 20, "2 1 1 20 1 50 50"},
              {WheelView::together, 0, "BA+CA", 1, "5 4 0 50 1 30 30"},
              {WheelView::together, 2, "BA+CA", 3, "5 3 0 50 2 30 40"},
              {WheelView::together, 19, "BA+CA", 20, "5 1 3 20 3 30 50"}};
  for (const auto& row : rows) {
    const auto answer = number_figures(draws, of({1, 2}), row.view);
    ASSERT_EQ(answer.size(), row.view == WheelView::each ? 180U : 90U);
    EXPECT_EQ(answer[row.place].wheel, row.wheel);
    EXPECT_EQ(answer[row.place].number, row.number);
    EXPECT_EQ(counts(answer[row.place].figures), row.counts) << row.wheel << " " << row.number;
  }
  EXPECT_EQ(number_figures(draws, of({1, 2, 3}, {11, 20}), WheelView::each).size(), 180U);
  EXPECT_EQ(number_figures(draws, of({3}), WheelView::each).size(), 0U);
  EXPECT_EQ(number_figures(draws, of({1, 2}, {60, 70}), WheelView::together).size(), 0U);
}

TEST(NumberFigures, ExpectTheWheelsThatWereDrawn) {
  const double p = 5.0 / 90;
  const double on_two = 1 - (1 - p) * (1 - p);
  const auto draws = six_drawings();
  const Figures alone = number_figures(draws, of({1}), WheelView::each)[0].figures;
  EXPECT_DOUBLE_EQ(alone.expected, 4 * p);
  EXPECT_DOUBLE_EQ(*alone.z, (3 - 4 * p) / std::sqrt(4 * p * (1 - p)));
  const Figures together = number_figures(draws, of({1, 2}), WheelView::together)[0].figures;
  EXPECT_DOUBLE_EQ(together.expected, 4 * p + on_two);
  EXPECT_DOUBLE_EQ(*together.z, (4 - 4 * p - on_two) / std::sqrt(4 * p * (1 - p) + on_two * (1 - on_two)));
}

Lines ranked(size_t size, RankedBy by, size_t top, WheelView view = WheelView::each) {
  Lines lines;
  const GroupQuestion question{of({1, 2}), view, size, by, top};
  for (const GroupFigures& row : group_figures(six_drawings(), question))
    lines.push_back(std::to_string(row.rank) + " " + row.wheel + " " + number_text(row.numbers) + ": " +
                    counts(row.figures));
  return lines;
}

TEST(GroupFigures, RankedByEachColumn) {
  const struct {
    size_t size;
    RankedBy by;
    size_t top;
    Lines lines;
  } rows[] = {
      {2, RankedBy::times, 3, {"1 BA 1,2: 4 2 0 40 2 20 30", "1 CA 2,3: 2 2 0 50 0 - -", "3 BA 1,3: 4 1 3 10 3 20 40"}},
      {2, RankedBy::delay, 2, {"1 BA 1,10: 4 0 4 - 4 10 40", "1 BA 1,11: 4 0 4 - 4 10 40"}},
      {2, RankedBy::record, 1, {"1 BA 1,10: 4 0 4 - 4 10 40"}},
      {2, RankedBy::z, 3, {"1 CA 2,3: 2 2 0 50 0 - -", "2 BA 1,2: 4 2 0 40 2 20 30", "3 CA 1,2: 2 1 0 50 1 20 20"}},
      {3, RankedBy::times, 2, {"1 BA 1,2,3: 4 1 3 10 3 20 40", "1 BA 1,2,4: 4 1 3 10 3 20 40"}},
      {4, RankedBy::times, 2, {"1 BA 1,2,3,4: 4 1 3 10 3 20 40", "1 BA 1,2,3,5: 4 1 3 10 3 20 40"}},
      {5,
       RankedBy::record,
       3,
       {"1 BA 1,2,3,4,5: 4 1 3 10 3 20 40", "1 BA 1,2,15,16,17: 4 1 0 40 3 10 30", "3 BA 1,6,7,8,9: 4 1 2 20 2 30 40"}},
      {5,
       RankedBy::delay,
       100,
       {"1 BA 1,2,3,4,5: 4 1 3 10 3 20 40", "2 BA 1,6,7,8,9: 4 1 2 20 2 30 40", "3 BA 10,11,12,13,14: 4 1 1 30 2 10 20",
        "3 CA 2,3,20,21,22: 2 1 1 20 1 50 50", "5 BA 1,2,15,16,17: 4 1 0 40 3 10 30",
        "5 CA 1,2,3,4,6: 2 1 0 50 1 20 20"}},
  };
  for (const auto& row : rows) EXPECT_EQ(ranked(row.size, row.by, row.top), row.lines) << row.size;
  EXPECT_EQ(ranked(2, RankedBy::times, 1, WheelView::together), Lines{"1 BA+CA 1,2: 5 3 0 50 2 20 30"});
  EXPECT_EQ(ranked(2, RankedBy::z, 9000).size(), 8010U);
  EXPECT_EQ(ranked(3, RankedBy::delay, 9000).size(), 9000U);
}

TEST(GroupFigures, OfATopAreTheFirstOfAll) {
  for (const size_t size : {2U, 3U, 4U, 5U})
    for (const RankedBy by : {RankedBy::delay, RankedBy::times, RankedBy::record, RankedBy::z}) {
      const Lines all = ranked(size, by, 1000000);
      for (const size_t top : {1U, 2U, 7U, 40U}) {
        const Lines first(all.begin(), all.begin() + static_cast<ptrdiff_t>(std::min(top, all.size())));
        EXPECT_EQ(ranked(size, by, top), first) << size << " " << top;
      }
    }
}

TEST(SetFigures, CountDrawsWithEnoughHits) {
  const std::vector<NamedNumbers> sets{{"three", {1, 2, 3}}, named_by_its_numbers({20, 90})};
  const struct {
    int32_t hits;
    WheelView view;
    Lines lines;
  } rows[] = {{1,
               WheelView::each,
               {"BA three: 4 3 0 40 1 30 30", "BA 20,90: 4 0 4 - 4 10 40", "CA three: 2 2 0 50 0 - -",
                "CA 20,90: 2 1 1 20 1 50 50"}},
              {2,
               WheelView::each,
               {"BA three: 4 2 0 40 2 20 30", "BA 20,90: 4 0 4 - 4 10 40", "CA three: 2 2 0 50 0 - -",
                "CA 20,90: 2 0 2 - 2 20 50"}},
              {2, WheelView::together, {"BA+CA three: 5 4 0 50 1 30 30", "BA+CA 20,90: 5 0 5 - 5 10 50"}}};
  for (const auto& row : rows) {
    Lines lines;
    for (const SetFigures& found : set_figures(six_drawings(), {of({1, 2}), row.view, sets, row.hits}))
      lines.push_back(found.wheel + " " + found.set.name + ": " + counts(found.figures));
    EXPECT_EQ(lines, row.lines);
  }
  const auto three = set_figures(six_drawings(), {of({1}), WheelView::each, sets, 2}).front().figures;
  EXPECT_DOUBLE_EQ(three.expected, 4 * hit_chance(3, 2));
}

TEST(SetFigures, WhatIsCertainHasNoDeviation) {
  Numbers all;
  for (int32_t number = 1; number <= 90; ++number) all.push_back(static_cast<uint8_t>(number));
  const auto rows = set_figures(six_drawings(), {of({1}), WheelView::each, {{"all", all}}, 5});
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].figures.expected, 4);
  EXPECT_EQ(rows[0].figures.z, std::nullopt);
}

TEST(SetFigures, WhatIsAlmostCertainDeviatesALittle) {
  Numbers almost_all;
  for (int32_t number = 1; number <= 86; ++number) almost_all.push_back(static_cast<uint8_t>(number));
  const auto rows = set_figures(six_drawings(), {of({1}), WheelView::each, {{"86", almost_all}}, 2});
  const double never = 86 / 43949268.0;
  EXPECT_DOUBLE_EQ(*rows.at(0).figures.z, 2 * std::sqrt(never / (1 - never))) << "four draws, all with it";
}

TEST(Gaps, BetweenOccurrencesNewestFirst) {
  const struct {
    GapQuestion question;
    Lines lines;
  } rows[] = {
      {{of({1}), WheelView::each, {1}, 1}, {"BA 40 - 0 -", "BA 20 40 2 20", "BA 10 20 1 10"}},
      {{of({1, 2}), WheelView::each, {2, 3}, 2}, {"BA 10 - 3 -", "CA 50 - 0 -", "CA 20 50 1 30"}},
      {{of({1, 2}), WheelView::together, {2, 3}, 2}, {"BA+CA 50 - 0 -", "BA+CA 20 50 3 30", "BA+CA 10 20 1 10"}},
      {{of({1, 2}), WheelView::together, {2, 3}, 1},
       {"BA+CA 50 - 0 -", "BA+CA 40 50 1 10", "BA+CA 20 40 2 20", "BA+CA 10 20 1 10"}},
      {{of({1}, {15, 35}), WheelView::each, {1}, 1}, {"BA 20 - 1 -"}},
      {{of({1}), WheelView::each, {90}, 1}, {}},
  };
  for (const auto& row : rows) {
    Lines lines;
    for (const Gap& gap : gaps_of(six_drawings(), row.question))
      lines.push_back(gap.wheel + " " + shown(gap.from) + " " + shown(gap.to) + " " + std::to_string(gap.draws) + " " +
                      (gap.days ? std::to_string(*gap.days) : "-"));
    EXPECT_EQ(lines, row.lines);
  }
}

std::string line(const Drawing& drawing) {
  return shown(drawing.date) + " " + (drawing.contest ? std::to_string(*drawing.contest) : "-") + " " +
         std::to_string(drawing.wheel) + " " + number_text({drawing.numbers.begin(), drawing.numbers.end()});
}

TEST(Drawings, OldestFirst) {
  const auto lines = [](const Selection& selection) {
    Lines found;
    for (const Drawing& drawing : drawings(six_drawings(), selection)) found.push_back(line(drawing));
    return found;
  };
  EXPECT_EQ(lines(of({1, 2})), (Lines{"10 1 1 5,4,3,2,1", "20 2 1 9,1,6,7,8", "20 - 2 2,3,20,21,22",
                                      "30 3 1 10,11,12,13,14", "40 4 1 1,2,17,15,16", "50 5 2 6,4,3,2,1"}));
  EXPECT_EQ(lines(of({2}, {30, std::nullopt})), Lines{"50 5 2 6,4,3,2,1"});
  EXPECT_EQ(lines(of({5})), Lines{});
}

TEST(Drawings, SearchedNewestFirst) {
  const auto lines = [](const SearchQuestion& question) {
    Lines found;
    for (const FoundDrawing& row : search_drawings(six_drawings(), question))
      found.push_back(line(row.drawing) + " has " + number_text(row.numbers));
    return found;
  };
  EXPECT_EQ(lines({of({1, 2}), {1, 2, 3}, 2}), (Lines{"50 5 2 6,4,3,2,1 has 1,2,3", "40 4 1 1,2,17,15,16 has 1,2",
                                                      "20 - 2 2,3,20,21,22 has 2,3", "10 1 1 5,4,3,2,1 has 1,2,3"}));
  EXPECT_EQ(lines({of({1, 2}, {20, 20}), {1, 2}, 1}), (Lines{"20 2 1 9,1,6,7,8 has 1", "20 - 2 2,3,20,21,22 has 2"}));
  EXPECT_EQ(lines({of({1, 2}), {88, 89}, 1}), Lines{});
}

}  // namespace
}  // namespace vestara::study
