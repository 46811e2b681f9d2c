#include "automation/coercion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "automation/member.h"
#include "tests/support/values.h"

namespace automation {
namespace {

using testing_support::error_of;
using testing_support::outcome;

/// Stands for the value of its default member.
class Box final : public Object {
 public:
  explicit Box(Variant value) : value_(std::move(value)) {}
  Variant Value() const { return value_; }
  const ClassDescription& description() const override;

 private:
  Variant value_;
};
constexpr Member box_members[] = {Rows<Box>::get<Variant, &Box::Value>(0, "Value", "What it stands for.")};
constexpr ClassDescription box{.library = "Tests", .name = "Box", .members = box_members};
const ClassDescription& Box::description() const { return box; }

class Bare final : public Object {
 public:
  const ClassDescription& description() const override;
};
constexpr ClassDescription bare{.library = "Tests", .name = "Bare"};
const ClassDescription& Bare::description() const { return bare; }

/// Stands for itself.
class Circle final : public Object {
 public:
  Variant Value() { return Variant(Ref<Object>(this)); }
  const ClassDescription& description() const override;
};
constexpr Member circle_members[] = {Rows<Circle>::read_only<&Circle::Value>(0, "Value", "Itself.")};
constexpr ClassDescription circle{.library = "Tests", .name = "Circle", .members = circle_members};
const ClassDescription& Circle::description() const { return circle; }

Variant boxed(Variant value) { return make<Box>(std::move(value)); }

TEST(Coercion, EveryKindToEveryKind) {
  const Date date = testing_support::day(2026, 11, 15);
  const Date noon = testing_support::moment({2026, 11, 15, 12, 0, 0});
  const struct {
    Variant value;
    const char *integer, *long_integer, *single, *double_precision, *boolean, *text, *date;
  } rows[] = {
      {Empty{}, "Integer 0", "Long 0", "Single 0", "Double 0", "False", "text ", "Date 0"},
      {Null{}, "error 94", "error 94", "error 94", "error 94", "error 94", "error 94", "error 94"},
      {Missing{}, "error 13", "error 13", "error 13", "error 13", "error 13", "error 13", "error 13"},
      {true, "Integer -1", "Long -1", "Single -1", "Double -1", "True", "text True", "Date -1"},
      {false, "Integer 0", "Long 0", "Single 0", "Double 0", "False", "text False", "Date 0"},
      {int16_t{7}, "Integer 7", "Long 7", "Single 7", "Double 7", "True", "text 7", "Date 7"},
      {70000, "error 6", "Long 70000", "Single 70000", "Double 70000", "True", "text 70000", "Date 70000"},
      {-5, "Integer -5", "Long -5", "Single -5", "Double -5", "True", "text -5", "Date -5"},
      {2.5F, "Integer 2", "Long 2", "Single 2.5", "Double 2.5", "True", "text 2.5", "Date 2.5"},
      {0.25, "Integer 0", "Long 0", "Single 0.25", "Double 0.25", "True", "text 0.25", "Date 0.25"},
      {1e9, "error 6", "Long 1000000000", "Single 1e+09", "Double 1e+09", "True", "text 1000000000", "error 6"},
      {1e300, "error 6", "error 6", "error 6", "Double 1e+300", "True", nullptr, "error 6"},
      {date, "error 6", "Long 46341", "Single 46341", "Double 46341", "True", "text 15/11/2026", "Date 46341"},
      {noon, "error 6", "Long 46342", "Single 46341.5", "Double 46341.5", "True", "text 15/11/2026 12:00:00",
       "Date 46341.5"},
      {"12", "Integer 12", "Long 12", "Single 12", "Double 12", "True", "text 12", "error 13"},
      {" 2.5 ", "Integer 2", "Long 2", "Single 2.5", "Double 2.5", "True", "text  2.5 ", "error 13"},
      {"40000", "error 6", "Long 40000", "Single 40000", "Double 40000", "True", "text 40000", "error 13"},
      {"0", "Integer 0", "Long 0", "Single 0", "Double 0", "False", "text 0", "error 13"},
      {"", "error 13", "error 13", "error 13", "error 13", "error 13", "text ", "error 13"},
      {"x", "error 13", "error 13", "error 13", "error 13", "error 13", "text x", "error 13"},
      {"12x", "error 13", "error 13", "error 13", "error 13", "error 13", "text 12x", "error 13"},
      {"True", nullptr, nullptr, nullptr, nullptr, "True", "text True", "error 13"},
      {"fALSE", nullptr, nullptr, nullptr, nullptr, "False", "text fALSE", "error 13"},
      {"15/11/2026", "error 13", "error 13", "error 13", "error 13", "error 13", "text 15/11/2026", "Date 46341"},
      {Ref<Object>{}, "error 91", "error 91", "error 91", "error 91", "error 91", "error 91", "error 91"},
      {make<Bare>(), "error 438", "error 438", "error 438", "error 438", "error 438", "error 438", "error 438"},
      {boxed(int16_t{7}), "Integer 7", "Long 7", "Single 7", "Double 7", "True", "text 7", "Date 7"},
      {boxed("12"), "Integer 12", "Long 12", "Single 12", "Double 12", "True", "text 12", "error 13"},
      {boxed(Null{}), "error 94", "error 94", "error 94", "error 94", "error 94", "error 94", "error 94"},
      {Array(VariantKind::empty, 0, {1}), "error 13", "error 13", "error 13", "error 13", "error 13", "error 13",
       "error 13"}};
  for (const auto& [value, integer, long_integer, single, double_precision, boolean, text, as_date] : rows) {
    SCOPED_TRACE(testing::PrintToString(value));
    const auto expect = [](const char* expected, const std::string& got) {
      if (expected) {
        EXPECT_EQ(got, expected);
      }
    };
    const Variant& given = value;
    expect(integer, outcome([&] { return to_integer(given); }));
    expect(long_integer, outcome([&] { return to_long(given); }));
    expect(single, outcome([&] { return to_single(given); }));
    expect(double_precision, outcome([&] { return to_double(given); }));
    expect(boolean, outcome([&] { return to_boolean(given); }));
    expect(text, outcome([&] { return to_text(given); }));
    expect(as_date, outcome([&] { return to_date(given); }));
  }
}

TEST(Coercion, HalvesGoToEven) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const struct {
    double value;
    const char *integer, *long_integer;
  } rows[] = {{0.5, "Integer 0", "Long 0"},          {1.5, "Integer 2", "Long 2"},
              {2.5, "Integer 2", "Long 2"},          {2.51, "Integer 3", "Long 3"},
              {-0.5, "Integer 0", "Long 0"},         {-1.5, "Integer -2", "Long -2"},
              {-2.5, "Integer -2", "Long -2"},       {32767.4, "Integer 32767", "Long 32767"},
              {32767.5, "error 6", "Long 32768"},    {-32768.5, "Integer -32768", "Long -32768"},
              {-32769, "error 6", "Long -32769"},    {2147483647.4, "error 6", "Long 2147483647"},
              {2147483647.5, "error 6", "error 6"},  {-2147483648.5, "error 6", "Long -2147483648"},
              {-2147483649.0, "error 6", "error 6"}, {infinity, "error 6", "error 6"},
              {-infinity, "error 6", "error 6"}};
  for (const auto& row : rows) {
    EXPECT_EQ(outcome([&] { return round_to_integer(row.value); }), row.integer) << row.value;
    EXPECT_EQ(outcome([&] { return round_to_long(row.value); }), row.long_integer) << row.value;
    EXPECT_EQ(outcome([&] { return to_integer(row.value); }), row.integer) << row.value;
    EXPECT_EQ(outcome([&] { return to_long(row.value); }), row.long_integer) << row.value;
  }
}

TEST(Coercion, AnObjectStandsForItsDefaultMembersValueHoweverDeep) {
  const Date date = testing_support::day(2026, 11, 15);
  const struct {
    Variant inner;
    bool numeric;
    std::string plain;
    bool is_date;
  } rows[] = {{3, true, "Long 3", false},
              {"12", true, "text 12", false},
              {"x", false, "text x", false},
              {Null{}, false, "Null", false},
              {Empty{}, true, "Empty", false},
              {Missing{}, false, "Missing", false},
              {date, false, testing_support::describe(date), true},
              {"15/11/2026", false, "text 15/11/2026", true}};
  for (const auto& row : rows) {
    Variant object = row.inner;
    for (int32_t depth = 1; depth <= 8; ++depth) {
      object = boxed(object);
      SCOPED_TRACE(testing::Message() << row.plain << " at depth " << depth);
      EXPECT_EQ(testing_support::describe(to_plain(object)), row.plain);
      EXPECT_EQ(is_numeric(object), row.numeric);
      EXPECT_EQ(date_in(object).has_value(), row.is_date);
    }
    EXPECT_EQ(error_of([&] { to_plain(boxed(object)); }), 13) << "too many steps";
  }
}

TEST(Coercion, AnObjectThatStandsForNothingIsAnError) {
  const struct {
    Variant object;
    int32_t plain, text, date, numeric;
  } rows[] = {{Ref<Object>{}, 91, 91, 0, 0},
              {boxed(Ref<Object>{}), 91, 91, 91, 91},
              {make<Bare>(), 438, 438, 438, 438},
              {boxed(make<Bare>()), 438, 438, 438, 438},
              {make<Circle>(), 13, 13, 13, 13}};
  for (const auto& row : rows) {
    EXPECT_EQ(error_of([&] { to_plain(row.object); }), row.plain);
    EXPECT_EQ(error_of([&] { to_text(row.object); }), row.text);
    EXPECT_EQ(error_of([&] { date_in(row.object); }), row.date);
    EXPECT_EQ(error_of([&] { is_numeric(row.object); }), row.numeric);
  }
}

TEST(Coercion, SinglesHaveSevenDigitsAsText) {
  const struct {
    float value;
    const char* text;
  } rows[] = {{0.1F, "0.1"}, {1.2345678F, "1.234568"}, {16777216.0F, "1.677722E+07"}, {123456.7F, "123456.7"},
              {-0.0F, "0"},  {1.0F / 3, "0.3333333"}};
  for (const auto& row : rows) EXPECT_EQ(to_text(row.value), row.text);
}

TEST(Coercion, TheEndsOfTheRanges) {
  const double largest = std::numeric_limits<float>::max();
  const struct {
    Variant value;
    const char *single, *double_precision;
  } rows[] = {{"1e-400", "Single 0", "Double 0"},
              {"-1e-400", "Single 0", "Double 0"},
              {"1e400", "error 6", "error 6"},
              {"-1e400", "error 6", "error 6"},
              {"1e39", "error 6", nullptr},
              {"1e-60", "Single 0", nullptr},
              {largest, "Single 3.4028234663852886e+38", nullptr},
              {-largest, "Single -3.4028234663852886e+38", nullptr},
              {std::nextafter(largest, HUGE_VAL), "error 6", nullptr},
              {std::nextafter(-largest, -HUGE_VAL), "error 6", nullptr}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.value));
    if (std::string(row.single).rfind("Single", 0) == 0) {
      EXPECT_EQ(static_cast<double>(to_single(row.value)), std::strtod(row.single + 7, nullptr));
    } else {
      EXPECT_EQ(outcome([&] { return to_single(row.value); }), row.single);
    }
    if (row.double_precision) {
      EXPECT_EQ(outcome([&] { return to_double(row.value); }), row.double_precision);
    }
  }
}

