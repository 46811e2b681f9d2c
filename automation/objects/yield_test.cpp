#include "automation/yield.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "tests/support/values.h"

namespace automation {
namespace {

TEST(Yield, CallsTheHookAndNothingWithoutOne) {
  int calls = 0;
  yield_to_host();
  EXPECT_FALSE(set_yield_hook([&] { ++calls; }));
  yield_to_host();
  yield_to_host();
  EXPECT_EQ(calls, 2);

  const auto before = set_yield_hook([&] { calls += 10; });
  before();
  yield_to_host();
  EXPECT_EQ(calls, 13);
  EXPECT_TRUE(set_yield_hook({}));
  yield_to_host();
  EXPECT_EQ(calls, 13);
}

TEST(Yield, HookMayRaise) {
  set_yield_hook([] { throw overflow(); });
  EXPECT_EQ(testing_support::error_of([] { yield_to_host(); }), 6);
  set_yield_hook({});
}

TEST(Yield, HookMayTakeItselfAway) {
  int calls = 0;
  set_yield_hook([&calls, kept = std::string(100, 'x')] {
    set_yield_hook({});
    calls += static_cast<int>(kept.size());
  });
  yield_to_host();
  yield_to_host();
  EXPECT_EQ(calls, 100);
}

}  // namespace
}  // namespace automation
