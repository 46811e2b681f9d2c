#include "automation/member.h"

#include <gtest/gtest.h>

#include "automation/objects/call_depth.h"
#include "tests/support/values.h"

namespace automation {
namespace {

using testing_support::describe;
using testing_support::error_of;
using testing_support::outcome;

/// A class with one member of each sort.
class Sampler final : public Object {
 public:
  static constexpr std::string_view contract_name = "Sampler";
  const ClassDescription& description() const override;

  std::string Name() const { return name_; }
  void Name(const std::string& name) { name_ = name; }
  std::string Join(const std::string& a, int16_t b, bool c, const Variant& d) {
    return a + "|" + std::to_string(b) + "|" + (c ? "yes" : "no") + "|" + describe(d);
  }
  /// Adds `step` to `value`; error 11 for a step of 99, after it wrote.
  int32_t Add(InOut<int32_t> value, int32_t step) {
    *value += step;
    if (step == 99) throw division_by_zero();
    return *value;
  }
  void Grow(InOut<std::string> text, InOut<Variant> any) {
    text->append("!");
    *any = Variant("grown");
  }
  int32_t Indexed(int16_t index) { return index * 10; }
  Ref<Sampler> Friend() const { return friend_; }
  void Friend(Ref<Sampler> other) { friend_ = std::move(other); }
  Variant FriendValue() const { return Variant(Ref<Object>(friend_)); }
  Date Tomorrow(Date day) { return Date::from_serial(day.serial() + 1); }
  double Halve(double value) const { return value / 2; }
  float Third(float value) const { return value / 3; }
  int32_t Length(Array items) { return static_cast<int32_t>(items.items().size()); }
  void Copy(Variant value) { name_ = describe(value); }

 private:
  std::string name_ = "first";
  Ref<Sampler> friend_;
};

using rows_of = Rows<Sampler>;
constexpr auto members = member_rows(
    rows_of::read_only<static_cast<std::string (Sampler::*)() const>(&Sampler::Name)>(0, "Label",
                                                                                      "The default member."),
    rows_of::property<std::string, &Sampler::Name, &Sampler::Name>(1, "Name", "A name.", "A name that stays."),
    rows_of::method<&Sampler::Join>(2, "Join", "Joins.", parameter("sText"), optional("iCount", 12),
                                    optional("bFlag", true), by_value(optional("vAny"))),
    rows_of::method<&Sampler::Add>(3, "Add", "Adds.", parameter("lValue"), optional("lStep", 1)),
    rows_of::method<&Sampler::Grow>(4, "Grow", "Grows.", parameter("sText"), optional("vAny")),
    rows_of::read_only<&Sampler::Indexed>(5, "Indexed", "Ten times the index.", parameter("iIndex")),
    rows_of::property<Ref<Sampler>, &Sampler::Friend, &Sampler::Friend>(6, "Friend", "Another one."),
    rows_of::method<&Sampler::Tomorrow>(7, "Tomorrow", "A day later.", parameter("dtDay")),
    rows_of::method<&Sampler::Halve>(8, "Halve", "Half.", parameter("dValue")),
    rows_of::method<&Sampler::Third>(9, "Third", "A third.", parameter("fValue")),
    rows_of::method<&Sampler::Length>(10, "Length", "Items.", parameter("aItems")),
    rows_of::method<&Sampler::Copy>(11, "Copy", "Keeps.", optional("vValue")));
constexpr ClassDescription sampler{
    .library = "Tests", .name = "Sampler", .interface_name = "_Sampler", .members = members};
const ClassDescription& Sampler::description() const { return sampler; }

using Values = std::vector<Variant>;
using Names = std::vector<std::string_view>;

class MemberTest : public testing::Test {
 protected:
  std::string call(std::string_view member, Values arguments = {}, const Names& names = {},
                   InvokeKind kind = InvokeKind::method) {
    given_ = std::move(arguments);
    return outcome([&] { return object_.call(member, kind, given_, names); });
  }

