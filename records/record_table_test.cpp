#include "records/record_table.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "automation/error.h"
#include "automation/object.h"

namespace records {
namespace {

using automation::Date;
using automation::InvokeKind;
using automation::Null;
using automation::Ref;
using automation::Variant;

Date day(int32_t year, int32_t month, int32_t day_of_month) { return *Date::from_civil(year, month, day_of_month); }

struct Figure {
  std::string wheel;
  int16_t number;
  int64_t draws;
  double expected;
  std::optional<float> z;
  std::optional<Date> last;
};

std::vector<Figure> figures() {
  return {{"BA", 90, 3, 0.5, 1.5F, day(1871, 1, 7)}, {"NA", 1, 5'000'000'000, 2, std::nullopt, std::nullopt}};
}

Ref<RecordSet> record_set_of(const std::vector<Figure>& rows) {
  RecordTable table;
  table.column("wheel", rows, &Figure::wheel);
  table.column("number", rows, &Figure::number);
  table.column("draws", rows, &Figure::draws);
  table.column("expected", rows, &Figure::expected);
  table.column("z", rows, &Figure::z);
  table.column("last", rows, &Figure::last);
  table.column("label", rows, [](const Figure& row) { return row.wheel + std::to_string(row.number); });
  return table.take();
}

using Values = std::vector<Variant>;

/// The values of the current row.
Values row_of(RecordSet& rows) {
  Values values;
  for (int32_t i = 0; i < rows.column_count(); ++i) values.push_back(rows.value({i}));
  return values;
}

TEST(RecordTable, GivesTypedValuesBack) {
  const auto rows = record_set_of(figures());
  ASSERT_EQ(rows->record_count(), 2);
  EXPECT_EQ(row_of(*rows), (Values{"BA", int32_t{90}, 3.0, 0.5, 1.5, day(1871, 1, 7), "BA90"}));
  rows->move_next();
  EXPECT_EQ(row_of(*rows), (Values{"NA", int32_t{1}, 5e9, 2.0, Null{}, Null{}, "NA1"}));
  rows->move_next();
  EXPECT_TRUE(rows->at_end());
}

TEST(RecordTable, TakesPlainValues) {
  RecordTable table;
  table.column("n", std::vector<int32_t>{3, 5});
  table.column("s", std::vector<const char*>{"1871-01-07", ""});
  const auto rows = table.take();
  EXPECT_EQ(row_of(*rows), (Values{int32_t{3}, "1871-01-07"})) << "a text stays a text";
  rows->move_last();
  EXPECT_EQ(row_of(*rows), (Values{int32_t{5}, ""}));
}

TEST(RecordTable, WithoutRowsHasItsColumns) {
  const auto rows = record_set_of({});
  EXPECT_TRUE(rows->at_end() && rows->at_start());
  EXPECT_EQ(rows->record_count(), 0);
  EXPECT_EQ(rows->column_name(rows->column("LAST")), "last");
}

TEST(RecordTable, IsWalkedByNameLikeEveryOther) {
  const auto rows = record_set_of(figures());
  std::vector<Variant> index{"number"};
  EXPECT_EQ(rows->call("RecordCount", InvokeKind::get, {}), Variant(int32_t{2}));
  const Variant field = rows->call("Fields", InvokeKind::get, index);
  EXPECT_EQ((*field.get_if<Ref<automation::Object>>())->default_value(), Variant(int32_t{90}));
}

TEST(RecordTable, RefusesColumnsOfOtherLengths) {
  RecordTable table;
  table.column("n", std::vector<int32_t>{1, 2});
  try {
    table.column("m", std::vector<int32_t>{1});
    FAIL() << "a shorter column was taken";
  } catch (const automation::RunTimeError& error) {
    EXPECT_EQ(error.number(), 5);
    EXPECT_EQ(error.description(), "column 'm' has 1 rows; the columns before it have 2");
  }
  EXPECT_EQ(table.take()->column_count(), 1);
}

TEST(RecordTable, BeginsAnewAfterTake) {
  RecordTable table;
  table.column("n", std::vector<int32_t>{1, 2});
  table.take();
  table.column("m", std::vector<int32_t>{1});
  const auto rows = table.take();
  EXPECT_EQ(rows->column_count(), 1);
  EXPECT_EQ(rows->record_count(), 1);
}

}  // namespace
}  // namespace records
