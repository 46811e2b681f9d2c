#include "vestara/keeping/import/import_plan.h"

#include <gtest/gtest.h>

namespace vestara {
namespace {

DrawRow row(int32_t day, int8_t first = 1, int16_t contest = 1, int8_t wheel = 1) {
  return {day, contest, wheel, {first, 2, 3, 4, 90}};
}

/// So many draws, a week apart.
std::vector<DrawRow> weeks(int32_t first, int32_t count) {
  std::vector<DrawRow> rows;
  for (int32_t week = 0; week < count; ++week) rows.push_back(row(7 * (first + week)));
  return rows;
}

/// "add 1 stored, 0 removed; added 1, rewritten 0, gone 0, kept 0"
std::string in_words(const ImportPlan& plan) {
  const auto number = [](size_t count) { return std::to_string(count); };
  if (plan.action == ImportAction::refuse)
    return "refuse: " + number(plan.missing.size()) + " missing, " + number(plan.changed.size()) + " changed";
  return std::string(plan.action == ImportAction::add ? "add " : "rewrite ") + number(plan.stored.size()) +
         " stored, " + number(plan.removed.size()) + " removed; added " + number(plan.added) + ", rewritten " +
         number(plan.rewritten) + ", gone " + number(plan.gone) + ", kept " + number(plan.kept);
}

TEST(ImportPlan, WithoutDrawsByHand) {
  struct Row {
    const char* name;
    std::vector<DrawRow> held, file;
    const char *guarded, *add, *replace;
  };
  auto differing = weeks(1, 120);
  differing[50].numbers[0] = 77;
  const std::vector<Row> cases{
      {"an empty archive",
       {},
       weeks(0, 2),
       "rewrite 2 stored, 0 removed; added 2, rewritten 0, gone 0, kept 0",
       "rewrite 2 stored, 0 removed; added 2, rewritten 0, gone 0, kept 0",
       "rewrite 2 stored, 0 removed; added 2, rewritten 0, gone 0, kept 0"},
      {"the same again", weeks(0, 2), weeks(0, 2), "add 0 stored, 0 removed; added 0, rewritten 0, gone 0, kept 0",
       "add 0 stored, 0 removed; added 0, rewritten 0, gone 0, kept 0",
       "rewrite 2 stored, 0 removed; added 0, rewritten 0, gone 0, kept 0"},
      {"more at both ends", weeks(1, 2), weeks(0, 5), "add 3 stored, 0 removed; added 3, rewritten 0, gone 0, kept 0",
       "add 3 stored, 0 removed; added 3, rewritten 0, gone 0, kept 0",
       "rewrite 5 stored, 0 removed; added 3, rewritten 0, gone 0, kept 0"},
      {"shorter", weeks(0, 3), weeks(0, 1), "refuse: 2 missing, 0 changed",
       "add 0 stored, 0 removed; added 0, rewritten 0, gone 0, kept 2",
       "rewrite 1 stored, 2 removed; added 0, rewritten 0, gone 2, kept 0"},
      {"a differing row",
       weeks(0, 3),
       {row(0), row(7, 9), row(14)},
       "refuse: 0 missing, 1 changed",
       "refuse: 0 missing, 1 changed",
       "rewrite 3 stored, 1 removed; added 0, rewritten 1, gone 0, kept 0"},
      {"begins later, 100 in common", weeks(0, 101), weeks(1, 102),
       "add 2 stored, 0 removed; added 2, rewritten 0, gone 0, kept 1",
       "add 2 stored, 0 removed; added 2, rewritten 0, gone 0, kept 1",
       "rewrite 102 stored, 1 removed; added 2, rewritten 0, gone 1, kept 0"},
      {"begins later, 99 in common", weeks(0, 100), weeks(1, 101), "refuse: 1 missing, 0 changed",
       "add 2 stored, 0 removed; added 2, rewritten 0, gone 0, kept 1",
       "rewrite 101 stored, 1 removed; added 2, rewritten 0, gone 1, kept 0"},
      {"begins with the archive, 200 in common", weeks(0, 201), weeks(0, 200), "refuse: 1 missing, 0 changed",
       "add 0 stored, 0 removed; added 0, rewritten 0, gone 0, kept 1",
       "rewrite 200 stored, 1 removed; added 0, rewritten 0, gone 1, kept 0"},
      {"begins later and differs", weeks(0, 121), differing, "refuse: 0 missing, 1 changed",
       "refuse: 0 missing, 1 changed", "rewrite 120 stored, 2 removed; added 0, rewritten 1, gone 1, kept 0"}};
  for (const Row& test : cases) {
    const auto outcome = [&](ImportMode mode) {
      return in_words(plan_import({test.held, {}}, {}, test.file, mode, MissingManual::lose));
    };
    EXPECT_EQ(outcome(ImportMode::guarded), test.guarded) << test.name;
    EXPECT_EQ(outcome(ImportMode::add), test.add) << test.name;
    EXPECT_EQ(outcome(ImportMode::replace), test.replace) << test.name;
  }
}

TEST(ImportPlan, DrawsByHand) {
  const HeldDraws held{{row(0), row(7), row(7, 1, 1, 2), row(14), row(21)}, {}};
  const std::vector<int32_t> marked{7, 14, 28};  // 28 is a mark without a draw
  // 7 is not in the file, 14 differs, 28 comes.
  const std::vector<DrawRow> file{row(0), row(14, 9), row(21), row(28)};
  struct Row {
    ImportMode mode;
    MissingManual missing;
    const char* outcome;
    std::vector<int32_t> old_marks;
  };
  for (const Row& test : {Row{ImportMode::guarded, MissingManual::lose, "refuse: 2 missing, 0 changed", {7, 14, 28}},
                          Row{ImportMode::guarded,
                              MissingManual::keep,
                              "add 2 stored, 1 removed; added 1, rewritten 1, gone 0, kept 2",
                              {14, 28}},
                          Row{ImportMode::add,
                              MissingManual::lose,
                              "add 2 stored, 1 removed; added 1, rewritten 1, gone 0, kept 2",
                              {14, 28}},
                          Row{ImportMode::replace,
                              MissingManual::lose,
                              "rewrite 4 stored, 3 removed; added 1, rewritten 1, gone 2, kept 0",
                              {7, 14, 28}},
                          Row{ImportMode::replace,
                              MissingManual::keep,
                              "rewrite 6 stored, 1 removed; added 1, rewritten 1, gone 0, kept 2",
                              {14, 28}}}) {
    const ImportPlan plan = plan_import(held, marked, file, test.mode, test.missing);
    EXPECT_EQ(in_words(plan), test.outcome);
    EXPECT_EQ(plan.old_marks, test.old_marks) << test.outcome;
  }
}

TEST(ImportPlan, AManualDrawGivesWayWhole) {
  const HeldDraws held{{row(7), row(7, 1, 1, 2), row(7, 5, 1, 3)}, {}};
  const ImportPlan plan = plan_import(held, {7}, {row(7), row(7, 8, 1, 3)}, ImportMode::add, MissingManual::lose);
  EXPECT_EQ(in_words(plan), "add 2 stored, 2 removed; added 0, rewritten 1, gone 1, kept 0");
  EXPECT_EQ(plan.cleared, std::vector<int32_t>{7});
}

TEST(ImportPlan, AWheelThatAManualDrawLacksIsStoredOnce) {
  const ImportPlan plan =
      plan_import({{row(7)}, {}}, {7}, {row(7), row(7, 8, 1, 2)}, ImportMode::add, MissingManual::lose);
  EXPECT_EQ(in_words(plan), "add 2 stored, 0 removed; added 1, rewritten 0, gone 0, kept 0");
  EXPECT_EQ(plan.cleared, std::vector<int32_t>{7});
}

TEST(ImportPlan, ContestNumbersCountTheDatesOfBoth) {
  const ImportPlan plan =
      plan_import({{row(7, 1, 3), row(14, 1, 4)}, {}}, {}, {row(10, 1, 0), row(21, 1, 0), row(28, 1, 9)},
                  ImportMode::add, MissingManual::lose);
  ASSERT_EQ(plan.stored.size(), 3U);
  EXPECT_EQ(plan.stored[0].contest, 2);
  EXPECT_EQ(plan.stored[1].contest, 4);
  EXPECT_EQ(plan.stored[2].contest, 9);
}

TEST(ImportPlan, RowsWithoutADrawStayUnlessReplaced) {
  const HeldDraws held{{row(0)}, {"1,,BA", "2,,"}};
  const auto outcome = [&](ImportMode mode) {
    return in_words(plan_import(held, {}, {row(0)}, mode, MissingManual::lose));
  };
  EXPECT_EQ(outcome(ImportMode::guarded), "add 0 stored, 0 removed; added 0, rewritten 0, gone 0, kept 2");
  EXPECT_EQ(outcome(ImportMode::replace), "rewrite 1 stored, 0 removed; added 0, rewritten 0, gone 2, kept 0");
}

}  // namespace
}  // namespace vestara