  Sampler object_;
  Values given_;  // as the last call left them
};

TEST_F(MemberTest, RowsTellTypesNamesAndPassing) {
  const auto join = members[3].parameters();
  ASSERT_EQ(join.size(), 4U);
  const struct {
    const char* name;
    ValueType type;
    bool optional;
    const char* default_value;
    Passing passing;
  } rows[] = {{"sText", ValueType::text, false, "Missing", Passing::by_reference},
              {"iCount", ValueType::integer, true, "Long 12", Passing::by_reference},
              {"bFlag", ValueType::boolean, true, "True", Passing::by_reference},
              {"vAny", ValueType::variant, true, "Missing", Passing::by_value}};
  for (size_t i = 0; i < std::size(rows); ++i) {
    SCOPED_TRACE(rows[i].name);
    EXPECT_EQ(join[i].name, rows[i].name);
    EXPECT_EQ(join[i].type, rows[i].type);
    EXPECT_EQ(join[i].optional, rows[i].optional);
    EXPECT_EQ(describe(join[i].default_value.value()), rows[i].default_value);
    EXPECT_EQ(join[i].passing, rows[i].passing);
    EXPECT_FALSE(join[i].writes_back);
  }
  EXPECT_EQ(members[3].result, ValueType::text);
  EXPECT_TRUE(members[4].parameters()[0].writes_back);
  EXPECT_FALSE(members[4].parameters()[1].writes_back);
  EXPECT_EQ(members[4].parameters()[0].type, ValueType::long_integer);
  EXPECT_EQ(members[7].result, ValueType::object);
  EXPECT_EQ(members[7].result_class, "Sampler");
  EXPECT_EQ(members[8].kind, MemberKind::putref);
  EXPECT_EQ(members[8].result, ValueType::nothing);
}

TEST_F(MemberTest, APropertyIsARowToReadAndARowToAssign) {
  constexpr auto assigned_first =
      member_rows(rows_of::assigned_property<std::string, &Sampler::Name, &Sampler::Name>(1, "Name", "A name."));
  const struct {
    const Member& row;
    int32_t id;
    MemberKind kind;
    std::string_view name;
    ValueType result;
    ValueType assigned;
    std::string_view help;
  } rows[] = {{members[1], 1, MemberKind::get, "Name", ValueType::text, ValueType::nothing, "A name."},
              {members[2], 1, MemberKind::put, "Name", ValueType::nothing, ValueType::text, "A name that stays."},
              {members[7], 6, MemberKind::get, "Friend", ValueType::object, ValueType::nothing, "Another one."},
              {members[8], 6, MemberKind::putref, "Friend", ValueType::nothing, ValueType::object, "Another one."},
              {assigned_first[0], 1, MemberKind::put, "Name", ValueType::nothing, ValueType::text, "A name."},
              {assigned_first[1], 1, MemberKind::get, "Name", ValueType::text, ValueType::nothing, "A name."}};
  for (const auto& [row, id, kind, name, result, assigned, help] : rows) {
    SCOPED_TRACE(std::string(name) + ": " + std::string(help));
    EXPECT_EQ(row.id, id);
    EXPECT_EQ(row.kind, kind);
    EXPECT_EQ(row.name, name);
    EXPECT_EQ(row.result, result);
    EXPECT_EQ(row.parameters().empty() ? ValueType::nothing : row.parameters()[0].type, assigned);
    EXPECT_EQ(row.help, help);
  }
  EXPECT_EQ(members.size(), 14U);
}

TEST_F(MemberTest, NamesAreFoundWithoutCase) {
  EXPECT_EQ(object_.id_of("JOIN"), 2);
  EXPECT_EQ(object_.id_of("name"), 1);
  EXPECT_EQ(object_.id_of("label"), 0);
  EXPECT_FALSE(object_.id_of("Joi"));
  EXPECT_FALSE(object_.id_of(""));
  EXPECT_EQ(call("hAlVe", {3}), "Double 1.5");
  EXPECT_EQ(describe(object_.default_value()), "text first");
}

TEST_F(MemberTest, Calls) {
  const struct {
    const char* member;
    Values arguments;
    Names names;
    const char* expected;
  } rows[] = {{"Join", {"a"}, {}, "text a|12|yes|Missing"},
              {"Join", {"a", int16_t{3}, false, Null{}}, {}, "text a|3|no|Null"},
              {"Join", {7, "3", 0, 1.5}, {}, "text 7|3|no|Double 1.5"},
              {"Join", {"a", Missing{}, false}, {}, "text a|12|no|Missing"},
              {"Join", {"a", Missing{}, Missing{}, Missing{}}, {}, "text a|12|yes|Missing"},
              {"Join", {"a", 5}, {"vAny"}, "text a|12|yes|Long 5"},
              {"Join", {"a", false}, {"BFLAG"}, "text a|12|no|Missing"},
              {"Join", {false, "a", 2}, {"bFlag", "sText", "iCount"}, "text a|2|no|Missing"},
              {"Join", {"a", 2.5}, {}, "text a|2|yes|Missing"},
              {"Indexed", {4}, {}, "Long 40"},
              {"Tomorrow", {"15/11/2026"}, {}, "Date 46342"},
              {"Third", {1.5}, {}, "Single 0.5"},
              {"Length", {Array(VariantKind::empty, 0, {1, 2, 3})}, {}, "Long 3"},
              {"Length", {Empty{}}, {}, "Long 0"},
              {"Copy", {}, {}, "Empty"},
              {"Nothing", {}, {}, "error 438"},
              {"", {}, {}, "error 438"},
              {"Join", {}, {}, "error 449"},
              {"Join", {Missing{}}, {}, "error 449"},
              {"Join", {1}, {"iCount"}, "error 449"},
              {"Join", {"a", 1, true, 1, 1}, {}, "error 450"},
              {"Join", {}, {"sText"}, "error 450"},
              {"Join", {"a"}, {"sText", "iCount"}, "error 450"},
              {"Name", {3}, {}, "error 451"},
              {"Friend", {3}, {}, "error 91"},
              {"Join", {"a", 1}, {"iKount"}, "error 448"},
              {"Join", {"a", "x"}, {}, "error 13"},
              {"Join", {"a", 40000}, {}, "error 6"},
              {"Join", {"a", Null{}}, {}, "error 94"},
              {"Join", {Ref<Object>{}}, {}, "error 91"},
              {"Length", {1}, {}, "error 13"},
              {"Length", {""}, {}, "error 13"},
              {"Length", {Null{}}, {}, "error 13"},
              {"Tomorrow", {"x"}, {}, "error 13"},
              {"Add", {1, 99}, {}, "error 11"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.member) + " " + testing::PrintToString(row.arguments));
    EXPECT_EQ(call(row.member, row.arguments, row.names), row.expected);
  }
}

TEST_F(MemberTest, ArgumentGivenTwiceIsAnError) {
  EXPECT_NE(call("Join", {"a", "b"}, {"sText"}).find("error "), std::string::npos);
  EXPECT_NE(call("Join", {"a", 1, 2}, {"iCount", "icount"}).find("error "), std::string::npos);
}

TEST_F(MemberTest, MissingStaysMissingWithoutADefault) {
  call("Copy");
  EXPECT_EQ(object_.Name(), "Missing");
  call("Copy", {Null{}});
  EXPECT_EQ(object_.Name(), "Null");
}

TEST_F(MemberTest, WritesBackOnlyWhereDeclaredAndOnlyWhatChanged) {
  const struct {
    const char* member;
    Values arguments;
    Names names;
    const char* after;
  } rows[] = {{"Add", {5, 2}, {}, "Long 7, Long 2"},
              {"Add", {int16_t{5}, int16_t{2}}, {}, "Long 7, Integer 2"},
              {"Add", {"5", "2"}, {}, "Long 7, text 2"},
              {"Add", {"5", 0}, {}, "text 5, Long 0"},
              {"Add", {5.0, 0.0}, {}, "Double 5, Double 0"},
              {"Add", {Empty{}}, {}, "Long 1"},
              {"Add", {3, 5}, {"lStep", "lValue"}, "Long 3, Long 8"},
              {"Grow", {"a", 1}, {}, "text a!, text grown"},
              {"Grow", {"a", Missing{}}, {}, nullptr},
              {"Join", {7, "3"}, {}, "Long 7, text 3"},
              {"Halve", {"4"}, {}, "text 4"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.member) + " " + testing::PrintToString(row.arguments));
    call(row.member, row.arguments, row.names);
    std::string after;
    for (const auto& value : given_) after += (after.empty() ? "" : ", ") + describe(value);
    if (row.after) {
      EXPECT_EQ(after, row.after);
    }
  }
}

