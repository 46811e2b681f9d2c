#include "vestara/foundation/draw_columns.h"

#include <gtest/gtest.h>

#include "tests/support/recordset.h"
#include "tests/support/values.h"

namespace vestara {
namespace {

using testing_support::error_of;
using testing_support::MemoryRecordSet;

TEST(DrawColumns, AreFoundByNameInTheOrderTheyWereDrawn) {
  MemoryRecordSet rows({{"id", "ESTR5", "s.estr4", "estr3", "estr2", "Estr1", "storico.Ruota"},
                        {{1, 50, 40, 30, 20, 10, "BA"}, {2, 55, 45, 35, 25, 15, "RN"}}});
  const DrawColumns columns(rows);
  rows.move_next();
  EXPECT_EQ(columns.wheel.alias(rows), "RN");
  int32_t expected = 5;
  for (const Column number : columns.numbers) EXPECT_EQ(rows.whole_number(number), expected += 10);
  EXPECT_EQ(number_columns(rows)[4].index, 1);
}

TEST(DrawColumns, EveryOneMustBeThere) {
  const std::vector<std::string> all{"ruota", "estr1", "estr2", "estr3", "estr4", "estr5"};
  for (const auto& missing : all) {
    auto columns = all;
    std::erase(columns, missing);
    MemoryRecordSet rows({columns, {}});
    EXPECT_EQ(error_of([&] { DrawColumns{rows}; }), 3265) << missing;
    EXPECT_EQ(error_of([&] { number_columns(rows); }), missing == "ruota" ? 0 : 3265) << missing;
  }
}

}  // namespace
}  // namespace vestara
