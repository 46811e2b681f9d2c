#include "vestara/keeping/import/archive_change.h"

#include <gtest/gtest.h>

namespace vestara {
namespace {

DrawRow row(int32_t day, int8_t wheel, int8_t first, int16_t contest = 1) {
  return {day, contest, wheel, {first, 2, 3, 4, 5}};
}

TEST(ArchiveChange, TellsWhatComesChangesAndMisses) {
  struct Row {
    const char* name;
    std::vector<DrawRow> held, rows;
    size_t equal, added, changed, missing;
  };
  const std::vector<Row> cases{{"nothing before", {}, {row(0, 1, 1), row(0, 2, 1)}, 0, 2, 0, 0},
                               {"the same", {row(0, 1, 1)}, {row(0, 1, 1)}, 1, 0, 0, 0},
                               {"a date more", {row(0, 1, 1)}, {row(0, 1, 1), row(7, 1, 1)}, 1, 1, 0, 0},
                               {"a date before", {row(7, 1, 1)}, {row(0, 1, 1), row(7, 1, 1)}, 1, 1, 0, 0},
                               {"a corrected row", {row(0, 1, 1)}, {row(0, 1, 9)}, 0, 0, 1, 0},
                               {"a wheel less", {row(0, 1, 1), row(0, 2, 1)}, {row(0, 1, 1)}, 1, 0, 0, 1},
                               {"a date less", {row(0, 1, 1), row(7, 1, 1), row(7, 2, 1)}, {row(0, 1, 1)}, 1, 0, 0, 2},
                               {"all others", {row(0, 1, 1), row(7, 1, 1)}, {row(14, 1, 1)}, 0, 1, 0, 2},
                               {"a wheel twice, one kept", {row(0, 1, 1), row(0, 1, 9)}, {row(0, 1, 9)}, 1, 0, 0, 1},
                               {"a wheel twice, none kept", {row(0, 1, 1), row(0, 1, 9)}, {row(0, 1, 8)}, 0, 0, 1, 1},
                               {"no file", {row(0, 1, 1), row(7, 1, 1)}, {}, 0, 0, 0, 2}};
  for (const Row& test : cases) {
    const ArchiveChange change = compare_draws(test.held, test.rows);
    EXPECT_EQ(change.equal, test.equal) << test.name;
    EXPECT_EQ(change.added.size(), test.added) << test.name;
    EXPECT_EQ(change.changed.size(), test.changed) << test.name;
    EXPECT_EQ(change.missing.size(), test.missing) << test.name;
  }
}

TEST(ArchiveChange, PairsTheRowsOfAPlace) {
  const ArchiveChange change = compare_draws({row(0, 1, 1), row(0, 2, 7)}, {row(0, 1, 1), row(0, 2, 9)});
  ASSERT_EQ(change.changed.size(), 1U);
  EXPECT_EQ(change.changed[0].held.numbers[0], 7);
  EXPECT_EQ(change.changed[0].given.numbers[0], 9);
}

TEST(ArchiveChange, CountsOtherContestNumbers) {
  EXPECT_EQ(compare_draws({row(0, 1, 1, 5)}, {row(0, 1, 1, 6)}).other_contests, 1U);
  EXPECT_EQ(compare_draws({row(0, 1, 1, 5)}, {row(0, 1, 1, 5)}).other_contests, 0U);
  EXPECT_EQ(compare_draws({row(0, 1, 1, 5)}, {row(0, 1, 1, 0)}).other_contests, 0U);
}

}  // namespace
}  // namespace vestara