TEST_F(MemberTest, FailedCallLeavesWhatTheMemberWroteAndNothingElse) {
  const struct {
    const char* member;
    Values arguments;
    Names names;
    Values left = {};  ///< as given when there is none
  } rows[] = {{"Add", {5, 99}, {}, {104, 99}},
              {"Add", {"5", "x"}, {}},
              {"Add", {"x", 1}, {}},
              {"Add", {1, 2, 3}, {}},
              {"Add", {1, 2}, {"lStop"}},
              {"Grow", {Null{}, 1}, {}},
              {"Add", {2, 99}, {"lStep"}, {101, 99}},
              {"Join", {"a text kept elsewhere", "x"}, {}},
              {"Join", {"no date", "a text kept elsewhere"}, {"iCount", "sText"}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.member) + " " + testing::PrintToString(row.arguments));
    EXPECT_EQ(call(row.member, row.arguments, row.names).substr(0, 6), "error ");
    EXPECT_EQ(given_, row.left.empty() ? row.arguments : row.left);
  }
}

TEST_F(MemberTest, Properties) {
  EXPECT_EQ(call("Name", {}, {}, InvokeKind::get), "text first");
  EXPECT_EQ(call("Name", {}, {}, InvokeKind::method), "text first");
  EXPECT_EQ(call("Name", {"second"}, {}, InvokeKind::put), "Empty");
  EXPECT_EQ(object_.Name(), "second");
  EXPECT_EQ(call("Name", {3}, {}, InvokeKind::putref), "Empty");
  EXPECT_EQ(object_.Name(), "3");
  EXPECT_EQ(call("Indexed", {2}, {}, InvokeKind::get), "Long 20");
  EXPECT_EQ(call("Halve", {2}, {}, InvokeKind::get), "Double 1");
  EXPECT_EQ(call("Name", {}, {}, InvokeKind::put).substr(0, 6), "error ");
  EXPECT_EQ(call("Name", {1, 2}, {}, InvokeKind::put).substr(0, 6), "error ");
  EXPECT_EQ(call("Label", {"x"}, {}, InvokeKind::put).substr(0, 6), "error ");
  EXPECT_EQ(call("Name", {Null{}}, {}, InvokeKind::put), "error 94");
  EXPECT_EQ(object_.Name(), "3");
}

