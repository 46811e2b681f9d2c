#include "vestara/systems/number_sets.h"

#include <gtest/gtest.h>

#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "vestara/systems/systems.h"

namespace vestara {
namespace {

using automation::InvokeKind;
using automation::Variant;
using testing_support::LogCapture;
using testing_support::outcome;
using Calls = std::vector<std::string>;

class NumberSetsTest : public testing::Test {
 protected:
  struct Row {
    int16_t first;
    const char* expected;
  };
  using Set = std::string (cSistemi::*)(int16_t) const;
  void expect(Set set, const std::vector<Row>& rows) {
    for (const auto& row : rows) EXPECT_EQ((systems_.*set)(row.first), row.expected) << row.first;
    EXPECT_EQ(log_.bytes(), "");
  }
  std::string call(std::string_view member, std::vector<Variant> arguments) {
    given_ = std::move(arguments);
    return outcome([&] { return systems_.call(member, InvokeKind::method, given_); });
  }

  LogCapture log_;
  cSistemi systems_;
  std::vector<Variant> given_;
};

/// Numbers `step` apart, the first one not above `last` included.
std::string apart(int32_t first, int32_t step, int32_t last) {
  std::string result;
  for (int32_t number = first; number <= last; number += step)
    result += (result.empty() ? "" : ",") + std::to_string(number);
  return result;
}

TEST_F(NumberSetsTest, FixedSets) {
  EXPECT_EQ(systems_.SysGemelli2Str(), "11,22,33,44,55,66,77,88");
  EXPECT_EQ(systems_.SysVertibili2Str(), "12,21,13,31,14,41,15,51,16,61,17,71,18,81");
}

TEST_F(NumberSetsTest, SameEnding) {
  expect(&cSistemi::SysCadenze2Str, {{1, "1,11,21,31,41,51,61,71,81"},
                                     {10, "10,20,30,40,50,60,70,80,90"},
                                     {0, "0,10,20,30,40,50,60,70,80,90"},
                                     {9, "9,19,29,39,49,59,69,79,89"},
                                     {70, "70,80,90"},
                                     {79, "79,89"},
                                     {80, "80,90"},
                                     {81, "81"},
                                     {90, "90"},
                                     {32767, "32767"},
                                     {-1, "-1,9,19,29,39,49,59,69,79,89"},
                                     {-10, "-10,0,10,20,30,40,50,60,70,80,90"},
                                     {-25, "-25,-15,-5,5,15,25,35,45,55,65,75,85"}});
  EXPECT_EQ(systems_.SysCadenze2Str(-32768), apart(-32768, 10, 90));
}

TEST_F(NumberSetsTest, SameFigure) {
  expect(&cSistemi::SysFigure2Str, {{1, "1,10,19,28,37,46,55,64,73"},
                                    {9, "9,18,27,36,45,54,63,72"},
                                    {8, "8,17,26,35,44,53,62,71,80"},
                                    {0, "0,9,18,27,36,45,54,63,72"},
                                    {71, "71,80"},
                                    {72, "72"},
                                    {80, "80"},
                                    {81, ""},
                                    {90, ""},
                                    {32767, ""},
                                    {-9, "-9,0,9,18,27,36,45,54,63,72"}});
  EXPECT_EQ(systems_.SysFigure2Str(-32768), apart(-32768, 9, 80));
}

TEST_F(NumberSetsTest, ElevenNumbersOrTheTenOfNinety) {
  expect(&cSistemi::SysDecine2Str,
         {{1, "1,2,3,4,5,6,7,8,9,10,11"},
          {0, "0,1,2,3,4,5,6,7,8,9,10"},
          {80, "80,81,82,83,84,85,86,87,88,89,90"},
          {89, "89,90,91,92,93,94,95,96,97,98,99"},
          {90, "1,2,3,4,5,6,7,8,9,90"},
          {91, "91,92,93,94,95,96,97,98,99,100,101"},
          {-5, "-5,-4,-3,-2,-1,0,1,2,3,4,5"},
          {-32768, "-32768,-32767,-32766,-32765,-32764,-32763,-32762,-32761,-32760,-32759,-32758"},
          {32756, "32756,32757,32758,32759,32760,32761,32762,32763,32764,32765,32766"}});
}

TEST_F(NumberSetsTest, Fibonacci) {
  expect(&cSistemi::SysFibonacci2Str,
         {{1, "1,2,3,5,8,13,21,34,55,89"},
          {2, "2,4,6,10,16,26,42,68,110,178"},
          {0, "0,0,0,0,0,0,0,0,0,0"},
          {-1, "-1,-2,-3,-5,-8,-13,-21,-34,-55,-89"},
          {90, "90,180,270,450,720,1170,1890,3060,4950,8010"},
          {16383, "16383,32766,49149,81915,131064,212979,344043,557022,901065,1458087"},
          {-16384, "-16384,-32768,-49152,-81920,-131072,-212992,-344064,-557056,-901120,-1458176"}});
}

TEST_F(NumberSetsTest, StepsBeyondSixteenBitsGiveNothingAndOneEntry) {
  const struct {
    Set set;
    int16_t first;
    const char* log;
  } rows[] = {{&cSistemi::SysDecine2Str, 32757, "cSistemi.SysDecine2Str() 6"},
              {&cSistemi::SysDecine2Str, 32758, "cSistemi.SysDecine2Str() 6"},
              {&cSistemi::SysDecine2Str, 32767, "cSistemi.SysDecine2Str() 6"},
              {&cSistemi::SysFibonacci2Str, 16384, "cSistemi.SysFibonacci2Str() 6"},
              {&cSistemi::SysFibonacci2Str, 32767, "cSistemi.SysFibonacci2Str() 6"},
              {&cSistemi::SysFibonacci2Str, -16385, "cSistemi.SysFibonacci2Str() 6"},
              {&cSistemi::SysFibonacci2Str, -32768, "cSistemi.SysFibonacci2Str() 6"}};
  for (const auto& row : rows) {
    EXPECT_EQ((systems_.*row.set)(row.first), "") << row.log << " of " << row.first;
    EXPECT_EQ(log_.take(), Calls{row.log}) << row.first;
  }
  EXPECT_EQ(systems_.SysDecine2Str(90), "1,2,3,4,5,6,7,8,9,90");
}

TEST_F(NumberSetsTest, ErrorsOfTheFunctionsReachTheirCaller) {
  EXPECT_EQ(testing_support::error_of([] { ten_numbers(32757); }), 6);
  EXPECT_EQ(testing_support::error_of([] { fibonacci_run(16384); }), 6);
  EXPECT_EQ(same_ending(81), "81");
  EXPECT_EQ(same_figure(81), "");
}

TEST_F(NumberSetsTest, LateBoundArgumentsAreConvertedAndStay) {
  const struct {
    const char* member;
    std::vector<Variant> arguments;
    const char* expected;
  } rows[] = {{"SysGemelli2Str", {}, "text 11,22,33,44,55,66,77,88"},
              {"SYSCADENZE2STR", {"70"}, "text 70,80,90"},
              {"SysFigure2Str", {71.5}, "text 72"},
              {"SysFigure2Str", {70.5}, "text 70,79"},
              {"SysDecine2Str", {90}, "text 1,2,3,4,5,6,7,8,9,90"},
              {"SysFibonacci2Str", {int16_t{1}}, "text 1,2,3,5,8,13,21,34,55,89"},
              {"SysCadenze2Str", {40000}, "error 6"},
              {"SysCadenze2Str", {"x"}, "error 13"},
              {"SysCadenze2Str", {automation::Null{}}, "error 94"},
              {"SysCadenze2Str", {}, "error 449"},
              {"SysVertibili2Str", {1}, "error 450"}};
  for (const auto& row : rows) {
    EXPECT_EQ(call(row.member, row.arguments), row.expected) << row.member;
    EXPECT_EQ(given_, row.arguments) << row.member;
  }
  EXPECT_EQ(log_.bytes(), "") << "what never reached the member is the host's";
}

}  // namespace
}  // namespace vestara
