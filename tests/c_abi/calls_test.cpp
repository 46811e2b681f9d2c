#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "automation/c_abi/automation.h"
#include "automation/error.h"
#include "automation/member.h"
#include "automation/registry.h"
#include "tests/c_abi/echo.h"

// What a call of the C interface leaves behind: in its result, in the host's own values, in the last error.

namespace automation {
namespace {

using c_abi::CAbi;
using c_abi::echo_class;
using c_abi::number;
using c_abi::Value;

TEST_F(CAbi, AFailedCallLeavesNoOldResult) {
  au_value thirteen = number(AU_LONG, 13);
  const struct {
    const char* what;
    au_status status;
    std::function<au_status(au_value*)> call;
  } rows[] = {{"what the callback raised", AU_RAISED,
               [&](au_value* result) { return au_invoke(object_, 5, AU_METHOD, &thirteen, 1, nullptr, 0, result); }},
              {"more names than arguments", AU_RAISED,
               [&](au_value* result) { return au_invoke(object_, 5, AU_METHOD, nullptr, 0, nullptr, 1, result); }},
              {"null names", AU_BAD_ARGUMENT,
               [&](au_value* result) { return au_invoke(object_, 5, AU_METHOD, &thirteen, 1, nullptr, 1, result); }},
              {"null arguments", AU_BAD_ARGUMENT,
               [&](au_value* result) { return au_invoke(object_, 5, AU_METHOD, nullptr, 1, nullptr, 0, result); }},
              {"an unknown kind of call", AU_BAD_ARGUMENT,
               [&](au_value* result) { return au_invoke(object_, 5, 9, nullptr, 0, nullptr, 0, result); }},
              {"no object", AU_BAD_HANDLE,
               [&](au_value* result) { return au_invoke(nullptr, 5, AU_METHOD, nullptr, 0, nullptr, 0, result); }},
              {"what the callback raised, as a property", AU_RAISED,
               [&](au_value* result) { return au_get(object_, 5, result); }},
              {"no object, as a property", AU_BAD_HANDLE, [&](au_value* result) { return au_get(nullptr, 5, result); }},
              {"what the callback raised, by name", AU_RAISED,
               [&](au_value* result) { return au_call(object_, "Echo", AU_METHOD, &thirteen, 1, result); }},
              {"an unknown member", AU_RAISED,
               [&](au_value* result) { return au_call(object_, "Other", AU_METHOD, nullptr, 0, result); }},
              {"a null name", AU_BAD_ARGUMENT,
               [&](au_value* result) { return au_call(object_, nullptr, AU_METHOD, nullptr, 0, result); }},
              {"no object, by name", AU_BAD_HANDLE,
               [&](au_value* result) { return au_call(nullptr, "Echo", AU_METHOD, nullptr, 0, result); }}};
  for (const auto& row : rows) {
    Value result;
    ASSERT_EQ(au_set_text(&result, "old", 3), AU_OK);
    EXPECT_EQ(row.call(&result), row.status) << row.what;
    EXPECT_EQ(result.kind, AU_EMPTY) << row.what;
    EXPECT_EQ(result.owned, 0) << row.what;
  }
}

/// Writes back, and may fail after that.
class Writer final : public Object {
 public:
  static constexpr std::string_view contract_name = "cWriter";
  static const ClassDescription& surface();
  const ClassDescription& description() const override { return surface(); }

