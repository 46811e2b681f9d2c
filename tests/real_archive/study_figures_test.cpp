#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "tests/real_archive/real_archive.h"
#include "tests/support/values.h"
#include "vestara/draws/archive_draws.h"
#include "vestara/study/draw_counts.h"
#include "vestara/study/figures.h"

namespace real_archive {
namespace {

using testing_support::day;
using vestara::DrawPeriod;
using vestara::WheelSet;
using vestara::WheelView;
using vestara::study::Figures;
using vestara::study::Selection;

class StudyFigures : public testing::Test {
 protected:
  void SetUp() override {
    if (path().empty()) GTEST_SKIP() << "no real archive: VESTARA_REAL_ARCHIVE is not set";
    static const auto loaded = vestara::load_draws(connector());
    draws_ = loaded;
  }

  static WheelSet wheel(const char* code) {
    WheelSet one;
    one.add(vestara::wheel_of_code(code));
    return one;
  }
  Figures of_number(const char* code, int32_t number, const DrawPeriod& period = {}) const {
    const auto rows = vestara::study::number_figures(draws_, {wheel(code), period}, WheelView::each);
    return rows.at(static_cast<size_t>(number - 1)).figures;
  }
  Figures of_pair(const char* code, const std::string& pair) const {
    const auto rows = vestara::study::group_figures(
        draws_, {{wheel(code), {}}, WheelView::each, 2, vestara::study::RankedBy::times, 4005});
    for (const auto& row : rows)
      if (vestara::study::number_text(row.numbers) == pair) return row.figures;
    return {};
  }

  std::shared_ptr<const vestara::LoadedDraws> draws_;
};

TEST_F(StudyFigures, AllDrawsAreThere) { EXPECT_EQ(draws_->rows(), 105156U); }

TEST_F(StudyFigures, AbsencesThatThePressPublished) {
  const struct {
    int32_t number;
    const char* wheel;
    int32_t draws;
    automation::Date earlier, later;
    bool is_record;  ///< the longest of its number on its wheel
  } rows[] = {{53, "RN", 257, day(2015, 6, 3), day(2017, 1, 24), true},
              {34, "CA", 203, day(2004, 9, 8), day(2006, 4, 1), true},
              {8, "RM", 201, day(1937, 10, 9), day(1941, 8, 23), true},
              {78, "BA", 201, day(2023, 2, 14), day(2024, 3, 8), true},
              {21, "BA", 201, day(2016, 4, 9), day(2017, 7, 25), true},
              {55, "BA", 196, day(1956, 6, 2), day(1960, 3, 12), true},
              {82, "BA", 193, day(1940, 3, 9), day(1943, 11, 27), true},
              {67, "VE", 191, day(1921, 2, 12), day(1924, 10, 18), true},
              {71, "CA", 191, day(1967, 10, 21), day(1971, 6, 26), true},
              {47, "BA", 189, day(1913, 5, 24), day(1917, 1, 13), true},
              {28, "BA", 187, day(1898, 12, 17), day(1902, 7, 26), true},
              {53, "VE", 182, day(2003, 5, 10), day(2005, 2, 9), true},
              {31, "BA", 167, day(1998, 9, 9), day(2000, 4, 19), true},
              {45, "FI", 151, day(2003, 6, 21), day(2004, 12, 4), true},
              {53, "VE", 127, day(1954, 2, 20), day(1956, 8, 4), false}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.wheel) + " " + std::to_string(row.number));
    const auto before = of_number(row.wheel, row.number, {{}, row.later.day() - 1});
    EXPECT_EQ(before.delay, row.draws);
    EXPECT_EQ(before.last, row.earlier);
    const auto between = of_number(row.wheel, row.number, {row.earlier.day(), row.later.day()});
    EXPECT_EQ(between.draws, row.draws + 2);
    EXPECT_EQ(between.record, row.draws);
    EXPECT_GT(*between.record_from, row.earlier);
    EXPECT_LT(*between.record_to, row.later);
    const auto always = of_number(row.wheel, row.number);
    EXPECT_EQ(always.record == row.draws, row.is_record) << always.record;
    if (row.is_record) {
      EXPECT_EQ(always.record_from, between.record_from);
    }
    if (row.is_record) {
      EXPECT_EQ(always.record_to, between.record_to);
    }
  }
}

