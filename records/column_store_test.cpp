#include "records/column_store.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/error.h"
#include "tests/support/values.h"

namespace records {
namespace {

using automation::Date;
using automation::Null;
using automation::Variant;

/// A value as an engine hands it over.
void append(ColumnStore& column, const Variant& value) {
  if (value.is_null()) return column.append_null();
  if (const auto* whole = value.get_if<int32_t>()) return column.append_whole(*whole);
  if (const auto* real = value.get_if<double>()) return column.append_real(*real);
  column.append_text(*value.get_if<std::string>());
}

Date day(int32_t year, int32_t month, int32_t day_of_month) { return *Date::from_civil(year, month, day_of_month); }

TEST(ColumnStore, GivesBackWhatItTook) {
  const Date first = day(1871, 1, 7);
  const Date with_time = *Date::from_civil({2005, 2, 9, 10, 30, 0});
  struct Row {
    const char* name;
    TextReading reading;
    std::vector<Variant> given;
    std::vector<Variant> expected;
  };
  const TextReading plain = TextReading::plain;
  const TextReading dates = TextReading::iso_dates;
  const std::vector<Row> rows{
      {"whole", plain, {1, Null{}, -5, 2147483647}, {1, Null{}, -5, 2147483647}},
      {"the ends of 32 bits", plain, {-2147483647 - 1, 2147483647}, {-2147483647 - 1, 2147483647}},
      {"Null first", plain, {Null{}, Null{}, 7}, {Null{}, Null{}, 7}},
      {"only Null", plain, {Null{}, Null{}}, {Null{}, Null{}}},
      {"Null, then real", plain, {Null{}, Null{}, 2.5, 1.5}, {Null{}, Null{}, 2.5, 1.5}},
      {"whole then real", plain, {1, Null{}, 2.5}, {1.0, Null{}, 2.5}},
      {"text", plain, {"BA", "BA", "", "a longer text", "BA"}, {"BA", "BA", "", "a longer text", "BA"}},
      {"Null text", plain, {Null{}, "x"}, {Null{}, "x"}},
      {"number in a text column", plain, {"x", 3, Null{}, 1.5}, {"x", 3, Null{}, 1.5}},
      {"text in a number column", plain, {3, "x"}, {3, "x"}},
      {"dates stay text when not asked for", plain, {"1871-01-07"}, {"1871-01-07"}},
      {"dates", dates, {"1871-01-07", "1871-01-07", Null{}, "2005-02-09"}, {first, first, Null{}, day(2005, 2, 9)}},
      {"a date with a time", dates, {"1871-01-07", "2005-02-09 10:30:00"}, {first, with_time}},
      {"a day, a moment, the same day",
       dates,
       {"1871-01-07", "2005-02-09 10:30:00", "1871-01-07", "1871-01-07"},
       {first, with_time, first, first}},
      {"a day, no date, the same day", dates, {"1871-01-07", "soon", "1871-01-07"}, {first, "soon", first}},
      {"no date in a date column", dates, {"1871-01-07", "soon", "1871-02-30"}, {first, "soon", "1871-02-30"}},
      {"a date in a text column", dates, {"soon", "1871-01-07"}, {"soon", first}},
      {"numbers in a date column", dates, {5}, {5}},
  };
  for (const Row& row : rows) {
    ColumnStore column(row.reading);
    for (const Variant& value : row.given) append(column, value);
    for (size_t i = 0; i < row.expected.size(); ++i) {
      EXPECT_TRUE(column.value(i) == row.expected[i]) << row.name << ", row " << i;
      EXPECT_EQ(column.is_null(i), row.expected[i].is_null()) << row.name << ", row " << i;
    }
  }
}

TEST(ColumnStore, NumbersBeyond32BitsBecomeDoubles) {
  ColumnStore column(TextReading::plain);
  column.append_whole(1);
  column.append_whole(int64_t{1} << 40);
  EXPECT_TRUE(column.value(0) == Variant(1.0));
  EXPECT_TRUE(column.value(1) == Variant(1099511627776.0));
  EXPECT_THROW(column.whole_number(1), automation::RunTimeError);
}

TEST(ColumnStore, ReadsNumbersThroughTheirText) {
  ColumnStore column(TextReading::plain);
  for (const Variant& value : std::vector<Variant>{"12 draws", "x", 2.5, 3.5, Null{}}) append(column, value);
  EXPECT_EQ(column.whole_number(0), 12);
  EXPECT_EQ(column.whole_number(1), 0);
  EXPECT_EQ(column.whole_number(2), 2);
  EXPECT_EQ(column.whole_number(3), 4);
  try {
    column.whole_number(4);
    FAIL();
  } catch (const automation::RunTimeError& error) {
    EXPECT_EQ(error.number(), 94);
  }
}

TEST(ColumnStore, NullIsNoNumberWhateverTheColumnHolds) {
  for (const Variant& other : std::vector<Variant>{7, 2.5, "1871-01-07", "x", Null{}}) {
    ColumnStore column(TextReading::iso_dates);
    for (const Variant& value : {other, Variant(Null{}), other}) append(column, value);
    EXPECT_EQ(testing_support::outcome([&] { return Variant(column.whole_number(1)); }), "error 94");
    EXPECT_EQ(testing_support::outcome([&] { return Variant(std::string(column.text(1))); }), "error 94");
  }
}

TEST(ColumnStore, KeepsManyDifferentShortTexts) {
  ColumnStore column(TextReading::plain);
  for (int i = 0; i < 2000; ++i) column.append_text("t" + std::to_string(i % 700));
  for (int i = 0; i < 2000; ++i) EXPECT_EQ(column.text(static_cast<size_t>(i)), "t" + std::to_string(i % 700));
}

TEST(ColumnStore, KeepsShortTextsApart) {
  const std::string nul(1, '\0');
  // Keys are of seven bytes and their count: what has eight is kept by itself.
  const std::vector<std::string> texts{
      "\x08"
      "abcdefg",
      "abcdefg",
      std::string(8, '\0'),
      std::string(7, '\0'),
      "",
      nul,
      nul + nul,
      "a",
      "a" + nul,
      nul + "a",
      "\1",
      "\2",
      "\xFF",
      "\2\1",
      "ab",
      "ba",
      "sevenby",
      "sevenbz",
      "eightbyt",
      "Sevenby",
      nul + "ab",
      "ab" + nul};
  ColumnStore column(TextReading::plain);
  for (int round = 0; round < 2; ++round)
    for (const std::string& text : texts) column.append_text(text);
  for (size_t i = 0; i < 2 * texts.size(); ++i) EXPECT_EQ(column.text(i), texts[i % texts.size()]) << i;
}

TEST(ColumnStore, TakesAnEmptyTextWithoutBytes) {
  // That is how the embedded engine hands an empty text over.
  ColumnStore column(TextReading::plain);
  column.append_text(std::string_view());
  EXPECT_TRUE(column.value(0) == Variant(""));
}

TEST(ColumnStore, NullBitsCrossWords) {
  ColumnStore column(TextReading::plain);
  for (int i = 0; i < 300; ++i) i % 3 == 0 ? column.append_null() : column.append_whole(i);
  for (int i = 0; i < 300; ++i) EXPECT_EQ(column.is_null(static_cast<size_t>(i)), i % 3 == 0) << i;
}

}  // namespace
}  // namespace records
