#include "hosts/cli/terminal/interruption.h"

#include <gtest/gtest.h>

#include "tests/support/default_interrupts.h"

namespace vestara::host {
namespace {

TEST(Interruption, IsNotedOnceAndForgottenByTheNext) {
  const testing_support::DefaultInterrupts interrupts;
  {
    const Interruption interruption;
    EXPECT_FALSE(Interruption::requested());
    std::raise(SIGINT);
    EXPECT_TRUE(Interruption::requested());
  }
  EXPECT_FALSE(Interruption::requested());
  const Interruption next;
  EXPECT_FALSE(Interruption::requested());
}

TEST(Interruption, AnIgnoredInterruptStaysIgnored) {
  const auto before = std::signal(SIGINT, SIG_IGN);
  {
    const Interruption interruption;
    std::raise(SIGINT);
    EXPECT_FALSE(Interruption::requested());
  }
  EXPECT_EQ(std::signal(SIGINT, before), SIG_IGN);
}

}  // namespace
}  // namespace vestara::host
