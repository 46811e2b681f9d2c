#include "hosts/cli/output/heat_map.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace vestara::host {
namespace {

HeatMap map_of(size_t columns, const std::string& text) {
  return {{"BA", "RN"}, {2, std::vector<HeatCell>(columns, {text, 1.0})}};
}

TEST(HeatMap, LinesUp) {
  const HeatMap map{{"BA", "RN"}, {{{"7", 7}, {"110", 110}}, {{"-", {}}, {"0", 0}}}};
  EXPECT_EQ(heat_map(map, 80, false),
            "     1   2\n"
            "BA   7 110\n"
            "RN   -   0\n");
  EXPECT_EQ(heat_map({}, 80, false), "");
  EXPECT_EQ(heat_map({}, 80, true), "");
}

TEST(HeatMap, WrapsToTheWidth) {
  struct Row {
    size_t width;
    const char* text;
    size_t blocks;
    size_t longest;
  };
  for (const Row& row : {Row{80, "7", 6, 47},
                         {80, "110", 6, 62},
                         {80, "12345", 6 + 3, 62},
                         {100, "7", 3, 92},
                         {200, "110", 2, 182},
                         {1000, "7", 1, 272},
                         {64, "110", 6, 62},
                         {62, "110", 9, 42},
                         {10, "110", 18, 22}}) {
    std::istringstream lines(heat_map(map_of(90, row.text), row.width, false));
    size_t empty = 0;
    size_t longest = 0;
    for (std::string line; std::getline(lines, line); longest = std::max(longest, line.size())) empty += line.empty();
    EXPECT_EQ(empty + 1, row.blocks) << row.width << row.text;
    EXPECT_EQ(longest, row.longest) << row.width << row.text;
  }
}

TEST(HeatMap, ColoursBetweenTheLeastAndTheMost) {
  const HeatMap map{{"BA"}, {{{"5", 5}, {"9", 9}, {"7", 7}, {"-", {}}}}};
  const auto cell = [](const char* ground, const char* ink, const char* text) {
    return "\033[48;5;" + std::string(ground) + ";38;5;" + ink + "m" + text + "\033[0m";
  };
  const std::string shown = heat_map(map, 80, true);
  EXPECT_EQ(shown.substr(0, shown.find("\n\n")),
            "   1 2 3 4\nBA" + cell("230", "16", " 5") + cell("88", "231", " 9") + cell("209", "16", " 7") + " -");
  EXPECT_NE(shown.find("\n5 " + cell("230", "16", "  ")), std::string::npos) << "the legend begins with the least";
  EXPECT_EQ(shown.substr(shown.size() - 4), "m 9\n");
  const std::string even = heat_map({{"BA"}, {{{"5", 5}, {"5", 5}}}}, 80, true);
  EXPECT_NE(even.find("BA" + cell("230", "16", " 5") + cell("230", "16", " 5")), std::string::npos);
  const std::string none = heat_map({{"BA"}, {{{"-", {}}}}}, 80, true);
  EXPECT_EQ(none, "   1\nBA -\n");
}

}  // namespace
}  // namespace vestara::host
