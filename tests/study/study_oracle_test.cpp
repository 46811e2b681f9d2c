#include "tests/support/study_oracle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "automation/coercion.h"
#include "tests/support/values.h"

// The oracle against answers counted by hand.

namespace testing_support::study {
namespace {

using automation::Variant;
using Lines = std::vector<std::string>;

constexpr size_t ba = 0;
constexpr size_t na = 5;
constexpr size_t rn = 10;

/// BA was drawn on three dates of January 2000, NA on two, one of them without BA.
const Archive january{{day(2000, 1, 8), 2, "NA", {12, 3, 2, 1, 11}},
                      {day(2000, 1, 1), 1, "BA", {5, 4, 3, 2, 1}},
                      {day(2000, 1, 8), 2, "BA", {6, 7, 8, 9, 10}},
                      {day(2000, 1, 15), std::nullopt, "NA", {1, 2, 20, 21, 22}},
                      {day(2000, 1, 22), 4, "BA", {90, 2, 1, 31, 32}}};

std::string cell(const Variant& value) { return value.is_null() ? "-" : automation::to_text(value); }

/// The cells of some columns, joined by blanks.
Lines lines_of(const Table& table, const Lines& columns) {
  Lines lines;
  for (const auto& row : table.rows) {
    std::string line;
    for (const auto& name : columns) {
      const auto place = std::ranges::find(table.columns, name) - table.columns.begin();
      line += (line.empty() ? "" : " ") + cell(row.at(static_cast<size_t>(place)));
    }
    lines.push_back(line);
  }
  return lines;
}

const Lines counted{"wheel", "draws", "times", "delay", "last", "record", "record_from", "record_to"};

class StudyOracle : public testing::Test {
 protected:
  static Selection each(std::vector<size_t> wheels) { return {.wheels = std::move(wheels)}; }
  static Selection together(std::vector<size_t> wheels) {
    return {.wheels = std::move(wheels), .taken = Wheels::together};
  }

