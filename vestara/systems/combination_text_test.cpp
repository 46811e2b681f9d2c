#include "vestara/systems/combination_text.h"

#include <gtest/gtest.h>

#include "tests/support/late_bound_test.h"
#include "tests/support/values.h"
#include "vestara/systems/systems.h"

namespace vestara {
namespace {

using automation::Array;
using automation::Variant;
using automation::VariantKind;
using testing_support::describe;
using testing_support::error_of;
using Calls = std::vector<std::string>;

constexpr const char* numbers_failed = "cSistemi.GetCombiNumbers() ";
constexpr const char* convert_failed = "cSistemi.GetSisNumsConvert() ";

class CombinationTextTest : public testing_support::LateBoundTest<cSistemi> {
 protected:
  cSistemi& systems_ = object_;
};

TEST_F(CombinationTextTest, FromTheFirstDigitToTheLast) {
  const struct {
    std::string text, expected;
  } rows[] = {{"", ""},
              {" ", ""},
              {"     ", ""},
              {"1", "1"},
              {"90", "90"},
              {"1,2,3", "1,2,3"},
              {"  1,2,3\r\n4,5,6\r\n", "1,2,3\r\n4,5,6"},
              {"\r\n\r\n1\r\n\r\n2\r\n\r\n", "1\r\n\r\n2"},
              {",1,,2,", "1,,2"},
              {"a1b2c", "1b2"},
              {"-5,-6", "5,-6"},
              {"\t7\t", "7"},
              {"1.5;", "1.5"},
              {"1,x", "1"},
              {"x,1", "1"},
              {"città 5 è", "5"},
              {"'1'", "1"},
              {"½0²", "0"},
              {std::string(100000, ' ') + "7" + std::string(100000, ' '), "7"}};
  for (const auto& row : rows) {
    EXPECT_EQ(systems_.CombiTextFilter(row.text), row.expected);
    EXPECT_EQ(trimmed_to_digits(row.text), row.expected);
  }
  std::string all;
  while (all.size() < 200000) all += "1,2,3,4,5\r\n";
  EXPECT_TRUE(systems_.CombiTextFilter(all) == all.substr(0, all.size() - 2));
}

TEST_F(CombinationTextTest, TextWithoutADigitIsAnErrorOfTheCaller) {
  for (const std::string& text : {std::string("a"), std::string(","), std::string("\r\n"), std::string("\t"),
                                  std::string(" x "), std::string("però"), std::string("²"), std::string(40000, '-')}) {
    EXPECT_EQ(error_of([&] { systems_.CombiTextFilter(text); }), 6) << text.substr(0, 10);
    EXPECT_EQ(error_of([&] { trimmed_to_digits(text); }), 6) << text.substr(0, 10);
    EXPECT_EQ(call("CombiTextFilter", {text}), "error 6");
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(CombinationTextTest, NumbersOfASystem) {
  const struct {
    const char *combinations, *expected;
    Calls log;
  } rows[] = {{"", "", {}},
              {"   ", "", {}},
              {"7", "7", {}},
              {"1,2,3\r\n3,4,5", "1,2,3,4,5", {}},
              {"  1,2,3\r\n3,4,5\r\n\r\n", "1,2,3,4,5", {}},
              {"5,4,3,2,1", "1,2,3,4,5", {}},
              {"10,9\r\n100,9", "9,10,100", {}},
              {"5,5\r\n5", "5", {}},
              {"x 2,1 y", "1,2", {}},
              {"1,-5", "-5,1", {}},
              {"0,90", "0,90", {}},
              {"1,01,1", "1,01,1", {}},  // equal as numbers, not as texts: only neighbours are compared
              {"1,1,01", "1,01", {}},
              {"1, 2,2", "1, 2,2", {}},
              {"1;2;1", "1;2;1", {}},  // a single element is not looked at
              {"1,2\n3,4", "", {std::string(numbers_failed) + "13"}},
              {"1,2\r\n\r\n3", "", {std::string(numbers_failed) + "13"}},
              {"1,,2", "", {std::string(numbers_failed) + "13"}},
              {"1,x,2", "", {std::string(numbers_failed) + "13"}},
              {"1,9999999999", "", {std::string(numbers_failed) + "6"}},
              {"none", "", {std::string(numbers_failed) + "6"}},
              {"\r\n", "", {std::string(numbers_failed) + "6"}}};
  for (const auto& row : rows) {
    EXPECT_EQ(systems_.GetCombiNumbers(row.combinations), row.expected) << row.combinations;
    EXPECT_EQ(log_.take(), row.log) << row.combinations;
  }
}

TEST_F(CombinationTextTest, SystemOntoOtherNumbers) {
  const auto failed = [](const char* label, int32_t number) { return Calls{label + std::to_string(number)}; };
  const struct {
    const char *combinations, *numbers;
    std::vector<Variant> lines;
    const char* text;
    Calls log;
  } rows[] = {
      {"1,2\r\n1,3", "10,20,30", {"10,20", "10,30"}, "10,20\r\n10,30", {}},
      {"  1,2\r\n1,3\r\n\r\n", "10,20,30", {"10,20", "10,30"}, "10,20\r\n10,30", {}},
      {"1", "90", {"90"}, "90", {}},
      {"3,1\r\n2,3", "10,20,30", {"30,10", "20,30"}, "30,10\r\n20,30", {}},
      {"9,10,100", "a,b,c", {"a,b,c"}, "a,b,c", {}},
      {"5,5,5", "7", {"7,7,7"}, "7,7,7", {}},
      {"1,2", "2,1", {"2,1"}, "2,1", {}},
      {"1,2", " 10 , 20 ", {" 10 , 20 "}, " 10 , 20 ", {}},
      {"1,2", "7,7", {"7,7"}, "7,7", {}},
      {"0,90", "1,2", {"1,2"}, "1,2", {}},
      {"01,02", "10,20", {"10,20"}, "10,20", {}},
      {"1\r\n01", "10,20", {"20", "20"}, "20\r\n20", {}},  // one number, written twice: the later one stays
      {"1,2,3", "10,,30", {"10,,30"}, "10,,30", {}},
      {"1,2", ",20", {",20"}, ",20", {}},
      {"1\r\n2", ",20", {"20"}, "20", {}},  // a line that becomes empty is left out
      {"1\r\n2", "10,", {"10"}, "10", {}},
      {"1,32000", "5,6", {"5,6"}, "5,6", {}},
      {"1,100000", "5,6", {"5,6"}, "5,6", {}},
      {"1,2", "10,20,30", {}, "left", {}},
      {"1,2", "10", {}, "left", {}},
      {"1,2", "", {}, "left", {}},
      {"", "", {}, "", {}},
      {"  ", "", {}, "", {}},
      {"", "10", {}, "left", {}},
      {"1,2\r\n\r\n3", "10,20,30", {}, "left", failed(numbers_failed, 13)},
      {"1,x,2", "10,20,30", {}, "left", failed(numbers_failed, 13)},
      {"none", "10", {}, "left", failed(convert_failed, 6)},
      {"1,-2", "10,20", {}, "left", failed(convert_failed, 9)},
      {"1;2", "10", {}, "left", failed(convert_failed, 13)},
      {"1,2\r\n\r\n3", "", {}, "left", {std::string(numbers_failed) + "13", std::string(convert_failed) + "9"}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.combinations) + " onto " + row.numbers);
    std::string text = "left";
    const Array lines = systems_.GetSisNumsConvert(row.combinations, row.numbers, text);
    EXPECT_EQ(lines.items(), row.lines);
    if (!row.lines.empty()) {
      EXPECT_EQ(lines.element(), VariantKind::text);
      EXPECT_EQ(lines.lower(), 0);
    }
    EXPECT_EQ(text, row.text);
    EXPECT_EQ(log_.take(), row.log);
  }
}

TEST_F(CombinationTextTest, PositionsBecomeNumbers) {
  const std::vector<std::string_view> numbers = {"10", "20", " 30", ""};
  const struct {
    const char *positions, *expected;
    int32_t error;
  } rows[] = {{"1", "10", 0},        {"1,2,3", "10,20, 30", 0},
              {"3,1", " 30,10", 0},  {"2,2", "20,20", 0},
              {"", "", 0},           {" 2 ,1", "20,10", 0},
              {"02", "20", 0},       {"4,1", ",10", 0},
              {"0", "", 9},          {"5", "", 9},
              {"-1", "", 9},         {"1,5", "", 9},
              {"x", "", 13},         {"1,", "", 13},
              {"1,,2", "", 13},      {"9999999999", "", 6},
              {"2147483647", "", 9}, {"-2147483648", "", 9}};
  for (const auto& row : rows) {
    std::string line;
    EXPECT_EQ(error_of([&] { line = numbers_at(row.positions, numbers); }), row.error) << row.positions;
    EXPECT_EQ(line, row.expected) << row.positions;
  }
  EXPECT_EQ(error_of([] { numbers_at("1", {}); }), 9);
}

TEST_F(CombinationTextTest, LateBound) {
  EXPECT_EQ(call("CombiTextFilter", {" 1,2 "}), "text 1,2");
  EXPECT_EQ(describe(given_[0]), "text  1,2 ");
  EXPECT_EQ(call("GetCombiNumbers", {"3,1"}, {"sCombi"}), "text 1,3");
  EXPECT_EQ(describe(given_[0]), "text 3,1");
  EXPECT_EQ(call("GetCombiNumbers", {12}), "text 12");
  EXPECT_EQ(call("GetSisNumsConvert", {"1,2\r\n1,3 ", "10,20,30", "left"}), "Array [text 10,20] [text 10,30]");
  EXPECT_EQ(given_, (std::vector<Variant>{"1,2\r\n1,3 ", "10,20,30", "10,20\r\n10,30"}));
  EXPECT_EQ(call("GetSisNumsConvert", {"left", "90", 1}, {"sCombiRes", "sNumsNew", "sCombi"}), "Array [text 90]");
  EXPECT_EQ(given_, (std::vector<Variant>{"90", "90", 1}));
  EXPECT_EQ(call("GetSisNumsConvert", {"1,2", "10", "left"}), "Array");
  EXPECT_EQ(describe(given_[2]), "text left") << "a stop leaves the text alone";
  EXPECT_EQ(call("GetSisNumsConvert", {"1,2", "10"}), "error 449");
  EXPECT_EQ(call("GetCombiNumbers", {automation::Null{}}), "error 94");
  EXPECT_EQ(log_.bytes(), "");
}

}  // namespace
}  // namespace vestara
