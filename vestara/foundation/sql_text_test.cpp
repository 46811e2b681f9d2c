#include "vestara/foundation/sql_text.h"

#include <gtest/gtest.h>

#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"
#include "vestara/foundation/selection.h"

namespace vestara {
namespace {

using automation::Array;
using automation::Date;
using automation::Empty;
using automation::Missing;
using automation::Null;
using automation::Ref;
using automation::Variant;
using automation::VariantKind;
using testing_support::CanonicalWheels;
using testing_support::day;
using testing_support::describe;
using testing_support::LogCapture;
using testing_support::moment;
using testing_support::UnloadedWheels;

const Variant date = day(2026, 11, 15);
const Variant date_and_time = moment({2026, 11, 15, 10, 14, 16});
const Variant time_of_day = moment({1899, 12, 30, 10, 14, 16});
const Variant last_moment = Date::from_serial(46341.9999999999);
const Variant midnight = day(1899, 12, 30);

TEST(SqlDateTime, Literals) {
  const struct {
    const char* what;
    Variant date_part, time_part;
    const char* expected;
  } rows[] = {
      {"both omitted", Missing{}, Missing{}, "NULL"},
      {"date and time", date, time_of_day, "'2026-11-15 10:14:16'"},
      {"date only", date, Missing{}, "'2026-11-15'"},
      {"time only", Missing{}, time_of_day, "'10:14:16'"},
      {"a text that is not a date and a valid time", "tomorrow", time_of_day, "'10:14:16'"},
      {"a date and a time that is none", date, "soon", "'2026-11-15'"},
      {"neither valid", "x", "y", "NULL"},
      {"the time of a date part stays out", date_and_time, Missing{}, "'2026-11-15'"},
      {"the date of a time part stays out", Missing{}, date_and_time, "'10:14:16'"},
      {"the same value for both", date_and_time, date_and_time, "'2026-11-15 10:14:16'"},
      {"midnight is a time", date, midnight, "'2026-11-15 00:00:00'"},
      {"texts", "15/11/2026", "10:14:16", "'2026-11-15 10:14:16'"},
      {"text with points", "15.11.2026", Missing{}, "'2026-11-15'"},
      {"text with a time of day", "15/11/2026 10:14:16", Missing{}, "'2026-11-15'"},
      {"text, year first", "2026-11-15", Missing{}, "'2026-11-15'"},
      {"impossible day", "31/04/2026", Missing{}, "NULL"},
      {"two-digit year", "15/11/26", Missing{}, "NULL"},
      {"Null", Null{}, Null{}, "NULL"},
      {"Empty", Empty{}, Empty{}, "NULL"},
      {"empty text", "", "", "NULL"},
      {"number", 46341, 0.5, "NULL"},
      {"number in a text", "46341", Missing{}, "NULL"},
      {"a year of three digits", day(871, 1, 2), Missing{}, "'0871-01-02'"},
      {"before day zero", day(1871, 1, 7), Missing{}, "'1871-01-07'"},
      {"the last fraction of a day", last_moment, Missing{}, "'2026-11-15'"},
      {"the time of it", Missing{}, last_moment, "'23:59:59'"},
      {"both", last_moment, last_moment, "'2026-11-15 23:59:59'"},
      {"the last one of a day before day zero", Date::from_serial(-10584.9999999999), Missing{}, "'1871-01-07'"},
      {"the first one after a day", Date::from_serial(46341.0000001), Missing{}, "'2026-11-15'"}};
  const LogCapture log;
  for (const auto& row : rows) EXPECT_EQ(sqlDateTime(row.date_part, row.time_part), row.expected) << row.what;
  EXPECT_EQ(log.bytes(), "");
}

TEST(Sapex, DoublesQuotesAndBackslashesInPlace) {
  const struct {
    const char *what, *value, *expected;
  } rows[] = {{"nothing to escape", "Bari", "Bari"},
              {"both", "O'Hara\\x", "O''Hara\\\\x"},
              {"only blanks", "   ", "   "},
              {"empty", "", ""},
              {"two quotes", "a''b", "a''''b"},
              {"nothing but a quote", "'", "''"},
              {"nothing but a backslash", "\\", "\\\\"},
              {"blanks around stay", " a' ", " a'' "},
              {"two backslashes", "\\\\'", "\\\\\\\\''"},
              {"at both ends", "'a'", "''a''"}};
  for (const auto& row : rows) {
    std::string text = row.value;
    EXPECT_EQ(SAPEX(text), row.expected) << row.what;
    EXPECT_EQ(text, row.expected) << row.what;
    Variant value(row.value);
    EXPECT_EQ(SAPEX(value), Variant(row.expected)) << row.what;
    EXPECT_EQ(value, Variant(row.expected)) << row.what;
  }
}

TEST(Sapex, FailureIsLoggedAndLeavesTheArgument) {
  LogCapture log;
  Variant array(Array(VariantKind::empty, 0, {1}));
  SAPEX(array);
  EXPECT_EQ(array.kind(), VariantKind::array);
  Variant nothing{Ref<automation::Object>()};
  SAPEX(nothing);
  EXPECT_TRUE(nothing.is_object());
  EXPECT_EQ(log.take(), (std::vector<std::string>{"mDB.SAPEX() 13", "mDB.SAPEX() 91"}));
}

TEST(Joiners, JoinWhenNeitherIsEmpty) {
  const struct {
    const char *left, *right, *with_and, *with_or;
  } rows[] = {{"a=1", "b=2", "a=1 AND b=2", "a=1 OR b=2"},
              {"", "b=2", "b=2", "b=2"},
              {"a=1", "", "a=1", "a=1"},
              {"", "", "", ""},
              {" ", "b=2", "  AND b=2", "  OR b=2"},
              {"a=1", " ", "a=1 AND  ", "a=1 OR  "}};
  for (const auto& row : rows) {
    EXPECT_EQ(SqlAnd(row.left, row.right), row.with_and);
    EXPECT_EQ(SqlOr(row.left, row.right), row.with_or);
  }
}

TEST(FormatRuoteToSql, QuotesEveryPiece) {
  const struct {
    const char *what, *wheels, *expected;
  } rows[] = {{"one wheel", "BA", "'BA'"},
              {"two wheels", "BA,CA", "'BA','CA'"},
              {"trailing comma, an empty wheel", "BA,", "'BA',''"},
              {"leading comma", ",BA", "'','BA'"},
              {"comma alone", ",", "'',''"},
              {"blanks end up inside the quotes", " BA , CA", "' BA ',' CA'"},
              {"a quote is not escaped", "B'A", "'B'A'"},
              {"empty", "", ""},
              {"only blanks", "   ", ""}};
  for (const auto& row : rows) {
    EXPECT_EQ(FormatRuoteToSql(row.wheels, WheelChoice::listed), row.expected) << row.what;
    EXPECT_EQ(WheelFilter::listed(row.wheels).quoted(), row.expected) << row.what;
  }
}

TEST(FormatRuoteToSql, AllWheelsComeFromTheTable) {
  const UnloadedWheels unloaded;
  EXPECT_EQ(FormatRuoteToSql("BA", WheelChoice::all), "'','','','','','','','','','',''");
  const CanonicalWheels loaded;
  WheelTables tables = *wheel_tables();
  tables.RuoteAliasByEnum[12] = "TT";
  replace_wheel_tables(std::move(tables));
  for (const char* ignored : {"", "BA", "x,y"})
    EXPECT_EQ(FormatRuoteToSql(ignored, WheelChoice::all), "'BA','CA','FI','GE','MI','NA','PA','RM','TO','VE','RN'");
}

TEST(DtRead, ShowsDateAndTime) {
  const struct {
    const char* what;
    Variant date, time;
    const char* default_text;
    Seconds seconds;
    const char* expected;
  } rows[] = {{"both with seconds", date, time_of_day, "", Seconds::shown, "15/11/2026  10.14.16"},
              {"both without seconds", date, time_of_day, "-", Seconds::hidden, "15/11/2026  10.14"},
              {"date and a null time", date, Null{}, "", Seconds::hidden, "15/11/2026"},
              {"null date and a time", Null{}, time_of_day, "", Seconds::hidden, "10.14"},
              {"null date and a time with seconds", Null{}, time_of_day, "x", Seconds::shown, "10.14.16"},
              {"both null", Null{}, Null{}, "never", Seconds::hidden, "never"},
              {"both null, empty default", Null{}, Null{}, "", Seconds::shown, ""},
              {"both null, blank default", Null{}, Null{}, "  ", Seconds::hidden, ""},
              {"one value for both", date_and_time, date_and_time, "", Seconds::shown, "15/11/2026  10.14.16"},
              {"only the date of the date", date_and_time, Null{}, "", Seconds::shown, "15/11/2026"},
              {"midnight", date, midnight, "", Seconds::shown, "15/11/2026  00.00.00"},
              {"texts", "2026-11-15", "10:14:16", "", Seconds::hidden, "15/11/2026  10.14"},
              {"before day zero", day(1871, 1, 7), Null{}, "", Seconds::hidden, "07/01/1871"}};
  for (const auto& row : rows)
    EXPECT_EQ(DT_READ(row.date, row.time, row.default_text, row.seconds), Variant(row.expected)) << row.what;
}

TEST(DtRead, FailureIsLogged) {
  LogCapture log;
  DT_READ(Variant(Array(VariantKind::empty, 0, {1})), Null{}, "x", Seconds::hidden);
  EXPECT_EQ(log.take(), std::vector<std::string>{"mDB.DT_READ() 13"});
}

TEST(WhereClause, StandsBeforeAConditionThatIsNotBlank) {
  EXPECT_EQ(where_clause("a=1"), " WHERE a=1");
  EXPECT_EQ(where_clause(" a=1 "), " WHERE  a=1 ");
  EXPECT_EQ(where_clause(""), "");
  EXPECT_EQ(where_clause("  "), "");
}

TEST(DateClause, BoundThatIsNoDateGivesNull) {
  const struct {
    const char* what;
    Variant bound;
    const char* expected;
  } rows[] = {{"missing", Missing{}, ""},
              {"Null", Null{}, ""},
              {"date", date, "(dtEstr >='2026-11-15')"},
              {"the time of day stays out", date_and_time, "(dtEstr >='2026-11-15')"},
              {"text", "15/11/2026", "(dtEstr >='2026-11-15')"},
              {"no date", "x", "(dtEstr >=NULL)"},
              {"empty text", "", "(dtEstr >=NULL)"},
              {"Empty", Empty{}, "(dtEstr >=NULL)"},
              {"number", 46341, "(dtEstr >=NULL)"}};
  for (const auto& row : rows)
    EXPECT_EQ(date_clause("(dtEstr >=", DateBound::given(row.bound)), row.expected) << row.what;
}

TEST(PeriodCondition, JoinsTheClausesOfBothBounds) {
  const struct {
    const char* what;
    Variant from, to;
    const char* expected;
  } rows[] = {{"none", Missing{}, Null{}, ""},
              {"from", date, Missing{}, "(sto.dtEstr >='2026-11-15')"},
              {"to", Null{}, date, "(sto.dtEstr <='2026-11-15')"},
              {"both", "02/01/2026", date_and_time, "(sto.dtEstr >='2026-01-02') AND (sto.dtEstr <='2026-11-15')"},
              {"no dates", "", 5, "(sto.dtEstr >=NULL) AND (sto.dtEstr <=NULL)"}};
  for (const auto& row : rows)
    EXPECT_EQ(period_condition("sto.dtEstr", DateBound::given(row.from), DateBound::given(row.to)), row.expected)
        << row.what;
}

TEST(InParentheses, OnlyWhatIsNotBlank) {
  EXPECT_EQ(in_parentheses("a=1 OR b=2"), "(a=1 OR b=2)");
  EXPECT_EQ(in_parentheses(" a "), "( a )");
  EXPECT_EQ(in_parentheses(""), "");
  EXPECT_EQ(in_parentheses("   "), "");
}

TEST(DateOrder, HasItsWord) {
  EXPECT_EQ(date_order(true), DateOrder::oldest_first);
  EXPECT_EQ(date_order(false), DateOrder::newest_first);
  EXPECT_EQ(order_word(DateOrder::oldest_first), "ASC");
  EXPECT_EQ(order_word(DateOrder::newest_first), "DESC");
}

}  // namespace
}  // namespace vestara