  const Draws draws_ = draws_in(january);
};

TEST_F(StudyOracle, Draws) {
  EXPECT_EQ(lines_of(draws(draws_, each({ba, na})), {"date", "contest", "wheel", "n1", "n2", "n3", "n4", "n5"}),
            (Lines{"01/01/2000 1 BA 5 4 3 2 1", "08/01/2000 2 BA 6 7 8 9 10", "08/01/2000 2 NA 12 3 2 1 11",
                   "15/01/2000 - NA 1 2 20 21 22", "22/01/2000 4 BA 90 2 1 31 32"}));
  Selection middle = each({na});
  middle.since = day(2000, 1, 8).day();
  middle.until = day(2000, 1, 8).day();
  EXPECT_EQ(lines_of(draws(draws_, middle), {"date", "wheel"}), Lines{"08/01/2000 NA"});
  EXPECT_EQ(lines_of(draws(draws_, each({rn})), {"date"}), Lines{});
}

TEST_F(StudyOracle, Search) {
  const Lines columns{"date", "contest", "wheel", "hits", "numbers", "drawn"};
  EXPECT_EQ(
      lines_of(search(draws_, each({ba, na}), {2, 3, 6}, 1), columns),
      (Lines{"22/01/2000 4 BA 1 2 90,2,1,31,32", "15/01/2000 - NA 1 2 1,2,20,21,22", "08/01/2000 2 BA 1 6 6,7,8,9,10",
             "08/01/2000 2 NA 2 2,3 12,3,2,1,11", "01/01/2000 1 BA 2 2,3 5,4,3,2,1"}));
  EXPECT_EQ(lines_of(search(draws_, each({ba, na}), {2, 3, 6}, 2), {"date", "wheel"}),
            (Lines{"08/01/2000 NA", "01/01/2000 BA"}));
}

TEST_F(StudyOracle, NumbersOfAWheel) {
  const Table table = numbers(draws_, each({ba, rn}));
  ASSERT_EQ(table.rows.size(), 90U) << "a wheel without draws has no rows";
  const auto lines = lines_of(table, counted);
  EXPECT_EQ(lines[0], "BA 3 2 0 22/01/2000 1 08/01/2000 08/01/2000");
  EXPECT_EQ(lines[5], "BA 3 1 1 08/01/2000 1 01/01/2000 01/01/2000") << "the earlier of two runs of one draw";
  EXPECT_EQ(lines[4], "BA 3 1 2 01/01/2000 2 08/01/2000 22/01/2000");
  EXPECT_EQ(lines[88], "BA 3 0 3 - 3 01/01/2000 22/01/2000");
  EXPECT_EQ(lines_of(table, {"number"})[89], "90");
  EXPECT_DOUBLE_EQ(*table.rows[0][4].get_if<double>(), 3 / 18.0);
  EXPECT_NEAR(*table.rows[0][5].get_if<double>(), (2 - 3 / 18.0) / std::sqrt(3 * 17 / 324.0), 1e-14);
}

TEST_F(StudyOracle, NumbersTogether) {
  const Table table = numbers(draws_, together({ba, na}));
  const auto lines = lines_of(table, counted);
  EXPECT_EQ(lines[0], "BA+NA 4 4 0 22/01/2000 0 - -");
  EXPECT_EQ(lines[5], "BA+NA 4 1 2 08/01/2000 2 15/01/2000 22/01/2000");
  EXPECT_EQ(lines[19], "BA+NA 4 1 1 15/01/2000 2 01/01/2000 08/01/2000");
  EXPECT_DOUBLE_EQ(*table.rows[0][4].get_if<double>(), 89 / 324.0) << "two wheels on one of the four dates";
  const double variance = (3 * 17 * 324 + 35 * 289) / (324.0 * 324);
  EXPECT_NEAR(*table.rows[0][5].get_if<double>(), (4 - 89 / 324.0) / std::sqrt(variance), 1e-14);
}

TEST_F(StudyOracle, NamesOfWheelsTogether) {
  const struct {
    std::vector<size_t> wheels;
    const char* name;
  } rows[] = {{{ba}, "BA"},
              {{ba, rn}, "BA+RN"},
              {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, "tutte"},
              {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, "all"},
              {{0, 1, 2, 3, 4, 5, 6, 7, 8, 10}, "BA+CA+FI+GE+MI+NA+PA+RM+TO+RN"}};
  for (const auto& row : rows) EXPECT_EQ(lines_of(numbers(draws_, together(row.wheels)), {"wheel"})[0], row.name);
}

TEST_F(StudyOracle, GroupsByDelay) {
  const Lines columns{"rank", "wheel", "numbers", "draws", "times", "delay", "record"};
  EXPECT_EQ(lines_of(groups(draws_, together({ba, na}), 2, "delay", 3), columns),
            (Lines{"1 BA+NA 1,6 4 0 4 4", "1 BA+NA 1,7 4 0 4 4", "1 BA+NA 1,8 4 0 4 4"}))
      << "1 and 6 came out on one date, but not in one drawing";
  const auto every = lines_of(groups(draws_, each({ba, na}), 2, "delay", 100000), columns);
  ASSERT_EQ(every.size(), 2 * 4005U);
  EXPECT_EQ(every[0], "1 BA 1,6 3 0 3 3");
  const size_t never_on_ba = 4005 - 29;  // ten pairs each draw, but 1,2 twice
  EXPECT_EQ(every[never_on_ba], std::to_string(never_on_ba + 1) + " BA 1,3 3 1 2 2") << "its delay is that of NA's";
  EXPECT_EQ(every[never_on_ba + 8], std::to_string(never_on_ba + 1) + " BA 4,5 3 1 2 2");
  EXPECT_EQ(every[never_on_ba + 9], std::to_string(never_on_ba + 1) + " NA 1,4 2 0 2 2");
  EXPECT_EQ(every.back(), std::to_string(2 * 4005 - 19) + " NA 21,22 2 1 0 1");
}

TEST_F(StudyOracle, GroupsByOtherColumns) {
  const Lines columns{"rank", "numbers", "times"};
  const Selection both = together({ba, na});
  for (const char* by : {"times", "z"})
    EXPECT_EQ(lines_of(groups(draws_, both, 2, by, 4), columns), (Lines{"1 1,2 4", "2 1,3 2", "2 2,3 2", "4 1,4 1"}))
        << by;
  EXPECT_EQ(lines_of(groups(draws_, each({ba}), 4, "record", 7), {"rank", "numbers", "record", "delay"}),
            (Lines{"1 1,2,3,4 2 2", "1 1,2,3,5 2 2", "1 1,2,4,5 2 2", "1 1,2,31,32 2 0", "1 1,2,31,90 2 0",
                   "1 1,2,32,90 2 0", "1 1,3,4,5 2 2"}))
      << "groups compare as numbers";
  EXPECT_EQ(groups(draws_, each({ba}), 5, "delay", 100).rows.size(), 3U) << "only those that occurred";
  EXPECT_EQ(groups(draws_, each({ba}), 3, "delay", 1000000).rows.size(), 117480U);
}

TEST_F(StudyOracle, AGroupOnTwoWheelsOfOneDateOccursOnce) {
  const Draws twice =
      draws_in({{day(2000, 1, 1), 1, "BA", {1, 2, 3, 4, 5}}, {day(2000, 1, 1), 1, "NA", {2, 1, 7, 8, 9}}});
  EXPECT_EQ(lines_of(groups(twice, together({ba, na}), 2, "times", 2), {"rank", "numbers", "draws", "times"}),
            (Lines{"1 1,2 1 1", "1 1,3 1 1"}));
}

TEST_F(StudyOracle, Sets) {
  const std::vector<NamedSet> own{{"4,5,6", {4, 5, 6}}, {"1,2,3", {1, 2, 3}}};
  const Lines columns{"wheel", "set", "numbers", "times", "delay", "record"};
  EXPECT_EQ(lines_of(sets(draws_, each({ba, na}), own, 2), columns),
            (Lines{"BA 4,5,6 4,5,6 1 2 2", "BA 1,2,3 1,2,3 2 0 1", "NA 4,5,6 4,5,6 0 2 2", "NA 1,2,3 1,2,3 2 0 0"}));
  const Table table = sets(draws_, each({na}), own, 2);
  EXPECT_NEAR(*table.rows[0][5].get_if<double>(), 2 * (0.0072352741 + 8.512087e-5), 1e-9)
      << "published: two or three hits of three numbers";
  NamedSet most{"most", {}};
  for (int32_t number = 1; number <= 86; ++number) most.numbers.push_back(number);
  EXPECT_EQ(lines_of(sets(draws_, each({na}), {most}, 1), {"times", "expected", "z"}), Lines{"2 2 -"})
      << "four numbers are left, so one of the 86 comes out in any case";
}

TEST_F(StudyOracle, Gaps) {
  const Lines columns{"wheel", "from", "to", "draws", "days"};
  EXPECT_EQ(lines_of(gaps(draws_, each({ba, na, rn}), {1, 3}, 1), columns),
            (Lines{"BA 22/01/2000 - 0 -", "BA 01/01/2000 22/01/2000 2 21", "NA 15/01/2000 - 0 -",
                   "NA 08/01/2000 15/01/2000 1 7"}));
  EXPECT_EQ(lines_of(gaps(draws_, each({ba, na}), {1, 3}, 2), columns),
            (Lines{"BA 01/01/2000 - 2 -", "NA 08/01/2000 - 1 -"}));
  EXPECT_EQ(lines_of(gaps(draws_, together({ba, na}), {1, 3}, 2), columns),
            (Lines{"BA+NA 08/01/2000 - 2 -", "BA+NA 01/01/2000 08/01/2000 1 7"}));
  EXPECT_EQ(gaps(draws_, each({ba, na}), {77}, 1).rows.size(), 0U);
}

TEST(StudyOdds, PublishedChances) {
  const struct {
    int32_t count, wheels;
    size_t bet;  ///< ambata is 0
    double chance, one_in;
    int32_t median;
  } rows[] = {{1, 1, 0, .0555555556, 18, 13},
              {2, 1, 1, .0024968789, 400.5, 278},
              {3, 1, 2, 8.512087e-5, 11748, 8143},
              {4, 1, 3, 1.956802e-6, 511038, 354225},
              {2, 1, 0, .1086142322, 9.2068965, 7},
              {10, 1, 4, 5.733884e-6, 174401.857, 120886},
              {5, 1, 4, 2.27535075e-8, 43949268, 30463311},
              {1, 10, 0, .4353697226, 2.2968984, 2},
              {90, 3, 4, 1, 1, 1}};
  for (const auto& row : rows) {
    const Table table = odds(row.count, row.wheels);
    EXPECT_EQ(table.rows.size(), static_cast<size_t>(std::min(row.count, 5)));
    const auto& cells = table.rows.at(row.bet);
    EXPECT_NEAR(*cells[1].get_if<double>() / row.chance, 1, 2e-6) << row.count << " " << row.bet;
    EXPECT_NEAR(*cells[2].get_if<double>() / row.one_in, 1, 2e-6) << row.count << " " << row.bet;
    EXPECT_EQ(*cells[3].get_if<int32_t>(), row.median) << row.count << " " << row.bet;
  }
  EXPECT_EQ(lines_of(odds(7, 1), {"bet"}), (Lines{"ambata", "ambo", "terno", "quaterna", "cinquina"}));
}

TEST(StudyFamilies, AsPlayersKnowThem) {
  const struct {
    const char* family;
    size_t sets, numbers;  ///< numbers of all sets
    const char *first_name, *first, *last_name, *last;
  } rows[] = {{"decine", 9, 90, "1-10", "1,2,3,4,5,6,7,8,9,10", "81-90", "81,82,83,84,85,86,87,88,89,90"},
              {"decine-popolari", 9, 89, "1-9", "1,2,3,4,5,6,7,8,9", "80-89", "80,81,82,83,84,85,86,87,88,89"},
              {"cadenze", 10, 90, "1", "1,11,21,31,41,51,61,71,81", "0", "10,20,30,40,50,60,70,80,90"},
              {"figure", 9, 90, "1", "1,10,19,28,37,46,55,64,73,82", "9", "9,18,27,36,45,54,63,72,81,90"},
              {"gemelli", 1, 8, "11,22,33,44,55,66,77,88", "11,22,33,44,55,66,77,88", "11,22,33,44,55,66,77,88",
               "11,22,33,44,55,66,77,88"},
              {"vertibili", 28, 56, "12,21", "12,21", "78,87", "78,87"},
              {"diametrali", 45, 90, "1,46", "1,46", "45,90", "45,90"}};
  for (const auto& row : rows) {
    const auto sets = family(row.family);
    size_t numbers = 0;
    for (const auto& set : sets) numbers += set.numbers.size();
    EXPECT_EQ(sets.size(), row.sets) << row.family;
    EXPECT_EQ(numbers, row.numbers) << row.family;
    EXPECT_EQ(sets.front().name, row.first_name);
    EXPECT_EQ(listed(sets.front().numbers), row.first);
    EXPECT_EQ(sets.back().name, row.last_name);
    EXPECT_EQ(listed(sets.back().numbers), row.last);
  }
  EXPECT_EQ(families().size(), std::size(rows));
}

}  // namespace
}  // namespace testing_support::study
