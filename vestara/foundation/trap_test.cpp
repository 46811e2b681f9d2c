#include "vestara/foundation/trap.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/log_capture.h"

namespace vestara {
namespace {

using automation::RunTimeError;
using testing_support::LogCapture;

TEST(Trapped, EveryTypeOfErrorGivesTheFailureValueAndOneEntry) {
  const struct {
    std::function<void()> body;
    int32_t number;
    const char* description;
  } rows[] = {{[] { throw automation::no_current_record(); }, 3021, nullptr},
              {[] { throw RunTimeError(-5, "own text"); }, -5, "own text"},
              {[] { throw std::bad_alloc(); }, 7, "Out of memory"},
              {[] { throw std::runtime_error("went wrong"); }, -2147467259, "went wrong"},
              {[] { std::string().at(1); }, -2147467259, nullptr},
              {[] { throw refused(); }, 0, ""}};
  for (const auto& row : rows) {
    const LogCapture log;
    const int result = trapped("cLotto.X()", -1, [&] {
      row.body();
      return 5;
    });
    EXPECT_EQ(result, -1);
    const auto entries = log.entries();
    ASSERT_EQ(entries.size(), 1U) << row.number;
    EXPECT_EQ(entries[0].label, "cLotto.X()");
    EXPECT_EQ(entries[0].number, row.number);
    if (row.description) {
      EXPECT_EQ(entries[0].description, row.description);
    }
  }
}

TEST(Trapped, ResultOfABodyThatEndsWell) {
  const LogCapture log;
  EXPECT_EQ(trapped("a()", std::string("failed"), [] { return "fine"; }), "fine");
  bool ran = false;
  trapped("a()", [&] { ran = true; });
  EXPECT_TRUE(ran);
  EXPECT_EQ(log.bytes(), "");
}

TEST(Trapped, InnermostMemberLogsAlone) {
  LogCapture log;
  trapped("outer()", [] { trapped("inner()", [] { throw automation::overflow(); }); });
  EXPECT_EQ(log.take(), std::vector<std::string>{"inner() 6"});
  EXPECT_TRUE(log.entries().empty());
}

TEST(Trapped, WhatTheBodyDidStaysDone) {
  const LogCapture log;
  int done = 0;
  trapped("a()", [&] {
    done = 1;
    throw automation::overflow();
  });
  EXPECT_EQ(done, 1);
}

}  // namespace
}  // namespace vestara
