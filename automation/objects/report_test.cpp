#include "automation/report.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace automation {
namespace {

std::string heard;

TEST(Report, GoesToTheHookAndNowhereWithoutOne) {
  const ReportHook before = set_report_hook([](std::string_view label, const RunTimeError& error) {
    heard.append(label).append(" ").append(std::to_string(error.number()));
  });
  report("a.Close", RunTimeError(70));
  EXPECT_EQ(heard, "a.Close 70");
  EXPECT_TRUE(set_report_hook(nullptr));
  report("a.Close", RunTimeError(70));
  EXPECT_EQ(heard, "a.Close 70");
  set_report_hook(before);
}

TEST(Report, AHookThatFailsIsNoFailureOfTheReporter) {
  const ReportHook before =
      set_report_hook([](std::string_view, const RunTimeError&) { throw std::runtime_error("no memory"); });
  EXPECT_NO_THROW(report("a", RunTimeError(70)));
  set_report_hook(before);
}

}  // namespace
}  // namespace automation
