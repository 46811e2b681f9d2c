#include "hosts/cli/programming/variant_json.h"

#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "dorvane/connector.h"
#include "tests/support/values.h"
#include "vestara/archive/lotto.h"

namespace vestara::host {
namespace {

using automation::Array;
using automation::Variant;
using automation::VariantKind;

TEST(VariantJson, Values) {
  struct Row {
    Variant value;
    const char* json;
  };
  const std::vector<Row> rows{{Variant(), "null"},
                              {automation::Null{}, "null"},
                              {automation::Missing{}, "null"},
                              {automation::Ref<automation::Object>(), "null"},
                              {true, "true"},
                              {int16_t{-3}, "-3"},
                              {int32_t{100000}, "100000"},
                              {0.1F, "0.1"},
                              {2.0, "2.0"},
                              {std::nan(""), "null"},
                              {testing_support::day(2005, 2, 9), "\"2005-02-09\""},
                              {testing_support::moment({1871, 1, 7, 9, 5, 0}), "\"1871-01-07T09:05:00\""},
                              {"a\"\n", R"("a\"\n")"},
                              {automation::make<cLotto>(), R"({"object":"Vestara.cLotto"})"}};
  for (const Row& row : rows) EXPECT_EQ(json_of(row.value).dump(), row.json);
}

TEST(VariantJson, ArraysNestByTheirIndexes) {
  EXPECT_EQ(json_of(Array()).dump(), "[]");
  EXPECT_EQ(json_of(Array(VariantKind::long_integer, 1, {int32_t{5}, int32_t{6}})).dump(), "[5,6]");
  Array grid(VariantKind::empty, {{0, 2}, {1, 3}});
  for (int32_t column = 0; column < 2; ++column)
    for (int32_t row = 1; row < 4; ++row) grid.at(std::vector<int32_t>{column, row}) = Variant(column * 10 + row);
  EXPECT_EQ(json_of(grid).dump(), "[[1,2,3],[11,12,13]]");
}

TEST(VariantJson, RecordSetsAreRows) {
  dorvane::DbConnector connector;
  ASSERT_TRUE(connector.Open("sqlite::memory:"));
  const auto rows = connector.GetRecordset("SELECT 1 AS n,NULL AS n,'x' AS t UNION ALL SELECT 2,3,'y'");
  ASSERT_TRUE(rows);
  EXPECT_EQ(json_of(rows, 1).dump(), R"([{"n":1,"n_2":null,"t":"x"}])");
  EXPECT_EQ(json_of(rows).dump(), R"([{"n":2,"n_2":3,"t":"y"}])");
  EXPECT_EQ(json_of(rows).dump(), "[]");
  rows->close();
  EXPECT_EQ(json_of(rows).dump(), R"({"object":"Dorvane.Recordset"})");
}

}  // namespace
}  // namespace vestara::host