TEST_F(StudyFigures, TheNumberThatEverybodyWaitedFor) {
  const auto waited = of_number("VE", 53, {{}, day(2005, 2, 8).day()});
  EXPECT_EQ(waited.delay, 182);
  EXPECT_EQ(waited.last, day(2003, 5, 10));
  EXPECT_EQ(of_number("VE", 53, {{}, day(2005, 2, 9).day()}).times, 430);
  EXPECT_EQ(of_number("VE", 53, {day(1945, 1, 1).day(), day(2005, 2, 9).day()}).times, 205);
}

TEST_F(StudyFigures, CountsOfTheCenturyOnTheTenWheels) {
  const Selection century{WheelSet::cities(), {day(1939, 1, 7).day(), day(1999, 12, 29).day()}};
  std::map<int32_t, int32_t> times;
  int32_t all = 0;
  for (const auto& row : vestara::study::number_figures(draws_, century, WheelView::each)) {
    times[row.number] += row.figures.times;
    all += row.figures.times;
  }
  EXPECT_EQ(all, 165505);
  EXPECT_EQ(times[81], 1968);
  EXPECT_EQ(times[9], 1727);
  EXPECT_EQ(vestara::study::number_figures(draws_, century, WheelView::together)[0].figures.draws, 3333);
}

TEST_F(StudyFigures, MostAndLeastDrawnOfEachWheel) {
  const struct {
    const char* wheel;
    int32_t most, times, least, least_times;
  } rows[] = {{"FI", 44, 666, 46, 557}, {"MI", 15, 679, 4, 551},  {"NA", 45, 688, 21, 557}, {"PA", 55, 647, 1, 559},
              {"RM", 84, 650, 58, 560}, {"TO", 42, 665, 77, 551}, {"VE", 86, 683, 2, 531},  {"BA", 48, 665, 45, 546},
              {"CA", 56, 454, 18, 358}, {"GE", 19, 447, 64, 363}, {"RN", 80, 231, 88, 158}};
  for (const auto& row : rows) {
    EXPECT_EQ(of_number(row.wheel, row.most).times, row.times) << row.wheel;
    EXPECT_EQ(of_number(row.wheel, row.least).times, row.least_times) << row.wheel;
  }
}

TEST_F(StudyFigures, Pairs) {
  const struct {
    const char *wheel, *pair;
    int32_t times;
  } rows[] = {{"TO", "48,51", 56}, {"MI", "40,53", 49}, {"BA", "66,78", 50}, {"BA", "17,56", 10},
              {"CA", "27,33", 35}, {"RN", "72,77", 21}, {"RN", "21,24", 1}};
  for (const auto& row : rows) EXPECT_EQ(of_pair(row.wheel, row.pair).times, row.times) << row.wheel << row.pair;
  const auto record = vestara::study::group_figures(
      draws_, {{WheelSet::all(), {}}, WheelView::each, 2, vestara::study::RankedBy::record, 1});
  EXPECT_EQ(record.at(0).figures.record, 6423);
}

