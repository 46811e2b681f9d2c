#include "vestara/keeping/copy/value_literal.h"

#include <gtest/gtest.h>

#include <vector>

namespace vestara {
namespace {

using automation::Date;
using automation::Variant;
using enum ValueKind;

struct Row {
  Variant value;
  ValueKind kind;
  std::string text;
};

Date moment(const automation::CivilTime& parts) { return Date::from_civil(parts).value_or(Date()); }

TEST(ValueLiteral, HasOneSpelling) {
  const std::vector<Row> rows{{automation::Null{}, text, "NULL"},
                              {automation::Null{}, date, "NULL"},
                              {Variant(), small, "NULL"},
                              {int16_t{5}, whole, "5"},
                              {int32_t{-5}, small, "-5"},
                              {5.0, small, "5"},
                              {"5", whole, "5"},
                              {2147483647.0, whole, "2147483647"},
                              {int32_t{-32768}, small, "-32768"},
                              {"BA", text, "'BA'"},
                              {"", text, "''"},
                              {" ", text, "' '"},
                              {"it's a \\ and \"that\"", text, "'it''s a \\\\ and \"that\"'"},
                              {"è\n", text, "'è\n'"},
                              {int32_t{7}, text, "'7'"},
                              {moment({2005, 2, 9}), text, "'2005-02-09'"},
                              {moment({2005, 2, 9}), date, "'2005-02-09'"},
                              {moment({1871, 1, 7, 21, 30, 5}), date, "'1871-01-07 21:30:05'"},
                              {"9/2/2005", date, "'2005-02-09'"}};
  for (const Row& row : rows) EXPECT_EQ(value_literal(row.value, row.kind), row.text);
}

TEST(ValueLiteral, SaysWhatDoesNotFit) {
  const std::vector<Row> rows{{"x", whole, "holds \"x\", which is no number"},
                              {"", whole, "holds \"\", which is no number"},
                              {moment({2005, 2, 9}), small, "holds \"2005-02-09\", which is no number"},
                              {1.5, whole, "holds \"1.5\", which is no whole number"},
                              {int32_t{32768}, small, "holds \"32768\", which is beyond 16 bits"},
                              {int32_t{-32769}, small, "holds \"-32769\", which is beyond 16 bits"},
                              {2147483648.0, whole, "holds \"2147483648\", which is beyond 32 bits"},
                              {"2005-02-30", date, "holds \"2005-02-30\", which is no date"},
                              {"", date, "holds \"\", which is no date"},
                              {int32_t{38392}, date, "holds \"38392\", which is no date"},
                              {std::string("a\0b", 3), text, "holds \"a?b\", which is a text with a NUL character"}};
  for (const Row& row : rows) {
    std::string what;
    try {
      value_literal(row.value, row.kind);
    } catch (const UnfitValue& unfit) {
      what = unfit.what();
    }
    EXPECT_EQ(what, row.text);
  }
}

}  // namespace
}  // namespace vestara
