#include "vestara/archive/draw_text.h"

#include <gtest/gtest.h>

#include "automation/error.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"

namespace vestara {
namespace {

using automation::Empty;
using automation::Missing;
using automation::Null;
using automation::Variant;
using testing_support::day;
using testing_support::error_of;
using testing_support::LogCapture;
using testing_support::moment;

TEST(DrawText, DeleteAndSelectOfEveryKindOfDate) {
  const struct {
    const char* what;
    Variant date;
    std::string literal;
  } rows[] = {{"date", day(2026, 11, 15), "'2026-11-15'"},
              {"the oldest draw", day(1871, 1, 7), "'1871-01-07'"},
              {"time of day", moment({2026, 11, 15, 20, 30, 5}), "'2026-11-15'"},
              {"text", "15/11/2026", "'2026-11-15'"},
              {"text, year first", "2026-11-15", "'2026-11-15'"},
              {"impossible day", "31/02/2026", "NULL"},
              {"statement", "2026-11-15' OR 1=1 --", "NULL"},
              {"empty text", "", "NULL"},
              {"Empty", Empty{}, "NULL"},
              {"Null", Null{}, "NULL"},
              {"missing", Missing{}, "NULL"}};
  const LogCapture log;
  for (const auto& row : rows) {
    EXPECT_EQ(draw_delete_statement(row.date), "DELETE FROM storico WHERE dtEstr =" + row.literal) << row.what;
    EXPECT_EQ(draw_select_statement(row.date), "SELECT * FROM storico WHERE dtEstr =" + row.literal) << row.what;
  }
  EXPECT_EQ(log.bytes(), "");
}

constexpr const char* inserting =
    "INSERT INTO storico (dtEstr,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero)VALUES(";

TEST(DrawText, Insert) {
  const std::vector<const char*> five{"1", "2", "3", "4", "5"};
  const Variant date = day(2026, 11, 15);
  const struct {
    const char* what;
    Variant date;
    int16_t contest;
    int32_t wheel;
    std::vector<const char*> numbers;
    const char* values;
  } rows[] = {{"first wheel", date, 180, 1, {"5", "12", "33", "45", "78"}, "'2026-11-15','BA',5,12,33,45,78,180)"},
              {"last wheel", day(1871, 1, 7), 1, 11, five, "'1871-01-07','RN',1,2,3,4,5,1)"},
              {"time of day", moment({2026, 11, 15, 20}), 180, 10, five, "'2026-11-15','VE',1,2,3,4,5,180)"},
              {"date as a text, no contest", "15.11.2026 20.30", 0, 2, five, "'2026-11-15','CA',1,2,3,4,5,0)"},
              {"bad date, negative contest", "soon", -1, 3, five, "NULL,'FI',1,2,3,4,5,-1)"},
              {"no date", Empty{}, 32767, 4, {"0", "0", "0", "0", "0"}, "NULL,'GE',0,0,0,0,0,32767)"},
              {"one value too few", date, 180, 5, {"1", "", "3", "4", "5"}, "'2026-11-15','MI',1,3,4,5,180)"},
              {"empty wheel", date, 180, 6, {}, "'2026-11-15','NA',,180)"}};
  const LogCapture log;
  const testing_support::CanonicalWheels wheels;
  for (const auto& row : rows) {
    cEstrazione draw;
    draw.DataEstrazione(row.date);
    draw.NumeroConcorso(row.contest);
    int32_t position = 2;
    for (const char* number : row.numbers) draw.AddNumero(row.wheel, position++, number);
    EXPECT_EQ(draw_insert_statement(draw, row.wheel), std::string(inserting) + row.values) << row.what;
  }
  EXPECT_EQ(log.bytes(), "");
}

TEST(DrawText, InsertBeforeTheWheelsAreLoadedHasAnEmptyAlias) {
  const testing_support::UnloadedWheels wheels;
  const cEstrazione draw;
  EXPECT_EQ(draw_insert_statement(draw, 1), std::string(inserting) + "NULL,'',,0)");
  for (const int32_t wheel : {0, 12}) EXPECT_EQ(error_of([&] { draw_insert_statement(draw, wheel); }), 9);
}

}  // namespace
}  // namespace vestara
