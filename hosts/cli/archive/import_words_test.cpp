#include "hosts/cli/archive/import_words.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vestara::host {
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

TEST(ImportWords, TheWarningNamesTwenty) {
  std::vector<ManualDraw> manual{{0, InFile::equal}};
  const auto warning = [&] {
    std::ostringstream err;
    warn_of_lost(err, manual, "went");
    return err.str();
  };
  EXPECT_EQ(warning(), "");
  manual.push_back({7, InFile::missing});
  EXPECT_EQ(warning(),
            "vestara: warning: 1 draw entered by hand went away: 1900-01-06; --keep-manual keeps what the file does "
            "not have\n");
  for (int32_t day = 8; day < 27; ++day) manual.push_back({day, InFile::missing});
  EXPECT_NE(warning().find("20 draws"), std::string::npos);
  EXPECT_NE(warning().find(", 1900-01-25; "), std::string::npos);
  for (int32_t day = 27; day < 30; ++day) manual.push_back({day, InFile::missing});
  EXPECT_NE(warning().find("23 draws"), std::string::npos);
  EXPECT_NE(warning().find(" and 3 more; "), std::string::npos);
}

TEST(ImportWords, RefusalsNameWhatWouldGoAndTheWayOut) {
  struct Row {
    std::vector<DrawRow> held, file;
    std::vector<int32_t> marked;
    ImportMode mode;
    const char* text;
  };
  for (const Row& test :
       {Row{weeks(0, 3),
            weeks(0, 1),
            {},
            ImportMode::guarded,
            "nothing was changed: 2 rows of 1900-01-06 to 1900-01-13 would go, which the file does not have; vestara "
            "import --add f keeps everything and adds what is new, vestara import --replace f takes the file alone\n"
            "  1900-01-06 BA 1 2 3 4 90\n  1900-01-13 BA 1 2 3 4 90"},
        Row{{row(0), row(0, 1, 1, 2)},
            weeks(1, 1),
            {},
            ImportMode::guarded,
            "nothing was changed: 2 rows of 1899-12-30 would go, which the file does not have; vestara import --add f "
            "keeps everything and adds what is new, vestara import --replace f takes the file alone\n"
            "  1899-12-30, 2 rows"},
        Row{weeks(0, 2),
            weeks(0, 1),
            {7},
            ImportMode::guarded,
            "nothing was changed: 1 row of 1900-01-06 would go, which the file does not have; they were entered by "
            "hand, --keep-manual keeps them, vestara import --replace f takes the file alone\n"
            "  1900-01-06 BA 1 2 3 4 90"},
        Row{weeks(0, 3),
            weeks(0, 1),
            {7},
            ImportMode::guarded,
            "nothing was changed: 2 rows of 1900-01-06 to 1900-01-13 would go, which the file does not have; vestara "
            "import --add f keeps everything and adds what is new, vestara import --replace f takes the file alone\n"
            "  1900-01-06 BA 1 2 3 4 90\n  1900-01-13 BA 1 2 3 4 90"},
        Row{weeks(0, 3),
            weeks(0, 1),
            {0, 7, 14},
            ImportMode::guarded,
            "nothing was changed: 2 rows of 1900-01-06 to 1900-01-13 would go, which the file does not have; they were "
            "entered by hand, --keep-manual keeps them, vestara import --replace f takes the file alone\n"
            "  1900-01-06 BA 1 2 3 4 90\n  1900-01-13 BA 1 2 3 4 90"},
        Row{weeks(0, 2),
            weeks(0, 1),
            {0},
            ImportMode::guarded,
            "nothing was changed: 1 row of 1900-01-06 would go, which the file does not have; vestara import --add f "
            "keeps everything and adds what is new, vestara import --replace f takes the file alone\n"
            "  1900-01-06 BA 1 2 3 4 90"},
        Row{weeks(0, 1),
            {row(0, 9)},
            {},
            ImportMode::add,
            "nothing was changed: 1 row of 1899-12-30 would change; vestara import --replace f takes the file's rows "
            "and keeps those of the archive in a file beside it\n"
            "  1899-12-30 BA 1 2 3 4 90 -> 9 2 3 4 90"}}) {
    const ImportPlan plan = plan_import({test.held, {}}, test.marked, test.file, test.mode, MissingManual::lose);
    EXPECT_EQ(refusal_text(plan, test.mode, "f"), test.text);
  }
}

TEST(ImportWords, ALongListIsCut) {
  const ImportPlan plan = plan_import({weeks(0, 23), {}}, {}, weeks(30, 1), ImportMode::replace, MissingManual::lose);
  const std::string text = removal_text(plan, "went");
  EXPECT_TRUE(text.starts_with("23 rows of the archive went away, the file does not have them\n  1899-12-30 BA 1 "));
  EXPECT_TRUE(text.ends_with("\n  and 3 more")) << text;
  EXPECT_EQ(removal_text(plan_import({}, {}, weeks(0, 1), ImportMode::replace, MissingManual::lose), "went"), "");
}

TEST(ImportWords, NotesSayWhatStaysUnasked) {
  const auto joined = [&](ImportMode mode) {
    return join_text(plan_import({weeks(0, 101), {}}, {}, weeks(1, 102), mode, MissingManual::lose));
  };
  EXPECT_EQ(joined(ImportMode::guarded),
            "the file begins later than the archive and agrees with it on 100 rows; 1 row that it does not have stay");
  EXPECT_EQ(joined(ImportMode::add), "");
  const ImportPlan other =
      plan_import({{row(0, 1, 5)}, {}}, {}, {row(0, 1, 6)}, ImportMode::guarded, MissingManual::lose);
  EXPECT_EQ(contest_text(other),
            "1 row have another contest number in the file; they keep the archive's, --replace takes the file's");
}

}  // namespace
}  // namespace vestara::host