TEST(LeadingNumber, ReadsWhatATextBeginsWith) {
  const struct {
    const char *text, *expected;
  } rows[] = {{"", "Integer 0"},
              {"   ", "Integer 0"},
              {"12", "Integer 12"},
              {"  12", "Integer 12"},
              {"07", "Integer 7"},
              {"0", "Integer 0"},
              {"x", "Integer 0"},
              {"x1", "Integer 0"},
              {"12x", "Integer 12"},
              {"1 2", "Integer 1"},
              {"12.9", "Integer 12"},
              {"1e3", "Integer 1"},
              {"-5", "Integer -5"},
              {"  +5", "Integer 5"},
              {"--5", "Integer 0"},
              {"-", "Integer 0"},
              {"\t5", "Integer 0"},
              {"\r\n5", "Integer 0"},
              {"32767", "Integer 32767"},
              {"32768", "error 6"},
              {"-32768", "Integer -32768"},
              {"-32769", "error 6"},
              {"99999999999999999999", "error 6"},
              {"000000000000000000000000012", "Integer 12"},
              {"5,12", "Integer 5"}};
  for (const auto& row : rows) EXPECT_EQ(outcome([&] { return leading_number(row.text); }), row.expected) << row.text;
}

TEST(LeadingDouble, ReadsWhatATextBeginsWith) {
  const struct {
    const char* text;
    double expected;
  } rows[] = {{"", 0},
              {"x", 0},
              {"2", 2},
              {"2.5x", 2.5},
              {"  -1.5e2 z", -150},
              {".5", 0.5},
              {"3.", 3},
              {"1e", 1},
              {"5,12", 5},
              {"-", 0},
              {"+7", 7},
              {"0x10", 0},
              {"inf", 0},
              {"nan", 0},
              {"1e+", 1},
              {"1 2", 1},
              {"2147483648", 2147483648.0}};
  for (const auto& row : rows) EXPECT_EQ(leading_double(row.text), row.expected) << row.text;
}

