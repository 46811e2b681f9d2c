#include "vestara/files/row_reader.h"

#include <gtest/gtest.h>

#include "automation/date.h"

namespace vestara {
namespace {

RowFields usual() { return {"1939-01-07", "BA", {"58", "22", "47", "49", "69"}, {}}; }

TEST(RowReader, ReadsDates) {
  struct Row {
    const char* text;
    const char* iso;
  };
  RowReader reader;
  for (const Row& row : {Row{"1939/01/07", "1939-01-07"},
                         {"1871-01-07", "1871-01-07"},
                         {"7/1/1939", "1939-01-07"},
                         {"07.01.1939", "1939-01-07"},
                         {" 2026-08-21 ", "2026-08-21"},
                         {"1899-12-30", "1899-12-30"},
                         {"29/02/2024", "2024-02-29"},
                         {"1939-01-07 00:00:00", "1939-01-07"}}) {
    RowFields fields = usual();
    fields.date = row.text;
    std::string reason;
    const auto read = reader.read(fields, reason);
    ASSERT_TRUE(read) << row.text << ": " << reason;
    EXPECT_EQ(automation::iso_day(automation::Date::from_day(read->day)), row.iso);
  }
}

TEST(RowReader, KeepsOrderOfExtraction) {
  std::string reason;
  RowFields fields = usual();
  fields.numbers = {"90", "01", " 5 ", "4", "3"};
  fields.wheel = "nz";
  fields.contest = "12";
  const auto row = RowReader().read(fields, reason);
  ASSERT_TRUE(row) << reason;
  EXPECT_EQ(row->numbers, (std::array<int8_t, 5>{90, 1, 5, 4, 3}));
  EXPECT_EQ(row->wheel, 11);
  EXPECT_EQ(row->contest, 12);
}

TEST(RowReader, SaysWhatIsWrong) {
  struct Row {
    RowFields fields;
    const char* reason;
  };
  const auto date = [](const char* text) { return RowFields{text, "BA", {"1", "2", "3", "4", "5"}, {}}; };
  const auto wheel = [](const char* text) { return RowFields{"1939-01-07", text, {"1", "2", "3", "4", "5"}, {}}; };
  const auto fifth = [](const char* text) { return RowFields{"1939-01-07", "BA", {"1", "2", "3", "4", text}, {}}; };
  const auto contest = [](const char* text) { return RowFields{"1939-01-07", "BA", {"1", "2", "3", "4", "5"}, text}; };
  const std::vector<Row> rows{{date("1939-02-30"), "\"1939-02-30\" is no date"},
                              {date("1900-02-29"), "\"1900-02-29\" is no date"},
                              {date("39-01-07"), "\"39-01-07\" is no date"},
                              {date(""), "\"\" is no date"},
                              {date("1939-13-01"), "\"1939-13-01\" is no date"},
                              {date("1939-01-07 10:00"), "\"1939-01-07 10:00\" is no date"},
                              {date("00:00"), "\"00:00\" is no date"},
                              {date("date"), "\"date\" is no date"},
                              {wheel("XX"), "\"XX\" is no wheel"},
                              {wheel(""), "\"\" is no wheel"},
                              {fifth("0"), "number 0 is not one of 1 to 90"},
                              {fifth("91"), "number 91 is not one of 1 to 90"},
                              {fifth("4"), "number 4 comes twice"},
                              {fifth("x"), "\"x\" is no number"},
                              {fifth("5.0"), "\"5.0\" is no number"},
                              {fifth("-5"), "\"-5\" is no number"},
                              {fifth("99999999999"), "\"99999999999\" is no number"},
                              {fifth(""), "\"\" is no number"},
                              {contest("x"), "contest \"x\" is no number"},
                              {contest("32768"), "contest \"32768\" is no number"},
                              {contest("-1"), "contest \"-1\" is no number"}};
  for (const Row& row : rows) {
    std::string reason;
    EXPECT_FALSE(RowReader().read(row.fields, reason)) << row.reason;
    EXPECT_EQ(reason.substr(0, std::string_view(row.reason).size()), row.reason);
  }
}

TEST(RowReader, AWrongDateIsNotRemembered) {
  RowReader reader;
  std::string reason;
  RowFields fields = usual();
  for (const bool right : {true, false, true, false}) {
    fields.date = right ? "1939-01-07" : "1939-01-32";
    EXPECT_EQ(reader.read(fields, reason).has_value(), right);
  }
}

}  // namespace
}  // namespace vestara
