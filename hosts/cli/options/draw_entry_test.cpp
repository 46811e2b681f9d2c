#include "hosts/cli/options/draw_entry.h"

#include <gtest/gtest.h>

#include "hosts/cli/failure.h"
#include "vestara/draws/calendar.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/files/row_reader.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

int32_t day_of(const char* date) { return *parse_day(date); }

/// "BA 1 2 3 4 5|" for each row, or the message.
std::string read(const std::string& line, const char* date) {
  std::string text;
  try {
    for (const DrawRow& row : read_draw_line(line, day_of(date))) {
      text += wheel_code(row.wheel);
      for (const int8_t number : row.numbers) text += " " + std::to_string(number);
      text += "|";
    }
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.kind(), FailureKind::argument);
    const std::string what = failure.what();
    return what.substr(0, what.find(';'));
  }
  return text;
}

std::string numbers(int32_t count) {
  std::string line;
  for (int32_t i = 0; i < count; ++i) line += (i == 0 ? "" : " ") + std::to_string(1 + i);
  return line;
}

TEST(DrawEntry, ReadsALine) {
  struct Row {
    std::string line;
    const char* date;
    const char* text;
  };
  for (const Row& row : {Row{"VE 53,31,88,28,77", "2005-02-09", "VE 53 31 88 28 77|"},
                         Row{"ve;53;31;88;28;77;Roma;1;2;3;4;5", "2005-02-09", "RM 1 2 3 4 5|VE 53 31 88 28 77|"},
                         Row{numbers(35), "1871-01-07",
                             "FI 1 2 3 4 5|MI 6 7 8 9 10|NA 11 12 13 14 15|PA 16 17 18 19 20|RM 21 22 23 24 25|"
                             "TO 26 27 28 29 30|VE 31 32 33 34 35|"},
                         Row{numbers(35), "1900-01-06", "--numbers: these are 35 numbers"},
                         Row{"53,31,88,28,77", "2005-02-09", "--numbers: these are 5 numbers"},
                         Row{" , ", "2005-02-09", "--numbers: none given"},
                         Row{"VE 53,31,88,28", "2005-02-09", "--numbers: VE has fewer than five"},
                         Row{"VE 53,31,88,28,77 5", "2005-02-09", "--numbers: \"5\" stands where a wheel should"},
                         Row{"VE 53,31,88,28,91", "2005-02-09", "--numbers: VE: number 91 is not one of 1 to 90"},
                         Row{"VE 1 2 3 4 5 VE 1 2 3 4 5", "2005-02-09", "--numbers: VE comes twice"}})
    EXPECT_EQ(read(row.line, row.date), row.text);
}

TEST(DrawEntry, TheWheelsOfADay) {
  struct Row {
    const char* date;
    size_t wheels;
  };
  for (const Row& row : {Row{"1871-01-07", 7}, Row{"1874-04-25", 7}, Row{"1874-05-02", 8}, Row{"1939-07-01", 8},
                         Row{"1939-07-08", 10}, Row{"2005-04-30", 10}, Row{"2005-05-04", 11}, Row{"2026-01-03", 11}})
    EXPECT_EQ(wheels_of_day(day_of(row.date)).size(), row.wheels) << row.date;
}

TEST(DrawEntry, RefusesWheelsThatThereWereNot) {
  struct Row {
    const char* date;
    std::vector<int8_t> wheels;
    const char* refused;
    const char* missing;
  };
  for (const Row& row :
       {Row{"2005-04-30", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, "", ""},
        Row{"2005-04-30", {1, 11}, "--RN does not go with 2005-04-30; its first draw was on 2005-05-04", ""},
        Row{"1939-07-01", {2}, "--CA does not go with 1939-07-01; its first draw was on 1939-07-08", ""},
        Row{"1944-05-06", {1, 2, 3, 4, 5, 6, 7, 8}, "", "TO, VE"},
        Row{"2005-05-04",
            {1, 2, 3, 4, 5, 6, 7, 8, 9, 10},
            "not given: --RN; a draw since 2005-05-04 has all eleven wheels",
            ""}}) {
    std::vector<DrawRow> rows;
    for (const int8_t wheel : row.wheels) rows.push_back({day_of(row.date), 0, wheel, {1, 2, 3, 4, 5}});
    std::string refused;
    try {
      require_drawn_wheels(rows, day_of(row.date));
      EXPECT_EQ(missing_wheels(rows, day_of(row.date)), row.missing) << row.date;
    } catch (const Failure& failure) {
      refused = failure.what();
    }
    EXPECT_EQ(refused, row.refused);
  }
}

}  // namespace
}  // namespace vestara::host
