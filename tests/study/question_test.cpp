#include "tests/study/question.h"

#include <gtest/gtest.h>

#include <cmath>

#include "dorvane/connector.h"
#include "tests/support/values.h"

// What compares is compared: a difference that is not told would make every other test here worthless.

namespace study_test {
namespace {

using automation::Null;
using automation::Variant;
using testing_support::day;

Table one_row(std::vector<Variant> row) { return {{"wheel", "expected", "z"}, {std::move(row)}}; }

TEST(Difference, IsTold) {
  const Table wanted = one_row({"BA", 2.0, 0.0});
  const struct {
    Table seen;
    const char* told;  ///< the beginning; "" when there is no difference
  } rows[] = {{one_row({"BA", 2.0, 0.0}), ""},
              {one_row({"BA", 2.0 + 1.5e-9, 5e-10}), ""},
              {one_row({"BA", 2.0, 2e-9}), "row 0, column z"},
              {one_row({"BA", 2.0 + 3e-9, 0.0}), "row 0, column expected: wanted Double 2, seen Double 2.000000003"},
              {one_row({"ba", 2.0, 0.0}), "row 0, column wheel: wanted text BA, seen text ba"},
              {one_row({"BA", 2, 0.0}), "row 0, column expected: wanted Double 2, seen Long 2"},
              {one_row({"BA", 2.0, Null{}}), "row 0, column z: wanted Double 0, seen Null"},
              {one_row({"BA", std::nan(""), 0.0}), "row 0, column expected"},
              {{wanted.columns, {}}, "0 rows, not 1"},
              {{wanted.columns, {wanted.rows[0], wanted.rows[0]}}, "2 rows, not 1"},
              {{{"wheel", "z", "expected"}, wanted.rows}, "columns wheel expected z"}};
  for (const auto& row : rows) {
    const std::string told = difference(wanted, row.seen);
    EXPECT_EQ(told.substr(0, std::string(row.told).size()), row.told);
    EXPECT_EQ(told.empty(), std::string(row.told).empty()) << told;
  }
}

TEST(Rows, AreReadBothWays) {
  const auto connector = automation::make<dorvane::DbConnector>();
  ASSERT_TRUE(connector->Open("sqlite::memory:")) << connector->LastError();
  const Table wanted{{"wheel", "count", "z", "last"}, {{"BA", 5, 0.25, day(2000, 1, 2)}, {"NA", 6, Null{}, Null{}}}};
  ASSERT_TRUE(connector->ExecuteSql("CREATE TABLE answer(wheel TEXT, count INTEGER, z DOUBLE, last DATE)"));
  ASSERT_TRUE(connector->ExecuteSql("INSERT INTO answer VALUES('BA',5,0.25,'2000-01-02'),('NA',6,NULL,NULL)"));
  for (const Walk walk : {Walk::by_interface, Walk::by_name}) {
    const Variant answer = connector->GetRecordset("SELECT wheel,count,z,last FROM answer");
    EXPECT_EQ(difference(wanted, rows_of(answer, walk)), "");
  }
}

}  // namespace
}  // namespace study_test
