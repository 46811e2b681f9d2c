#include "vestara/keeping/copy/value_literal.h"

#include <gtest/gtest.h>

#include <vector>

namespace vestara {
namespace {

using automation::Date;
using automation::Variant;
using enum ColumnKind;

struct Row {
  Variant value;
  ColumnKind kind;
  std::string text;
};

Date civil(const automation::CivilTime& parts) { return Date::from_civil(parts).value_or(Date()); }

TEST(ValueLiteral, HasOneSpelling) {
  const std::vector<Row> rows{{automation::Null{}, text, "NULL"},
                              {automation::Null{}, day, "NULL"},
                              {Variant(), small, "NULL"},
                              {int16_t{5}, whole, "5"},
                              {int32_t{-5}, small, "-5"},
                              {5.0, small, "5"},
                              {"5", key, "5"},
                              {2147483647.0, contest, "2147483647"},
                              {int32_t{-32768}, number, "-32768"},
                              {"BA", code, "'BA'"},
                              {"", text, "''"},
                              {" ", text, "' '"},
                              {"it's a \\ and \"that\"", text, "'it''s a \\\\ and \"that\"'"},
                              {"è\n", text, "'è\n'"},
                              {int32_t{7}, text, "'7'"},
                              {civil({2005, 2, 9}), text, "'2005-02-09'"},
                              {civil({2005, 2, 9}), day, "'2005-02-09'"},
                              {civil({1871, 1, 7, 21, 30, 5}), moment, "'1871-01-07 21:30:05'"},
                              {"9/2/2005", moment, "'2005-02-09'"}};
  for (const Row& row : rows) EXPECT_EQ(value_literal(row.value, row.kind), row.text);
}

TEST(ValueLiteral, SaysWhatDoesNotFit) {
  const std::vector<Row> rows{{"x", whole, "holds \"x\", which is no number"},
                              {"", contest, "holds \"\", which is no number"},
                              {civil({2005, 2, 9}), small, "holds \"2005-02-09\", which is no number"},
                              {1.5, whole, "holds \"1.5\", which is no whole number"},
                              {int32_t{32768}, small, "holds \"32768\", which is beyond 16 bits"},
                              {int32_t{-32769}, number, "holds \"-32769\", which is beyond 16 bits"},
                              {2147483648.0, key, "holds \"2147483648\", which is beyond 32 bits"},
                              {"2005-02-30", moment, "holds \"2005-02-30\", which is no date"},
                              {"", moment, "holds \"\", which is no date"},
                              {int32_t{38392}, moment, "holds \"38392\", which is no date"},
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