TEST_F(MemberTest, ObjectArguments) {
  const auto other = make<Sampler>();
  EXPECT_EQ(call("Friend", {}, {}, InvokeKind::get), "Nothing");
  EXPECT_EQ(call("Friend", {Ref<Object>(other)}, {}, InvokeKind::putref), "Empty");
  EXPECT_EQ(object_.Friend().get(), other.get());
  EXPECT_EQ(call("Friend", {}, {}, InvokeKind::get), "Object");
  EXPECT_EQ(call("Friend", {5}, {}, InvokeKind::putref), "error 13");
  EXPECT_EQ(call("Friend", {Null{}}, {}, InvokeKind::putref), "error 13");
  class Stranger final : public Object {
   public:
    const ClassDescription& description() const override { return sampler; }
  };
  EXPECT_EQ(call("Friend", {make<Stranger>()}, {}, InvokeKind::putref), "error 13");
  EXPECT_EQ(object_.Friend().get(), other.get());
  EXPECT_EQ(call("Friend", {Ref<Object>{}}, {}, InvokeKind::put), "Empty");
  EXPECT_FALSE(object_.Friend());
}

TEST_F(MemberTest, InvokeByIdFindsTheRowOfItsKind) {
  Values value{"third"};
  object_.invoke(1, InvokeKind::put, value);
  EXPECT_EQ(describe(object_.invoke(1, InvokeKind::get, {})), "text third");
  EXPECT_EQ(error_of([&] { object_.invoke(99, InvokeKind::method, {}); }), 438);
  EXPECT_EQ(error_of([&] { object_.invoke(-1, InvokeKind::get, {}); }), 438);
}

/// Stands for a value.
class Holder final : public Object {
 public:
  explicit Holder(Variant value) : value_(std::move(value)) {}
  Variant Value() const { return value_; }
  const ClassDescription& description() const override;

 private:
  Variant value_;
};
constexpr Member holder_members[] = {Rows<Holder>::get<Variant, &Holder::Value>(0, "Value", "What it stands for.")};
constexpr ClassDescription holder{.library = "Tests", .name = "Holder", .members = holder_members};
const ClassDescription& Holder::description() const { return holder; }

Variant held(Variant value) { return make<Holder>(std::move(value)); }

TEST_F(MemberTest, AnObjectIsItsValueWhereAValueIsExpected) {
  const Array two(VariantKind::empty, 0, {1, 2});
  const struct {
    const char* member;
    Values arguments;
    const char* result;
  } rows[] = {{"Join", {held("a"), held(3), held(true), held(5)}, "text a|3|yes|Long 5"},
              {"Join", {"a", 3, true, held(Null{})}, "text a|3|yes|Null"},
              {"Join", {"a", 3, true, held(Empty{})}, "text a|3|yes|Empty"},
              {"Join", {"a", 3, true, held(Missing{})}, "text a|3|yes|Missing"},
              {"Join", {"a", 3, true, held(held("deep"))}, "text a|3|yes|text deep"},
              {"Join", {"a", 3, true, Ref<Object>{}}, "error 91"},
              {"Join", {"a", 3, true, held(Ref<Object>{})}, "error 91"},
              {"Join", {held(Null{}), 3, true, 5}, "error 94"},
              {"Length", {held(two)}, "Long 2"},
              {"Length", {held(5)}, "error 13"},
              {"Halve", {held("2.5")}, "Double 1.25"},
              {"Tomorrow", {held(testing_support::day(2026, 11, 15))}, "Date 46342"},
              {"Copy", {held(7)}, "Empty"}};
  for (const auto& row : rows) EXPECT_EQ(call(row.member, row.arguments), row.result) << row.member;
  EXPECT_EQ(call("Label"), "text Long 7");
  EXPECT_EQ(call("Friend", {held(7)}, {}, InvokeKind::putref), "error 13") << "here an object is an object";
}

