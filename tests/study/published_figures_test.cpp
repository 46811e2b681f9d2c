#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "automation/coercion.h"
#include "automation/system/file.h"
#include "tests/support/archive_file.h"
#include "tests/support/study_fairness_oracle.h"
#include "tests/support/values.h"

// The oracle against figures of the real archive that others published or measured with programs of their own.

namespace testing_support::study {
namespace {

using automation::Date;
using automation::Variant;

class PublishedFigures : public testing::Test {
 protected:
  void SetUp() override {
    if (path().empty()) GTEST_SKIP() << "no real archive: VESTARA_REAL_ARCHIVE is not set";
  }
  static std::string path() { return automation::environment_variable("VESTARA_REAL_ARCHIVE"); }
  static const Draws& archive() {
    static const Draws draws = draws_in(archive_in_file(path()));
    return draws;
  }
  static size_t wheel_of(const std::string& code) {
    return static_cast<size_t>(std::ranges::find(all_aliases(), code) - all_aliases().begin());
  }
  static std::vector<Numbers> drawings(const std::string& wheel, int32_t since = 0) {
    std::vector<Numbers> result;
    for (const auto& draw : archive())
      if (draw.wheel == wheel_of(wheel) && (since == 0 || draw.day >= since)) result.push_back(draw.numbers);
    return result;
  }
};

int32_t count_in(const Variant& cell) { return *cell.get_if<int32_t>(); }

struct Absence {
  int32_t number;
  const char* wheel;
  int32_t draws;
  Date earlier, later;
};
const Absence absences[] = {
    {53, "RN", 257, day(2015, 6, 3), day(2017, 1, 24)},   {34, "CA", 203, day(2004, 9, 8), day(2006, 4, 1)},
    {8, "RM", 201, day(1937, 10, 9), day(1941, 8, 23)},   {78, "BA", 201, day(2023, 2, 14), day(2024, 3, 8)},
    {21, "BA", 201, day(2016, 4, 9), day(2017, 7, 25)},   {55, "BA", 196, day(1956, 6, 2), day(1960, 3, 12)},
    {82, "BA", 193, day(1940, 3, 9), day(1943, 11, 27)},  {67, "VE", 191, day(1921, 2, 12), day(1924, 10, 18)},
    {71, "CA", 191, day(1967, 10, 21), day(1971, 6, 26)}, {47, "BA", 189, day(1913, 5, 24), day(1917, 1, 13)},
    {28, "BA", 187, day(1898, 12, 17), day(1902, 7, 26)}, {53, "VE", 182, day(2003, 5, 10), day(2005, 2, 9)},
    {31, "BA", 167, day(1998, 9, 9), day(2000, 4, 19)},   {45, "FI", 151, day(2003, 6, 21), day(2004, 12, 4)},
    {53, "VE", 127, day(1954, 2, 20), day(1956, 8, 4)}};

TEST_F(PublishedFigures, Absences) {
  for (const auto& absence : absences) {
    SCOPED_TRACE(std::to_string(absence.number) + " " + absence.wheel);
    const size_t wheel = wheel_of(absence.wheel);
    const Table rows = gaps(archive(), {.wheels = {wheel}, .until = absence.later.day()}, {absence.number}, 1);
    EXPECT_EQ(count_in(rows.rows.at(0)[3]), 0);
    EXPECT_EQ(rows.rows.at(1)[1], Variant(absence.earlier));
    EXPECT_EQ(rows.rows.at(1)[2], Variant(absence.later));
    EXPECT_EQ(count_in(rows.rows.at(1)[3]), absence.draws + 1);
    const Table before = numbers(archive(), {.wheels = {wheel}, .until = absence.later.day() - 1});
    const auto& row = before.rows.at(static_cast<size_t>(absence.number - 1));
    EXPECT_EQ(count_in(row[6]), absence.draws);
    EXPECT_EQ(row[7], Variant(absence.earlier));
  }
}

TEST_F(PublishedFigures, RecordsOfTheWholeArchive) {
  for (const auto& absence : absences) {
    const Table table = numbers(archive(), {.wheels = {wheel_of(absence.wheel)}});
    const auto& row = table.rows.at(static_cast<size_t>(absence.number - 1));
    const bool beaten = count_in(row[8]) != absence.draws;
    EXPECT_EQ(beaten, absence.draws == 127) << absence.number << " " << absence.wheel << ": " << count_in(row[8]);
    if (beaten) continue;
    EXPECT_GT(row[9].get_if<Date>()->day(), absence.earlier.day());
    EXPECT_LT(row[10].get_if<Date>()->day(), absence.later.day());
  }
}

TEST_F(PublishedFigures, Counts) {
  const struct {
    int32_t number;
    std::vector<size_t> wheels;
    std::optional<Date> since, until;
    int32_t times;
  } rows[] = {{53, {9}, std::nullopt, day(2005, 2, 9), 430},      {53, {9}, day(1945, 1, 1), day(2005, 2, 9), 205},
              {84, {0}, day(1939, 1, 7), day(1999, 12, 29), 211}, {45, {5}, day(1939, 7, 8), day(2020, 1, 11), 405},
              {86, {9}, day(1939, 1, 7), day(2020, 1, 11), 398},  {80, {10}, std::nullopt, std::nullopt, 231},
              {58, {7}, std::nullopt, std::nullopt, 560},         {2, {9}, std::nullopt, std::nullopt, 531}};
  for (const auto& row : rows) {
    Selection selection{.wheels = row.wheels};
    if (row.since) selection.since = row.since->day();
    if (row.until) selection.until = row.until->day();
    const Table table = numbers(archive(), selection);
    EXPECT_EQ(count_in(table.rows.at(static_cast<size_t>(row.number - 1))[3]), row.times) << row.number;
  }
}

TEST_F(PublishedFigures, SixtyYearsOnTenWheels) {
  const Selection ten{{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, day(1939, 1, 7).day(), day(1999, 12, 29).day()};
  int32_t often = 0;
  int32_t seldom = 0;
  for (const auto& row : numbers(archive(), ten).rows) {
    if (count_in(row[1]) == 81) often += count_in(row[3]);
    if (count_in(row[1]) == 9) seldom += count_in(row[3]);
  }
  EXPECT_EQ(often, 1968);
  EXPECT_EQ(seldom, 1727);
  Selection one = ten;
  one.taken = Wheels::together;
  EXPECT_EQ(count_in(numbers(archive(), one).rows.at(0)[2]), 3333) << "dates";
}

TEST_F(PublishedFigures, NumbersAndFirstNumbers) {
  const struct {
    const char* wheel;
    int32_t since;
    double pearson, statistic, p;
  } rows[] = {{"FI", 0, 88.0869, 92.2322, .3862},
              {"MI", 0, 100.0788, 104.7884, .1212},
              {"NA", 0, 75.7195, 79.2827, .7600},
              {"PA", 0, 73.7189, 77.1880, .8098},
              {"RM", 0, 73.5384, 76.9990, .8140},
              {"TO", 0, 93.5075, 97.9078, .2432},
              {"VE", 0, 111.1329, 116.3627, .0274},
              {"BA", 0, 107.9933, 113.0753, .0434},
              {"CA", 0, 100.8282, 105.5731, .1109},
              {"BA", day(1939, 1, 1).day(), 0, 112.6742, .0458},
              {"RM", day(2009, 9, 15).day(), 0, 67.3790, .9576}};
  for (const auto& row : rows) {
    const auto draws = drawings(row.wheel, row.since);
    const auto result = fairness_of(draws).at(0);
    if (row.pearson != 0) {
      EXPECT_NEAR(static_cast<double>(pearson_of_numbers(draws)), row.pearson, 5e-5) << row.wheel;
    }
    EXPECT_NEAR(result.statistic, row.statistic, 5e-5) << row.wheel;
    EXPECT_NEAR(result.p, row.p, 5e-5) << row.wheel;
  }
}

TEST_F(PublishedFigures, OtherTests) {
  const struct {
    const char *wheel, *test;
    double statistic, tolerance, p;  ///< p 0: not published
  } rows[] = {{"BA", "pairs", 3927.150, 5e-4, .4425},
              {"RM", "pairs", 3910.721, 5e-4, .5163},
              {"RN", "pairs", 3915.334, 5e-4, .4955},
              {"VE", "pairs", 3944.167, 5e-4, .3683},
              {"MI", "pairs", 3838.211, 5e-4, .8068},
              {"BA", "first", 88.3743, 5e-5, .4988},
              {"RM", "first", 88.4583, 5e-5, .4963},
              {"RN", "first", 105.0674, 5e-5, .1174},
              {"BA", "overlap", 0.4023, 5e-5, .9398},
              {"RM", "overlap", 3.9723, 5e-5, .2645},
              {"RN", "overlap", 5.0172, 5e-5, .1705},
              {"BA", "parity", 5.6255, 5e-5, .3444},
              {"RM", "parity", 7.5344, 5e-5, .1838},
              {"BA", "sum", .2211, 5e-5, 0},
              {"RM", "sum", .9255, 5e-5, 0},
              {"RN", "sum", -1.8176, 5e-5, 0},
              {"BA", "serial", .010334 * 103.634, 1e-4, 0},
              {"RM", "serial", -.005831 * 104.456, 1e-4, 0},
              {"RN", "serial", -.017876 * 58.941, 1e-4, 0}};
  for (const auto& row : rows)
    for (const auto& result : fairness_of(drawings(row.wheel))) {
      if (result.test != row.test) continue;
      EXPECT_NEAR(result.statistic, row.statistic, row.tolerance) << row.wheel << " " << row.test;
      if (row.p != 0) {
        EXPECT_NEAR(result.p, row.p, 5e-5) << row.wheel << " " << row.test;
      }
    }
}

TEST_F(PublishedFigures, GapsOfRome) {
  const auto rome = drawings("RM");
  EXPECT_EQ(closed_gaps(rome), (GapClasses{15821, 11206, 7976, 5576, 4059, 2871, 2050, 1414, 983, 753, 517, 357, 882}));
  // By the endless formula, whose chances do not end with the archive.
  long double endless = 0;
  const GapClasses seen = closed_gaps(rome);
  long double all = 0;
  for (const long double count : seen) all += count;
  for (size_t i = 0; i < seen.size(); ++i) {
    const auto stays = [](size_t draws) { return std::pow(17 / 18.0L, static_cast<long double>(draws)); };
    const long double expected = all * (stays(6 * i) - (i + 1 < seen.size() ? stays(6 * i + 6) : 0));
    endless += (seen.at(i) - expected) * (seen.at(i) - expected) / expected;
  }
  EXPECT_NEAR(static_cast<double>(endless), 5.2681, 5e-5);
  EXPECT_NEAR(fairness_of(rome).at(7).statistic, 5.27, 0.3) << "hardly another with ten thousand draws";
}

TEST_F(PublishedFigures, PairsDrawnMost) {
  const struct {
    const char *wheel, *pair;
    int32_t times;
  } rows[] = {{"TO", "48,51", 56}, {"MI", "40,53", 49}, {"BA", "66,78", 50}, {"CA", "27,33", 35}, {"RN", "72,77", 21}};
  for (const auto& row : rows) {
    const Table top = groups(archive(), {.wheels = {wheel_of(row.wheel)}}, 2, "times", 2);
    const bool first = top.rows.at(0)[2] == Variant(row.pair);
    const auto& found = top.rows.at(first ? 0 : 1);
    EXPECT_EQ(found[2], Variant(row.pair)) << row.wheel;
    EXPECT_EQ(found[0], Variant(1));
    EXPECT_EQ(count_in(found[4]), row.times);
  }
}

}  // namespace
}  // namespace testing_support::study
