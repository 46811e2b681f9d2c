#include "vestara/archive/draw_record.h"

#include <gtest/gtest.h>

#include <limits>

#include "automation/member.h"
#include "tests/support/values.h"

namespace vestara {
namespace {

using automation::Empty;
using automation::InvokeKind;
using automation::Member;
using automation::MemberKind;
using automation::Missing;
using automation::Null;
using automation::Passing;
using automation::ValueType;
using automation::Variant;
using testing_support::day;
using testing_support::describe;
using testing_support::error_of;
using testing_support::moment;
using testing_support::outcome;

constexpr int32_t smallest = std::numeric_limits<int32_t>::min();
constexpr int32_t largest = std::numeric_limits<int32_t>::max();

class DrawRecordTest : public testing::Test {
 protected:
  void add(int32_t wheel, const std::vector<const char*>& numbers, int32_t key) {
    int32_t position = 2;
    for (const char* number : numbers) draw_.AddNumero(wheel, position++, number, key);
  }
  /// Everything stored: "wheel:numbers:key" of every wheel that holds something.
  std::string stored() const {
    std::string result;
    for (int32_t wheel = 1; wheel <= wheel_count; ++wheel) {
      const std::string numbers = draw_.GetNumeri(wheel);
      if (!numbers.empty() || draw_.GetIdStorico(wheel) != 0)
        result += std::to_string(wheel) + ":" + numbers + ":" + std::to_string(draw_.GetIdStorico(wheel)) + " ";
    }
    return result;
  }

