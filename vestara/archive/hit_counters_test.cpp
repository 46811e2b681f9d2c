#include "vestara/archive/hit_counters.h"

#include <gtest/gtest.h>

#include "tests/support/recordset.h"
#include "tests/support/values.h"

namespace vestara {
namespace {

using automation::Null;
using automation::Variant;
using testing_support::error_of;
using testing_support::MemoryRecordSet;

TEST(HitCounters, CombinationsInsideEveryRow) {
  const struct {
    const char* what;
    HitCountTable table;
    HitCounters expected;
  } rows[] = {{"nothing", {}, {0, 0, 0, 0, 0}},
              {"rows without a hit do not count", {9, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}},
              {"one", {0, 1, 0, 0, 0, 0}, {1, 0, 0, 0, 0}},
              {"two", {0, 0, 1, 0, 0, 0}, {2, 1, 0, 0, 0}},
              {"three", {0, 0, 0, 1, 0, 0}, {3, 3, 1, 0, 0}},
              {"four", {0, 0, 0, 0, 1, 0}, {4, 6, 4, 1, 0}},
              {"five", {0, 0, 0, 0, 0, 1}, {5, 10, 10, 5, 1}},
              {"all kinds", {7, 100, 20, 3, 2, 1}, {162, 51, 21, 7, 1}},
              {"up to 32 bits", {0, 2147483647, 0, 0, 0, 0}, {2147483647, 0, 0, 0, 0}}};
  for (const auto& row : rows) EXPECT_EQ(hit_counters(row.table), row.expected) << row.what;
}

TEST(HitCounters, OverflowBeyond32Bits) {
  for (const HitCountTable& table : {HitCountTable{0, 2147483647, 1, 0, 0, 0}, HitCountTable{0, 0, 0, 0, 0, 214748365},
                                     HitCountTable{0, 0, 1073741824, 0, 0, 0}})
    EXPECT_EQ(error_of([&] { hit_counters(table); }), 6);
}

MemoryRecordSet rows_of(const std::vector<Variant>& hits) {
  testing_support::Table table{.columns = {"id", "s2.numeriTrovati"}};
  for (const auto& value : hits) table.rows.push_back({0, value});
  return MemoryRecordSet(std::move(table));
}

TEST(TallyHits, CountsTheRowsByHits) {
  const struct {
    const char* what;
    std::vector<Variant> hits;
    HitCountTable expected;
  } rows[] = {{"no rows", {}, {}},
              {"numbers", {0, 1, 1, 2, 3, 4, 5, 5}, {1, 2, 1, 1, 1, 2}},
              {"texts", {"2", " 3", "4x", "x"}, {1, 0, 1, 1, 1, 0}},
              {"halves to even", {0.5, 1.5, 2.5, 5.5 - 0.001}, {1, 0, 2, 0, 0, 1}}};
  for (const auto& row : rows) {
    auto set = rows_of(row.hits);
    EXPECT_EQ(tally_hits(set), row.expected) << row.what;
    if (!row.hits.empty()) {
      EXPECT_EQ(set.value({1}), row.hits.front()) << "not back at the first row: " << row.what;
    }
  }
}

TEST(TallyHits, RowsThatFail) {
  const struct {
    Variant hits;
    int32_t number;
  } rows[] = {{6, 9}, {-1, 9}, {5.5, 9}, {"7", 9}, {Null{}, 94}, {3e9, 6}};
  for (const auto& row : rows) {
    auto set = rows_of({1, row.hits, 1});
    EXPECT_EQ(error_of([&] { tally_hits(set); }), row.number) << testing::PrintToString(row.hits);
  }
  MemoryRecordSet other({.columns = {"id"}, .rows = {{1}}});
  EXPECT_EQ(error_of([&] { tally_hits(other); }), 3265);
}

}  // namespace
}  // namespace vestara
