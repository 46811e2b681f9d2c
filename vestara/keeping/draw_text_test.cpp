#include "vestara/keeping/draw_text.h"

#include <gtest/gtest.h>

#include "automation/coercion.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"

namespace vestara {
namespace {

using automation::date_in;
using automation::Empty;
using automation::Missing;
using automation::Null;
using automation::Variant;
using testing_support::day;
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
    EXPECT_EQ(draw_delete_statement(date_in(row.date)), "DELETE FROM storico WHERE dtEstr =" + row.literal) << row.what;
    EXPECT_EQ(draw_select_statement(date_in(row.date)), "SELECT * FROM storico WHERE dtEstr =" + row.literal)
        << row.what;
  }
  EXPECT_EQ(log.bytes(), "");
}

constexpr const char* inserting =
    "INSERT INTO storico (dtEstr,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero)VALUES(";

TEST(DrawText, Insert) {
  const struct {
    const char* what;
    Variant date;
    int16_t contest;
    const char *alias, *numbers, *values;
  } rows[] = {
      {"a wheel", day(2026, 11, 15), 180, "BA", "5,12,33,45,78", "'2026-11-15','BA',5,12,33,45,78,180)"},
      {"an old draw", day(1871, 1, 7), 1, "RN", "1,2,3,4,5", "'1871-01-07','RN',1,2,3,4,5,1)"},
      {"time of day", moment({2026, 11, 15, 20}), 180, "VE", "1,2,3,4,5", "'2026-11-15','VE',1,2,3,4,5,180)"},
      {"date as a text, no contest", "15.11.2026 20.30", 0, "CA", "1,2,3,4,5", "'2026-11-15','CA',1,2,3,4,5,0)"},
      {"bad date, negative contest", "soon", -1, "FI", "1,2,3,4,5", "NULL,'FI',1,2,3,4,5,-1)"},
      {"no date", Empty{}, 32767, "GE", "0,0,0,0,0", "NULL,'GE',0,0,0,0,0,32767)"},
      {"one value too few", day(2026, 11, 15), 180, "MI", "1,3,4,5", "'2026-11-15','MI',1,3,4,5,180)"},
      {"empty wheel", day(2026, 11, 15), 180, "NA", "", "'2026-11-15','NA',,180)"}};
  for (const auto& row : rows)
    EXPECT_EQ(draw_insert_statement(date_in(row.date), row.alias, row.numbers, row.contest),
              std::string(inserting) + row.values)
        << row.what;
}

}  // namespace
}  // namespace vestara