TEST(Numeric, TakesNumbersAndTextsThatReadAsOneWhole) {
  const struct {
    Variant value;
    bool numeric;
  } rows[] = {{Empty{}, true},
              {Null{}, false},
              {Missing{}, false},
              {true, true},
              {int16_t{1}, true},
              {1, true},
              {1.5F, true},
              {1.5, true},
              {"12", true},
              {" 12 ", true},
              {"-1.5e3", true},
              {"+5", true},
              {".5", true},
              {"5.", true},
              {"07", true},
              {"", false},
              {" ", false},
              {"12x", false},
              {"x", false},
              {"1 2", false},
              {"-", false},
              {".", false},
              {"e5", false},
              {"1e", false},
              {"0x10", false},
              {"inf", false},
              {"nan", false},
              {"BA", false},
              {"1\t", false},
              {"--1", false},
              {Ref<Object>{}, false},
              {Array(VariantKind::empty, 0, {1}), false},
              {testing_support::day(2026, 11, 15), false}};
  for (const auto& row : rows) EXPECT_EQ(is_numeric(row.value), row.numeric) << testing::PrintToString(row.value);
}

TEST(ParseNumber, ReadsTheWholeTextOrNothing) {
  EXPECT_EQ(parse_number(" -12.5e1 "), -125);
  EXPECT_EQ(parse_number("0012"), 12);
  EXPECT_FALSE(parse_number("12,5x"));
  EXPECT_FALSE(parse_number(""));
}