TEST_F(MemberTest, AnObjectIsWrittenBackOnlyWhereItsValueChanged) {
  const Variant five = held(5);
  const Variant text = held("x");
  EXPECT_EQ(call("Add", {five, 0}), "Long 5");
  EXPECT_EQ(given_[0], five);
  EXPECT_EQ(call("Add", {five, 2}), "Long 7");
  EXPECT_EQ(describe(given_[0]), "Long 7");
  EXPECT_EQ(call("Grow", {text, held("grown")}), "Empty");
  EXPECT_EQ(describe(given_[0]), "text x!");
  EXPECT_TRUE(given_[1].is_object());
  EXPECT_EQ(call("Grow", {"x", five}), "Empty");
  EXPECT_EQ(describe(given_[1]), "text grown");
  EXPECT_EQ(call("Join", {text, five, five, five}), "text x|5|yes|Long 5");
  for (const Variant& given : given_) EXPECT_TRUE(given.is_object());
}

/// A property with both forms of assignment, in the order `First`, then the other.
template <MemberKind First>
class BothForms final : public Object {
 public:
  void let(const Variant& value) { last_ = "let " + describe(value); }
  void set(Ref<Sampler> value) { last_ = value ? "set an object" : "set nothing"; }
  std::string Last() const { return last_; }
  const ClassDescription& description() const override {
    using row = Rows<BothForms>;
    static constexpr Member put = row::template put<const Variant&, &BothForms::let>(1, "It", "Let.");
    static constexpr Member putref = row::template putref<Ref<Sampler>, &BothForms::set>(1, "It", "Set.");
    static constexpr Member last = row::template get<std::string, &BothForms::Last>(2, "Last", "What was called.");
    static constexpr Member rows[] = {First == MemberKind::put ? put : putref, First == MemberKind::put ? putref : put,
                                      last};
    static constexpr ClassDescription both{.library = "Tests", .name = "BothForms", .members = rows};
    return both;
  }

 private:
  std::string last_;
};

template <class Class>
void expect_both_forms() {
  Class object;
  const auto assign = [&](InvokeKind kind, Variant value) {
    object.call("It", kind, {&value, 1});
    return object.Last();
  };
  EXPECT_EQ(assign(InvokeKind::put, 5), "let Long 5");
  EXPECT_EQ(assign(InvokeKind::putref, make<Sampler>()), "set an object");
  EXPECT_EQ(assign(InvokeKind::put, make<Sampler>()), "let text first") << "without Set the default member counts";
  EXPECT_EQ(assign(InvokeKind::putref, Ref<Object>{}), "set nothing");
}

TEST(BothForms, TheCallersOwnFormIsTakenWhicheverRowIsFirst) {
  expect_both_forms<BothForms<MemberKind::put>>();
  expect_both_forms<BothForms<MemberKind::putref>>();
}

/// Asks itself again, by name, as deep as it goes.
class Asking final : public Object {
 public:
  int32_t Again() {
    ++depth;
    return to_long(call("Again", InvokeKind::method, {}));
  }
  const ClassDescription& description() const override;
  int32_t depth = 0;
};
constexpr Member asking_members[] = {Rows<Asking>::method<&Asking::Again>(0, "Again", "Again.")};
constexpr ClassDescription asking{.library = "Tests", .name = "Asking", .members = asking_members};
const ClassDescription& Asking::description() const { return asking; }

TEST(CallDepth, CirclesEndInAnErrorAndTheNextCallBeginsAnew) {
  Asking object;
  for (int turn = 0; turn < 2; ++turn) {
    object.depth = 0;
    EXPECT_EQ(error_of([&] { object.call("Again", InvokeKind::method, {}); }), 28);
    // A call by name of a class of the library counts twice: as a call, and as that of its row.
    EXPECT_EQ(object.depth, deepest_call / 2);
  }
}

}  // namespace
}  // namespace automation
