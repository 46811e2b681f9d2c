#include "hosts/cli/terminal/stoppable_call.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "automation/yield.h"
#include "tests/support/default_interrupts.h"

namespace vestara::host {
namespace {

TEST(StoppableCall, AnInterruptEndsTheLoopThatYields) {
  const testing_support::DefaultInterrupts interrupts;
  int32_t calls = 0;
  const auto before = automation::set_yield_hook([&] { ++calls; });
  {
    const StoppableCall stoppable;
    EXPECT_NO_THROW(automation::yield_to_host());
    std::raise(SIGINT);
    EXPECT_THROW(automation::yield_to_host(), automation::RunTimeError);
    EXPECT_EQ(calls, 0);
  }
  automation::yield_to_host();
  EXPECT_EQ(calls, 1);
  automation::set_yield_hook(before);
}

}  // namespace
}  // namespace vestara::host
