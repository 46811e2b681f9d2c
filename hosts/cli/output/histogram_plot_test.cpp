#include "hosts/cli/output/histogram_plot.h"

#include <gtest/gtest.h>

namespace vestara::host {
namespace {

TEST(HistogramPlot, Texts) {
  struct Row {
    Histogram histogram;
    PlotStyle style;
    std::vector<double> expected;
    const char* text;
  };
  for (const Row& row :
       {Row{{}, {}, {}, ""},
        {{0, 5, {10, 5, 0, 1}}, {20, false}, {}, "  0-4  10  ##########\n  5-9   5  #####\n10-14   0\n15-19   1  #\n"},
        {{3, 1, {10, 5}}, {17, true}, {}, "3  10  ██████████\n4   5  █████\n"},
        {{0, 1, {80, 9, 1}}, {16, true}, {}, "0  80  ██████████\n1   9  █▏\n2   1  ▏\n"},
        {{0, 1, {5, 10, 0}}, {17, false}, {2, 10, 4}, "0   5  ##|##\n1  10  #########|\n2   0      |\n"},
        {{0, 1, {10}}, {17, true}, {5}, "0  10  █████┃████\n"},
        {{0, 1, {5}}, {16, false}, {10}, "0  5  #####    |\n"}})
    EXPECT_EQ(plot(row.histogram, row.style, row.expected), row.text);
}

}  // namespace
}  // namespace vestara::host
