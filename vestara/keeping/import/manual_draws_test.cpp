#include "vestara/keeping/import/manual_draws.h"

#include <gtest/gtest.h>

namespace vestara {
namespace {

DrawRow row(int32_t day, int8_t wheel, int8_t first, int16_t contest = 1) {
  return {day, contest, wheel, {first, 2, 3, 4, 5}};
}

/// "7 missing, 14 equal"
std::string in_words(const std::vector<ManualDraw>& manual) {
  std::string words;
  for (const ManualDraw& draw : manual) {
    words += (words.empty() ? "" : ", ") + std::to_string(draw.day);
    words += draw.in_file == InFile::missing ? " missing" : draw.in_file == InFile::equal ? " equal" : " different";
  }
  return words;
}

TEST(ManualDraws, BesideAFile) {
  struct Row {
    const char* name;
    std::vector<int32_t> marked;
    std::vector<DrawRow> held, rows;
    const char* found;
  };
  const std::vector<Row> cases{
      {"no marks", {}, {row(7, 1, 1)}, {row(7, 1, 1)}, ""},
      {"a mark without a draw", {7}, {row(0, 1, 1)}, {row(0, 1, 1), row(7, 1, 1)}, ""},
      {"the same", {7}, {row(7, 1, 1), row(7, 2, 1)}, {row(7, 1, 1), row(7, 2, 1)}, "7 equal"},
      {"another contest", {7}, {row(7, 1, 1, 1)}, {row(7, 1, 1, 2)}, "7 equal"},
      {"another number", {7}, {row(7, 1, 1), row(7, 2, 1)}, {row(7, 1, 1), row(7, 2, 9)}, "7 different"},
      {"a wheel less", {7}, {row(7, 1, 1), row(7, 2, 1)}, {row(7, 1, 1)}, "7 different"},
      {"a wheel more", {7}, {row(7, 1, 1)}, {row(7, 1, 1), row(7, 2, 1)}, "7 different"},
      {"not in it", {7}, {row(0, 1, 1), row(7, 1, 1)}, {row(0, 1, 1), row(14, 1, 1)}, "7 missing"},
      {"several",
       {0, 7, 14},
       {row(0, 1, 1), row(7, 1, 1), row(14, 1, 1)},
       {row(0, 1, 1), row(14, 1, 9)},
       "0 equal, 7 missing, 14 different"}};
  for (const Row& test : cases)
    EXPECT_EQ(in_words(compare_manual(test.marked, test.held, test.rows)), test.found) << test.name;
}

TEST(ManualDraws, Fates) {
  struct Row {
    InFile in_file;
    MissingManual missing;
    const char* fate;
  };
  for (const Row& test : {Row{InFile::equal, MissingManual::lose, "replaced"},
                          {InFile::equal, MissingManual::keep, "replaced"},
                          {InFile::different, MissingManual::lose, "replaced"},
                          {InFile::different, MissingManual::keep, "replaced"},
                          {InFile::missing, MissingManual::lose, "lost"},
                          {InFile::missing, MissingManual::keep, "kept"}})
    EXPECT_EQ(fate_of({7, test.in_file}, test.missing), test.fate);
}

}  // namespace
}  // namespace vestara