TEST_F(StudyFigures, FairnessAsMeasuredByOthers) {
  const Selection machines{WheelSet::all(), {day(2009, 9, 15).day(), {}}};
  const Selection from_1939{WheelSet::all(), {day(1939, 1, 7).day(), {}}};
  const struct {
    Selection selection;
    const char *wheel, *test;
    double statistic, p, within;
  } rows[] = {{{}, "FI", "numbers", 92.2322, .3862, 5e-5},
              {{}, "MI", "numbers", 104.7884, .1212, 5e-5},
              {{}, "NA", "numbers", 79.2827, .7600, 5e-5},
              {{}, "PA", "numbers", 77.1880, .8098, 5e-5},
              {{}, "RM", "numbers", 76.9990, .8140, 5e-5},
              {{}, "TO", "numbers", 97.9078, .2432, 5e-5},
              {{}, "VE", "numbers", 116.3627, .0274, 5e-5},
              {{}, "BA", "numbers", 113.0753, .0434, 5e-5},
              {{}, "CA", "numbers", 105.5731, .1109, 5e-5},
              {from_1939, "BA", "numbers", 112.6742, .0458, 5e-5},
              {from_1939, "VE", "numbers", 110.7015, .0594, 5e-5},
              {from_1939, "RM", "numbers", 76.7211, .8201, 5e-5},
              {machines, "FI", "numbers", 95.2756, .3052, 5e-5},
              {machines, "RM", "numbers", 67.3790, .9576, 5e-5},
              {machines, "RN", "numbers", 89.0629, .4782, 5e-5},
              {{}, "BA", "pairs", 3927.150, .4425, 5e-4},
              {{}, "RM", "pairs", 3910.721, .5163, 5e-4},
              {{}, "RN", "pairs", 3915.334, .4955, 5e-4},
              {{}, "VE", "pairs", 3944.167, .3683, 5e-4},
              {{}, "MI", "pairs", 3838.211, .8068, 5e-4},
              {{}, "BA", "first", 88.3743, .4988, 5e-5},
              {{}, "RM", "first", 88.4583, .4963, 5e-5},
              {{}, "RN", "first", 105.0674, .1174, 5e-5},
              {{}, "BA", "overlap", .4023, .9398, 5e-5},
              {{}, "RM", "overlap", 3.9723, .2645, 5e-5},
              {{}, "RN", "overlap", 5.0172, .1705, 5e-5},
              {{}, "BA", "parity", 5.6255, .3444, 5e-5},
              {{}, "RM", "parity", 7.5344, .1838, 5e-5},
              {{}, "BA", "sum", .2211, .8250, 5e-5},
              {{}, "RM", "sum", .9255, .3547, 5e-5},
              {{}, "RN", "sum", -1.8176, .0691, 5e-5},
              {{}, "RM", "gaps", 5.4379, .9081, 5e-5},
              {{}, "VE", "gaps", 13.2792, .2755, 5e-5},
              {{}, "RN", "gaps", 8.3398, .6826, 5e-5}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.wheel) + " " + row.test);
    bool found = false;
    for (const auto& test : vestara::study::fairness_tests(draws_, row.selection)) {
      if (test.wheel != row.wheel || test.test != row.test) continue;
      found = true;
      EXPECT_NEAR(*test.statistic, row.statistic, row.within);
      EXPECT_NEAR(*test.p, row.p, 5.1e-5);
    }
    EXPECT_TRUE(found);
  }
}

TEST_F(StudyFigures, CorrelationOfSuccessiveSums) {
  const struct {
    const char* wheel;
    double correlation;
    int32_t draws;
  } rows[] = {{"BA", .010334, 10740}, {"RM", -.005831, 10911}, {"RN", -.017876, 3474}};
  for (const auto& row : rows)
    for (const auto& test : vestara::study::fairness_tests(draws_, {wheel(row.wheel), {}}))
      if (test.test == "serial") {
        EXPECT_NEAR(*test.statistic / std::sqrt(row.draws), row.correlation, 5e-7);
      }
}

TEST_F(StudyFigures, GapsOfRomeInTheirClasses) {
  const auto rome = vestara::DrawSequence::of_wheel(draws_, vestara::wheel_of_code("RM"), {});
  EXPECT_EQ(vestara::study::count_draws(rome).gaps,
            (std::array<int32_t, vestara::study::gap_classes>{15821, 11206, 7976, 5576, 4059, 2871, 2050, 1414, 983,
                                                              753, 517, 357, 882}));
}

TEST_F(StudyFigures, NoNumberIsSignificantOnceAllWheelsWereLookedAt) {
  for (const auto& test : vestara::study::fairness_tests(draws_, {}))
    if (test.test == "numbers") {
      EXPECT_GT(*test.p_holm, 0.05) << test.wheel;
    }
}

}  // namespace
}  // namespace real_archive
