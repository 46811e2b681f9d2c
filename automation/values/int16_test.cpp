#include "automation/int16.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"

namespace automation {
namespace {

using testing_support::outcome;

static_assert(Int16(2) + Int16(3) == Int16(5) && Int16(2) < Int16(3) && Int16() == Int16(0));

TEST(Int16, EveryStepIsChecked) {
  const Int16 most(32767), least(-32768);
  const struct {
    const char* what;
    std::string got, expected;
  } rows[] = {{"add", outcome([] { return Int16(32766) + Int16(1); }), "Integer 32767"},
              {"add beyond", outcome([&] { return most + Int16(1); }), "error 6"},
              {"add below", outcome([&] { return least + Int16(-1); }), "error 6"},
              {"subtract", outcome([] { return Int16(-32767) - Int16(1); }), "Integer -32768"},
              {"subtract beyond", outcome([&] { return most - Int16(-1); }), "error 6"},
              {"subtract below", outcome([&] { return least - Int16(1); }), "error 6"},
              {"multiply", outcome([] { return Int16(181) * Int16(181); }), "Integer 32761"},
              {"multiply beyond", outcome([] { return Int16(182) * Int16(182); }), "error 6"},
              {"negate the least", outcome([&] { return least * Int16(-1); }), "error 6"},
              {"checked", outcome([] { return Int16::checked(-32768); }), "Integer -32768"},
              {"checked beyond", outcome([] { return Int16::checked(32768); }), "error 6"},
              {"long", outcome([] { return checked_long(2147483647); }), "Long 2147483647"},
              {"long beyond", outcome([] { return checked_long(2147483648); }), "error 6"},
              {"long below", outcome([] { return checked_long(-2147483649); }), "error 6"}};
  for (const auto& row : rows) EXPECT_EQ(row.got, row.expected) << row.what;
}

TEST(Int16, LastStepOfACounterOverflowsAndKeepsTheValue) {
  Int16 up(32767), down(-32768);
  EXPECT_EQ(testing_support::error_of([&] { ++up; }), 6);
  EXPECT_EQ(testing_support::error_of([&] { --down; }), 6);
  EXPECT_EQ(testing_support::error_of([&] { up += Int16(1); }), 6);
  EXPECT_EQ(testing_support::error_of([&] { down -= Int16(1); }), 6);
  EXPECT_EQ(up.value(), 32767);
  EXPECT_EQ(down.value(), -32768);
  EXPECT_EQ((--up).value(), 32766);
  EXPECT_EQ((++down).value(), -32767);
}

}  // namespace
}  // namespace automation