TEST(NumberText, HasUpToFifteenDigitsAndNoTrailingZeros) {
  const struct {
    double value;
    const char* expected;
  } rows[] = {{0, "0"},
              {1, "1"},
              {-1, "-1"},
              {100, "100"},
              {0.5, "0.5"},
              {-2.25, "-2.25"},
              {0.1 + 0.2, "0.3"},
              {1.0 / 3, "0.333333333333333"},
              {2.0 / 3, "0.666666666666667"},
              {123456789012345, "123456789012345"},
              {100000000000000, "100000000000000"},
              {1234.5678, "1234.5678"},
              {1e9, "1000000000"}};
  for (const auto& row : rows) EXPECT_EQ(number_to_text(row.value), row.expected);
  for (const double value : {1e15, 1.5e300, -2e-300}) {
    EXPECT_NE(number_to_text(value).find_first_of("Ee"), std::string::npos) << value;
    EXPECT_EQ(parse_number(number_to_text(value)), value);
  }
}

TEST(DateIn, FindsDatesAndTextsThatReadAsOne) {
  const Date date = testing_support::day(2026, 11, 15);
  for (const Variant& value : {Variant(date), Variant("15/11/2026"), Variant("2026-11-15")})
    EXPECT_EQ(date_in(value), date) << testing::PrintToString(value);
  for (const Variant& value : {Variant(), Variant(Null{}), Variant(Missing{}), Variant(""), Variant("x"), Variant(5),
                               Variant(46341.0), Variant("46341"), Variant(true), Variant("31/04/2026")})
    EXPECT_FALSE(date_in(value)) << testing::PrintToString(value);
}

}  // namespace
}  // namespace automation