  /// Doubles the count; error 11 for a step of 99, after it wrote.
  int32_t Double(const std::string& text, InOut<int32_t> count, int32_t step) {
    *count *= 2;
    if (step == 99) throw division_by_zero();
    return static_cast<int32_t>(text.size());
  }
};

constexpr Member writer_members[] = {Rows<Writer>::method<&Writer::Double>(1, "Double", "Doubles.", parameter("sText"),
                                                                           parameter("lCount"), optional("lStep", 1))};
constexpr ClassDescription writer{
    .library = "Tests", .name = "cWriter", .interface_name = "_cWriter", .members = writer_members};
const ClassDescription& Writer::surface() { return writer; }
const ClassRegistrar<Writer> registered;

TEST(CAbiCalls, WhatTheMemberWroteComesBackAndTheRestStaysTheHosts) {
  const std::string text = "borrowed";
  for (const int32_t step : {1, 99}) {
    au_object* object = nullptr;
    ASSERT_EQ(au_create_object("Tests.cWriter", &object), AU_OK);
    au_value arguments[] = {
        {AU_TEXT, 0, {.text = {text.data(), text.size()}}}, number(AU_LONG, 21), number(AU_LONG, step)};
    Value result;
    EXPECT_EQ(au_call(object, "Double", AU_METHOD, arguments, 3, &result), step == 99 ? AU_RAISED : AU_OK);
    EXPECT_EQ(arguments[0].as.text.bytes, text.data()) << step;
    EXPECT_EQ(arguments[0].owned, 0) << step;
    EXPECT_EQ(arguments[1].as.number, 42) << step;
    EXPECT_EQ(result.kind, step == 99 ? AU_EMPTY : AU_LONG);
    au_release(object);
  }
}

TEST_F(CAbi, AValueOfNoKnownKindIsRefused) {
  for (const int32_t kind : {-1, AU_ARRAY + 1, 99}) {
    au_value argument = number(kind, 1);
    Value result;
    EXPECT_EQ(echo(argument, result), AU_BAD_ARGUMENT) << kind;
  }
}

TEST_F(CAbi, AMemberThatIsMissingIsNamed) {
  int32_t id = 0;
  for (const auto& ask : std::vector<std::function<au_status()>>{
           [&] { return au_call(object_, "Nothing", AU_METHOD, nullptr, 0, nullptr); },
           [&] { return au_get_id(object_, "Nothing", &id); }}) {
    EXPECT_EQ(ask(), AU_RAISED);
    EXPECT_EQ(au_last_error().number, 438);
    EXPECT_NE(std::string(au_last_error().description).find("'Nothing'"), std::string::npos);
  }
}

TEST(CAbiCalls, WhatIsNotCreatedIsNull) {
  c_abi::Echo echo;
  au_object* const old = reinterpret_cast<au_object*>(&echo);
  au_host_class of_another_version = echo_class;
  of_another_version.version = 0;
  au_host_class without_id = echo_class;
  without_id.get_id = nullptr;
  au_host_class without_invoke = echo_class;
  without_invoke.invoke = nullptr;
  const struct {
    const char* what;
    au_status status;
    std::function<au_status(au_object**)> create;
  } rows[] = {
      {"an unknown class", AU_RAISED, [](au_object** object) { return au_create_object("Tests.cNothing", object); }},
      {"no identifier", AU_BAD_ARGUMENT, [](au_object** object) { return au_create_object(nullptr, object); }},
      {"no table", AU_BAD_ARGUMENT, [](au_object** object) { return au_create_host_object(nullptr, nullptr, object); }},
      {"another version", AU_BAD_VERSION,
       [&](au_object** object) { return au_create_host_object(&of_another_version, nullptr, object); }},
      {"a table without get_id", AU_BAD_ARGUMENT,
       [&](au_object** object) { return au_create_host_object(&without_id, nullptr, object); }},
      {"a table without invoke", AU_BAD_ARGUMENT,
       [&](au_object** object) { return au_create_host_object(&without_invoke, nullptr, object); }}};
  for (const auto& row : rows) {
    au_object* object = old;
    EXPECT_EQ(row.create(&object), row.status) << row.what;
    EXPECT_EQ(object, nullptr) << row.what;
  }
}

au_status raise_without_texts(void*, int32_t, au_invoke_kind, au_value*, size_t, const char* const*, size_t,
                              au_value*) {
  au_raise(77, nullptr, nullptr);
  return AU_RAISED;
}

TEST(CAbiCalls, AnErrorWithoutTextsHasEmptyOnes) {
  const au_host_class table{AU_ABI_VERSION, c_abi::echo_id, raise_without_texts, nullptr};
  au_object* object = nullptr;
  ASSERT_EQ(au_create_host_object(&table, nullptr, &object), AU_OK);
  EXPECT_EQ(au_call(object, "Echo", AU_METHOD, nullptr, 0, nullptr), AU_RAISED);
  EXPECT_EQ(au_last_error().number, 77);
  EXPECT_STREQ(au_last_error().description, "");
  EXPECT_STREQ(au_last_error().source, "");
  au_release(object);
}

au_status keep_names(void* host, int32_t, au_invoke_kind, au_value*, size_t, const char* const* names, size_t count,
                     au_value*) {
  static_cast<std::vector<std::string>*>(host)->assign(names, names + count);
  return AU_OK;
}

TEST(CAbiCalls, NamesReachAnObjectOfTheHostInTheirOrder) {
  const au_host_class table{AU_ABI_VERSION, c_abi::echo_id, keep_names, nullptr};
  std::vector<std::string> heard;
  au_object* object = nullptr;
  ASSERT_EQ(au_create_host_object(&table, &heard, &object), AU_OK);
  const char* const names[] = {"first", "second", "third"};
  au_value arguments[] = {number(AU_LONG, 1), number(AU_LONG, 2), number(AU_LONG, 3), number(AU_LONG, 4)};
  ASSERT_EQ(au_invoke(object, 5, AU_METHOD, arguments, 4, names, 3, nullptr), AU_OK);
  EXPECT_EQ(heard, (std::vector<std::string>{"first", "second", "third"}));
  au_release(object);
}

TEST(CAbiCalls, ACookieIsGivenBackOnce) {
  au_object* lotto = nullptr;
  ASSERT_EQ(au_create_object("Vestara.cLotto", &lotto), AU_OK);
  int32_t cookie = 0;
  const auto deaf = [](void*, int32_t, const char*, const au_value*, size_t) -> au_status { return AU_OK; };
  ASSERT_EQ(au_advise(lotto, deaf, nullptr, &cookie), AU_OK);
  const struct {
    int32_t cookie;
    int32_t error;
  } rows[] = {{cookie + 1, 5}, {cookie, 0}, {cookie, 5}};
  for (const auto& row : rows) {
    EXPECT_EQ(au_unadvise(lotto, row.cookie), row.error == 0 ? AU_OK : AU_RAISED) << row.cookie;
    if (row.error != 0) {
      EXPECT_EQ(au_last_error().number, row.error);
    }
  }
  au_release(lotto);
}

TEST_F(CAbi, TheSurfaceOfAClassIsTextAndOfAHostsObjectThereIsNone) {
  au_object* object = nullptr;
  ASSERT_EQ(au_create_object("Tests.cWriter", &object), AU_OK);
  Value json;
  ASSERT_EQ(au_describe(object, &json), AU_OK);
  ASSERT_EQ(json.kind, AU_TEXT);
  const std::string text(json.as.text.bytes, json.as.text.length);
  EXPECT_EQ(text.rfind(R"({"library":"Tests","class":"cWriter",)", 0), 0U) << text;
  au_release(object);
  EXPECT_EQ(au_describe(object_, &json), AU_RAISED);
  EXPECT_EQ(au_last_error().number, 438);
}

TEST_F(CAbi, AnElementMayTakeThePlaceOfItsArray) {
  const std::string text(100, 't');
  Value value;
  const au_bound bound{0, 2};
  ASSERT_EQ(au_make_array(&value, AU_EMPTY, &bound, 1), AU_OK);
  const au_value last{AU_TEXT, 0, {.text = {text.data(), text.size()}}};
  ASSERT_EQ(au_array_put(&value, 1, &last), AU_OK);
  ASSERT_EQ(au_array_get(&value, 1, &value), AU_OK);
  ASSERT_EQ(value.kind, AU_TEXT);
  EXPECT_EQ(std::string(value.as.text.bytes, value.as.text.length), text);
}

TEST_F(CAbi, EveryElementIsANumberAndALength) {
  const std::string text = "abc";
  const struct {
    au_value element;
    double number;
    size_t length;
  } rows[] = {{number(AU_EMPTY, 0), 0, 0},
              {number(AU_NULL, 0), 0, 0},
              {number(AU_BOOLEAN, 1), 1, 0},
              {number(AU_BOOLEAN, 0), 0, 0},
              {number(AU_INTEGER, -7), -7, 0},
              {number(AU_LONG, 70000), 70000, 0},
              {c_abi::real(AU_SINGLE, 0.5), 0.5, 0},
              {c_abi::real(AU_DOUBLE, 1e300), 1e300, 0},
              {c_abi::real(AU_DATE, 38392.25), 38392.25, 0},
              {{AU_TEXT, 0, {.text = {text.data(), text.size()}}}, 0, 3},
              {{AU_OBJECT, 0, {.object = object_}}, 0, 0}};
  constexpr size_t count = std::size(rows);
  Value array;
  const au_bound bound{0, static_cast<int32_t>(count)};
  ASSERT_EQ(au_make_array(&array, AU_EMPTY, &bound, 1), AU_OK);
  for (size_t i = 0; i < count; ++i) ASSERT_EQ(au_array_put(&array, i, &rows[i].element), AU_OK) << i;
  std::vector<double> numbers(count, -99);
  std::vector<uint8_t> kinds(count, 99);
  std::vector<size_t> lengths(count, 99);
  Value joined;
  ASSERT_EQ(au_array_numbers(&array, 0, 1, count, numbers.data(), kinds.data()), AU_OK);
  ASSERT_EQ(au_array_texts(&array, 0, 1, count, &joined, lengths.data()), AU_OK);
  for (size_t i = 0; i < count; ++i) {
    EXPECT_EQ(numbers[i], rows[i].number) << i;
    EXPECT_EQ(kinds[i], rows[i].element.kind) << i;
    EXPECT_EQ(lengths[i], rows[i].length) << i;
  }
  EXPECT_EQ(std::string(joined.as.text.bytes, joined.as.text.length), text);
}

}  // namespace
}  // namespace automation