  cEstrazione draw_;
};

TEST_F(DrawRecordTest, NewRecordHoldsNothing) {
  EXPECT_EQ(draw_.DataEstrazione(), Variant(Empty{}));
  EXPECT_EQ(draw_.NumeroConcorso(), 0);
  for (int32_t wheel = 1; wheel <= 11; ++wheel) {
    EXPECT_EQ(draw_.GetNumeri(wheel), "");
    EXPECT_EQ(draw_.GetIdStorico(wheel), 0);
    for (int32_t position = 1; position <= 5; ++position) EXPECT_EQ(draw_.GetNumero(wheel, position), "");
  }
}

TEST_F(DrawRecordTest, NumbersAreAddedOnePositionFurtherThanTheyAreRead) {
  add(1, {"7", "8", "9", "10", "11"}, 41);
  add(11, {"90", "1", "45", "3", "60"}, 51);
  const struct {
    int32_t wheel, position;
    const char* number;
  } rows[] = {{1, 1, "7"},  {1, 2, "8"},   {1, 3, "9"},  {1, 4, "10"},  {1, 5, "11"}, {11, 1, "90"},
              {11, 2, "1"}, {11, 3, "45"}, {11, 4, "3"}, {11, 5, "60"}, {2, 1, ""},   {10, 5, ""}};
  for (const auto& row : rows) EXPECT_EQ(draw_.GetNumero(row.wheel, row.position), row.number);
  EXPECT_EQ(stored(), "1:7,8,9,10,11:41 11:90,1,45,3,60:51 ");
}

TEST_F(DrawRecordTest, GetNumeriLeavesNoGaps) {
  const struct {
    const char* what;
    std::vector<const char*> numbers;
    const char* joined;
  } rows[] = {{"five", {"5", "12", "33", "45", "78"}, "5,12,33,45,78"},
              {"nothing between the first and the third", {"5", "", "33"}, "5,33"},
              {"only the last", {"", "", "", "", "78"}, "78"},
              {"the first is empty", {"", "12", "33"}, "12,33"},
              {"nothing", {"", "", "", "", ""}, ""},
              {"a zero is a number", {"0", "0", "0", "0", "0"}, "0,0,0,0,0"},
              {"texts as they stand", {"07", "x", "1,2"}, "07,x,1,2"},
              {"a blank is not empty", {" ", "5"}, " ,5"},
              {"nothing but a blank", {" "}, " "}};
  for (const auto& row : rows) {
    draw_.Clear();
    add(3, row.numbers, 1);
    EXPECT_EQ(draw_.GetNumeri(3), row.joined) << row.what;
  }
}

TEST_F(DrawRecordTest, EveryAddOverwritesNumberAndKey) {
  add(4, {"1", "2"}, 77);
  draw_.AddNumero(4, 2, "90", 78);
  EXPECT_EQ(stored(), "4:90,2:78 ");
  draw_.AddNumero(4, 3, "");
  EXPECT_EQ(stored(), "4:90:0 ") << "a key that is left out is 0, and overwrites too";
  draw_.AddNumero(4, 6, "", -5);
  EXPECT_EQ(draw_.GetIdStorico(4), -5);
}

TEST_F(DrawRecordTest, ClearForgetsTheNumbersOnly) {
  add(1, {"7", "8", "9", "10", "11"}, 41);
  add(11, {"1"}, 51);
  draw_.NumeroConcorso(180);
  draw_.DataEstrazione(day(2026, 11, 15));
  draw_.Clear();
  EXPECT_EQ(stored(), "1::41 11::51 ");
  EXPECT_EQ(draw_.GetNumero(1, 1), "");
  EXPECT_EQ(draw_.NumeroConcorso(), 180);
  EXPECT_EQ(draw_.DataEstrazione(), Variant(day(2026, 11, 15)));
}

TEST_F(DrawRecordTest, WheelThatThereIsNotIsASubscriptErrorInEveryMethod) {
  for (const int32_t wheel : {0, 12, 13, -1, smallest, largest}) {
    EXPECT_EQ(error_of([&] { draw_.AddNumero(wheel, 2, "7", 41); }), 9) << wheel;
    EXPECT_EQ(error_of([&] { draw_.GetNumero(wheel, 1); }), 9) << wheel;
    EXPECT_EQ(error_of([&] { draw_.GetNumeri(wheel); }), 9) << wheel;
    EXPECT_EQ(error_of([&] { draw_.GetIdStorico(wheel); }), 9) << wheel;
  }
  EXPECT_EQ(stored(), "");
}

TEST_F(DrawRecordTest, WrongPositionStoresNeitherNumberNorKey) {
  const struct {
    int32_t position, error;
  } rows[] = {{1, 9}, {0, 9}, {7, 9}, {-1, 9}, {8, 9}, {smallest + 1, 9}, {largest, 9}, {smallest, 6}};
  add(1, {"5", "12", "33", "45", "78"}, 41);
  for (const auto& row : rows) {
    EXPECT_EQ(error_of([&] { draw_.AddNumero(1, row.position, "7", 99); }), row.error) << row.position;
    EXPECT_EQ(error_of([&] { draw_.AddNumero(2, row.position, "7", 99); }), row.error) << row.position;
    EXPECT_EQ(stored(), "1:5,12,33,45,78:41 ");
  }
}

TEST_F(DrawRecordTest, GetNumeroOfAWrongPosition) {
  for (const int32_t position : {0, 6, 7, -1, smallest, largest})
    EXPECT_EQ(error_of([&] { draw_.GetNumero(1, position); }), 9) << position;
}

TEST_F(DrawRecordTest, DateIsKeptAsItWasGiven) {
  for (const Variant& date :
       {Variant("15/11/2026"), Variant("soon"), Variant(day(2026, 11, 15)), Variant(moment({2026, 11, 15, 20, 30, 0})),
        Variant(46341), Variant(Null{}), Variant("")}) {
    draw_.DataEstrazione(date);
    EXPECT_EQ(draw_.DataEstrazione(), date);
  }
}

TEST_F(DrawRecordTest, ContestNumberIsPlain) {
  for (const int16_t contest : {int16_t{180}, int16_t{0}, int16_t{-1}, int16_t{32767}, int16_t{-32768}}) {
    draw_.NumeroConcorso(contest);
    EXPECT_EQ(draw_.NumeroConcorso(), contest);
  }
}

// The surface.

std::string type_name(ValueType type) {
  constexpr const char* names[] = {"nothing", "variant", "boolean", "integer", "long"};
  if (type == ValueType::text) return "text";
  const auto place = static_cast<size_t>(type);
  return place < std::size(names) ? names[place] : "another type";
}

std::string parameters_of(const Member& member) {
  std::string result;
  for (const auto& parameter : member.parameters()) {
    result += (result.empty() ? "" : ", ") + std::string(parameter.name) + " " + type_name(parameter.type);
    if (parameter.optional) result += " = " + describe(parameter.default_value.value());
    if (parameter.passing != Passing::by_reference) result += " by value";
    if (parameter.writes_back) result += " written back";
  }
  return "(" + result + ")";
}

std::string line_of(const Member& member) {
  constexpr const char* kinds[] = {"method", "get", "put", "putref"};
  const std::string name =
      std::to_string(member.id) + " " + kinds[static_cast<size_t>(member.kind)] + " " + std::string(member.name);
  if (member.kind == MemberKind::put) return name + " " + type_name(member.parameters()[0].type);
  return name + parameters_of(member) + " " + type_name(member.result);
}

TEST(DrawRecordMembers, InInterfaceOrder) {
  const char* expected[] = {
      "1 get DataEstrazione() variant",
      "1 put DataEstrazione variant",
      "2 get NumeroConcorso() integer",
      "2 put NumeroConcorso integer",
      "3 method AddNumero(Ruota long, EstrattoPos long, Numero text, lIDStorico long = Long 0) nothing",
      "4 method GetNumero(Ruota long, EstrattoPos long) text",
      "5 method GetNumeri(Ruota long) text",
      "6 method Clear() nothing",
      "7 method GetIdStorico(Ruota long) long",
  };
  const cEstrazione draw;
  const auto& description = draw.description();
  EXPECT_EQ(description.library, "Vestara");
  EXPECT_EQ(description.name, "cEstrazione");
  EXPECT_EQ(description.interface_name, "_cEstrazione");
  EXPECT_EQ(description.event_interface, "");
  ASSERT_EQ(description.members.size(), std::size(expected));
  for (size_t i = 0; i < std::size(expected); ++i) EXPECT_EQ(line_of(description.members[i]), expected[i]);
}

TEST(DrawRecordMembers, LateBound) {
  cEstrazione draw;
  const struct {
    const char* member;
    InvokeKind kind;
    std::vector<Variant> arguments;
    std::vector<std::string_view> names;
    const char* expected;
  } calls[] = {{"AddNumero", InvokeKind::method, {3, 2, "7", 41}, {}, "Empty"},
               {"addnumero", InvokeKind::method, {"3", int16_t{3}, 12, 42}, {"lIDStorico"}, "Empty"},
               {"GetNumero", InvokeKind::method, {3, 1}, {}, "text 7"},
               {"GetNumero", InvokeKind::get, {2, 3}, {"EstrattoPos", "Ruota"}, "text 12"},
               {"GetNumeri", InvokeKind::method, {3.0}, {}, "text 7,12"},
               {"GetIdStorico", InvokeKind::method, {3}, {}, "Long 42"},
               {"AddNumero", InvokeKind::method, {3, 4, "90", Missing{}}, {}, "Empty"},
               {"GetIdStorico", InvokeKind::method, {3}, {}, "Long 0"},
               {"AddNumero", InvokeKind::method, {1, 1, "7"}, {}, "error 9"},
               {"AddNumero", InvokeKind::method, {1, smallest, "7"}, {}, "error 6"},
               {"AddNumero", InvokeKind::method, {12, 2, "7"}, {}, "error 9"},
               {"AddNumero", InvokeKind::method, {1, 2}, {}, "error 449"},
               {"AddNumero", InvokeKind::method, {1, 2, Null{}}, {}, "error 94"},
               {"AddNumero", InvokeKind::method, {3e9, 2, "7"}, {}, "error 6"},
               {"GetNumero", InvokeKind::method, {"x", 1}, {}, "error 13"},
               {"GetNumeri", InvokeKind::method, {0}, {}, "error 9"},
               {"GetIdStorico", InvokeKind::method, {12}, {}, "error 9"},
               {"Clear", InvokeKind::method, {}, {}, "Empty"},
               {"GetNumeri", InvokeKind::method, {3}, {}, "text "},
               {"NumeroConcorso", InvokeKind::put, {"180"}, {}, "Empty"},
               {"NumeroConcorso", InvokeKind::get, {}, {}, "Integer 180"},
               {"NumeroConcorso", InvokeKind::put, {40000}, {}, "error 6"},
               {"DataEstrazione", InvokeKind::get, {}, {}, "Empty"},
               {"DataEstrazione", InvokeKind::put, {"15/11/2026"}, {}, "Empty"},
               {"DataEstrazione", InvokeKind::get, {}, {}, "text 15/11/2026"},
               {"dataestrazione", InvokeKind::put, {day(2026, 11, 15)}, {}, "Empty"},
               {"DataEstrazione", InvokeKind::get, {}, {}, "Date 46341"},
               {"Salva", InvokeKind::method, {}, {}, "error 438"}};
  for (const auto& call : calls) {
    auto arguments = call.arguments;
    EXPECT_EQ(outcome([&] { return draw.call(call.member, call.kind, arguments, call.names); }), call.expected)
        << call.member;
    EXPECT_EQ(arguments, call.arguments) << call.member << " changes no argument";
  }
}

}  // namespace
}  // namespace vestara
