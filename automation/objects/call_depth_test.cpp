#include "automation/objects/call_depth.h"

#include <gtest/gtest.h>

#include <list>
#include <thread>

#include "tests/support/values.h"

namespace automation {
namespace {

using testing_support::error_of;

TEST(CallDepth, OneTooManyRaisesAndMakesNoRoomSmaller) {
  const struct {
    Caller caller;
    int32_t most;
  } rows[] = {{Caller::host, 64}, {Caller::library, 68}};
  for (const auto& row : rows) {
    std::list<CallDepth> running;
    for (int32_t i = 0; i < row.most; ++i)
      EXPECT_EQ(error_of([&] { running.emplace_back(row.caller); }), 0) << row.most << ", " << i;
    for (int turn = 0; turn < 2; ++turn) {
      EXPECT_EQ(error_of([&] { running.emplace_back(row.caller); }), 28) << row.most;
      EXPECT_EQ(error_of([&] { running.emplace_back(Caller::host); }), 28) << row.most;
    }
    running.pop_back();
    EXPECT_EQ(error_of([&] { running.emplace_back(row.caller); }), 0) << row.most;
  }
}

TEST(CallDepth, EachThreadHasItsOwn) {
  std::list<CallDepth> running;
  for (int32_t i = 0; i < deepest_call; ++i) running.emplace_back(Caller::host);
  std::thread([] { EXPECT_EQ(error_of([] { const CallDepth first(Caller::host); }), 0); }).join();
}

}  // namespace
}  // namespace automation
