#include "vestara/distances/gap_list.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"

namespace vestara {
namespace {

using testing_support::day;
using testing_support::error_of;

/// A hit on a wheel.
void add(GapList& gaps, const std::string& wheel) { gaps.add({.date = day(2026, 1, 2), .wheel = wheel}, 0); }

TEST(GapList, TellsSoManyAliasesApartAsSixteenBitsCount) {
  GapList gaps;
  for (int32_t i = 0; i <= UINT16_MAX; ++i) add(gaps, "w" + std::to_string(i));
  EXPECT_EQ(error_of([&] { add(gaps, "one more"); }), 6);
  EXPECT_EQ(gaps.size(), 65536);
  add(gaps, "w65535");
  EXPECT_EQ(gaps.gap(1).wheel, "w0");
  EXPECT_EQ(gaps.gap(65536).wheel, "w65535");
  EXPECT_EQ(gaps.gap(65537).wheel, "w65535");
  gaps.restart(DateOrder::oldest_first);
  add(gaps, "one more");
  EXPECT_EQ(gaps.gap(1).wheel, "one more");
}

}  // namespace
}  // namespace vestara
