#include "hosts/cli/output/number_stream.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>

namespace vestara::host {
namespace {

constexpr std::array every_format{OutputFormat::table, OutputFormat::csv, OutputFormat::json, OutputFormat::jsonl,
                                  OutputFormat::markdown};

Report head() {
  Report report;
  report.facts = {{"size", int64_t{2}}, {"count", int64_t{2}}};
  report.listing = "combinations";
  report.row_kind = "combination";
  report.columns = {"n1", "n10"};
  return report;
}

TEST(NumberStream, WritesWhatTheWholeReportWouldBe) {
  for (const OutputFormat format : every_format) {
    for (const bool colour : {false, true}) {
      Report whole = head();
      whole.rows = {{int64_t{5}, int64_t{90}}, {int64_t{12}, int64_t{7}}};
      std::ostringstream expected;
      write_report(expected, whole, {format, colour});
      std::ostringstream out;
      NumberStream stream(out, head(), {format, colour}, 90);
      EXPECT_TRUE(stream.add(std::array{5, 90}));
      EXPECT_TRUE(stream.add(std::array{12, 7}));
      stream.finish();
      EXPECT_EQ(out.str(), expected.str());
    }
  }
}

TEST(NumberStream, WithoutRowsOnlyTheTableKeepsItsHeading) {
  for (const OutputFormat format : every_format) {
    std::ostringstream expected;
    write_report(expected, head(), {format});
    std::ostringstream out;
    NumberStream(out, head(), {format}, 90).finish();
    EXPECT_EQ(out.str(), expected.str() + (format == OutputFormat::table ? "\nn1  n10\n" : ""));
  }
}

TEST(NumberStream, HoldsWholeRowsBackUntilABlockIsFull) {
  std::ostringstream out;
  NumberStream stream(out, head(), {OutputFormat::csv}, 90);
  for (int32_t row = 0; row < 20000; ++row) {
    ASSERT_TRUE(stream.add(std::array{row % 90, 7}));
    const std::string text = out.str();
    ASSERT_TRUE(text.empty() || text.back() == '\n');
    ASSERT_TRUE(row > 10 || text.empty());
  }
  EXPECT_GT(out.str().size(), 65536U);
}

TEST(NumberStream, SaysWhenNobodyTakesMore) {
  std::ostringstream out;
  NumberStream stream(out, head(), {OutputFormat::csv}, 90);
  out.setstate(std::ios::badbit);
  EXPECT_FALSE(stream.add(std::array{1, 2}));
}

}  // namespace
}  // namespace vestara::host
