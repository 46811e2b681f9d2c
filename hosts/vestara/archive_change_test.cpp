#include "hosts/vestara/archive_change.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vestara::host {
namespace {

DrawRow row(int32_t day, int8_t wheel, int8_t first) { return {day, 1, wheel, {first, 2, 3, 4, 5}}; }

TEST(ArchiveChange, CountsWhatComesAndGoes) {
  struct Row {
    const char* name;
    std::vector<DrawRow> held, rows;
    size_t added, gone, dates;
  };
  const std::vector<Row> cases{{"nothing before", {}, {row(0, 1, 1), row(0, 2, 1)}, 2, 0, 0},
                               {"the same", {row(0, 1, 1)}, {row(0, 1, 1)}, 0, 0, 0},
                               {"a date more", {row(0, 1, 1)}, {row(0, 1, 1), row(7, 1, 1)}, 1, 0, 0},
                               {"a corrected row", {row(0, 1, 1)}, {row(0, 1, 9)}, 1, 1, 0},
                               {"a wheel less", {row(0, 1, 1), row(0, 2, 1)}, {row(0, 1, 1)}, 0, 1, 0},
                               {"a date less", {row(0, 1, 1), row(7, 1, 1), row(7, 2, 1)}, {row(0, 1, 1)}, 0, 2, 1},
                               {"all others", {row(0, 1, 1), row(7, 1, 1)}, {row(14, 1, 1)}, 1, 2, 2},
                               {"a wheel twice", {row(0, 1, 1), row(0, 1, 9)}, {row(0, 1, 9)}, 0, 1, 0}};
  for (const Row& test : cases) {
    const ArchiveChange change = compare_draws(test.held, test.rows);
    EXPECT_EQ(change.held, test.held.size()) << test.name;
    EXPECT_EQ(change.added, test.added) << test.name;
    EXPECT_EQ(change.gone_rows(), test.gone) << test.name;
    EXPECT_EQ(change.dates.size(), test.dates) << test.name;
  }
}

std::string warning(const ArchiveChange& change) {
  std::ostringstream err;
  warn_of_gone(err, change, "went");
  return err.str();
}

TEST(ArchiveChange, NamesDatesAndRows) {
  EXPECT_EQ(warning(compare_draws({row(0, 1, 1)}, {row(0, 1, 1)})), "");
  EXPECT_EQ(warning(compare_draws({row(0, 1, 1), row(0, 11, 1), row(7, 1, 1), row(7, 2, 1)}, {row(0, 1, 1)})),
            "vestara: warning: 3 rows of the archive went away, the file does not have them\n"
            "  1899-12-30 RN 1 2 3 4 5\n  1900-01-06, the whole draw (2 rows)\n");
}

TEST(ArchiveChange, ALongListIsCut) {
  std::vector<DrawRow> held;
  for (int32_t week = 0; week < 23; ++week) held.push_back(row(7 * week, 1, 1));
  const std::string text = warning(compare_draws(held, {}));
  EXPECT_TRUE(text.ends_with("\n  and 3 more\n")) << text;
}

}  // namespace
}  // namespace vestara::host
