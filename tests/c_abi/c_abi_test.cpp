#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "automation/c_abi/automation.h"
#include "automation/yield.h"
#include "tests/c_abi/echo.h"
#include "tests/support/values.h"

// What the example in C does not reach: every kind there and back, arrays, handles after their end, callbacks that
// misbehave.

namespace {

using c_abi::CAbi;
using c_abi::Echo;
using c_abi::echo_class;
using c_abi::echo_id;
using c_abi::number;
using c_abi::real;
using c_abi::Value;

TEST_F(CAbi, EveryKindGoesThereAndBack) {
  for (const au_value& given :
       {number(AU_NULL, 0), number(AU_BOOLEAN, 1), number(AU_BOOLEAN, 0), number(AU_INTEGER, -32768),
        number(AU_LONG, 2147483647), real(AU_SINGLE, 0.5), real(AU_DOUBLE, -1e300), real(AU_DATE, 38392.25)}) {
    au_value argument = given;
    Value result;
    ASSERT_EQ(echo(argument, result), AU_OK) << given.kind;
    EXPECT_EQ(result.kind, given.kind);
    EXPECT_EQ(argument.kind, AU_EMPTY) << "written back";
    const bool is_real = given.kind == AU_SINGLE || given.kind == AU_DOUBLE || given.kind == AU_DATE;
    EXPECT_TRUE(is_real ? result.as.real == given.as.real : result.as.number == given.as.number) << given.kind;
  }
}

// Hosts have a True of their own, -1 among them.
TEST_F(CAbi, EveryNumberButZeroIsTrue) {
  for (const int32_t given : {1, -1, 2, 256, -2147483647}) {
    au_value argument = number(AU_BOOLEAN, given);
    Value result;
    ASSERT_EQ(echo(argument, result), AU_OK) << given;
    EXPECT_EQ(result.kind, AU_BOOLEAN) << given;
    EXPECT_EQ(result.as.number, 1) << given;
  }
}

TEST_F(CAbi, WholeNumbersOfSixteenBitsAreChecked) {
  const struct {
    int32_t given;
    int32_t error;
  } rows[] = {{32767, 0}, {32768, 6}, {40000, 6}, {-32768, 0}, {-32769, 6}, {2147483647, 6}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.given);
    au_value argument = number(AU_INTEGER, row.given);
    Value result;
    EXPECT_EQ(echo(argument, result), row.error == 0 ? AU_OK : AU_RAISED);
    if (row.error != 0) {
      EXPECT_EQ(au_last_error().number, row.error);
    } else {
      EXPECT_EQ(result.as.number, row.given);
    }
  }
}

TEST_F(CAbi, FractionsOfASecondAreCut) {
  constexpr double second = 1.0 / 86400;
  const struct {
    double given, kept;
  } rows[] = {{38392 + 86399.999999 * second, 38392 + 86399 * second},
              {38392 + 0.9 * second, 38392},
              {38392 + 43200.5 * second, 38392.5},
              {0.9 * second, 0},
              {-10584 - 86399.9 * second, -10584 - 86399 * second},
              {-1 - 0.9 * second, -1}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.given);
    au_value argument = real(AU_DATE, row.given);
    Value result;
    ASSERT_EQ(echo(argument, result), AU_OK);
    EXPECT_EQ(result.as.real, row.kept);
  }
}

TEST_F(CAbi, TextKeepsItsLengthAndEndsWithNul) {
  const std::string text("a\0b\xc3\xa8", 5);
  Value argument;
  Value result;
  ASSERT_EQ(au_set_text(&argument, text.data(), text.size()), AU_OK);
  ASSERT_EQ(echo(argument, result), AU_OK);
  EXPECT_EQ(std::string(result.as.text.bytes, result.as.text.length), text);
  EXPECT_EQ(result.as.text.bytes[result.as.text.length], '\0');
}

TEST_F(CAbi, ObjectsComeBackAsThemselves) {
  Value argument;
  Value result;
  ASSERT_EQ(au_set_object(&argument, object_), AU_OK);
  ASSERT_EQ(echo(argument, result), AU_OK);
  EXPECT_EQ(result.as.object, object_);
  EXPECT_EQ(au_host_of(&echo_class, result.as.object), &echo_);
  const au_host_class other = echo_class;
  EXPECT_EQ(au_host_of(&other, result.as.object), nullptr);
}

TEST_F(CAbi, ErrorsOfAHostPassThrough) {
  au_value argument = number(AU_LONG, 13);
  Value result;
  EXPECT_EQ(echo(argument, result), AU_RAISED);
  const au_error error = au_last_error();
  EXPECT_EQ(error.number, 1234);
  EXPECT_STREQ(error.description, "thirteen");
  EXPECT_STREQ(error.source, "Echo");
  EXPECT_EQ(au_call(object_, "Echo", AU_METHOD, nullptr, 0, nullptr), AU_RAISED);
  EXPECT_STREQ(au_last_error().description, "the host's object failed without saying why");
  EXPECT_EQ(au_call(object_, "Other", AU_METHOD, nullptr, 0, nullptr), AU_RAISED);
  EXPECT_EQ(au_last_error().number, 438);
}

TEST_F(CAbi, AHostThatDoesNotSayWhyIsNotHeldToAnEarlierError) {
  au_value argument = number(AU_LONG, 13);
  ASSERT_EQ(au_invoke(object_, 5, AU_METHOD, &argument, 1, nullptr, 0, nullptr), AU_RAISED);
  ASSERT_EQ(au_last_error().number, 1234);
  ASSERT_EQ(au_invoke(object_, 5, AU_METHOD, nullptr, 0, nullptr, 0, nullptr), AU_RAISED);
  EXPECT_STREQ(au_last_error().description, "the host's object failed without saying why");
}

/// A host's object that lets its own last count go while it is called.
struct Parting {
  au_object* self = nullptr;
  bool gone = false;
  bool gone_inside = false;
};
au_status parting_invoke(void* host, int32_t, au_invoke_kind, au_value*, size_t, const char* const*, size_t,
                         au_value*) {
  auto& parting = *static_cast<Parting*>(host);
  au_release(parting.self);
  parting.gone_inside = parting.gone;
  return AU_OK;
}

TEST(CAbiCalls, AnObjectLivesToTheEndOfItsOwnCall) {
  const au_host_class table{AU_ABI_VERSION, echo_id, parting_invoke,
                            [](void* host) { static_cast<Parting*>(host)->gone = true; }};
  Parting parting;
  ASSERT_EQ(au_create_host_object(&table, &parting, &parting.self), AU_OK);
  ASSERT_EQ(au_invoke(parting.self, 5, AU_METHOD, nullptr, 0, nullptr, 0, nullptr), AU_OK);
  EXPECT_FALSE(parting.gone_inside);
  EXPECT_TRUE(parting.gone);
}

/// A host's object that answers a call by calling itself, as deep as it goes.
struct Circle {
  au_object* self = nullptr;
  int depth = 0;
};
au_status circle_invoke(void* host, int32_t, au_invoke_kind, au_value*, size_t, const char* const*, size_t, au_value*) {
  auto& circle = *static_cast<Circle*>(host);
  ++circle.depth;
  // The error of the deepest call is the error of every call around it.
  return au_call(circle.self, "Echo", AU_METHOD, nullptr, 0, nullptr);
}

TEST(CAbiCalls, ACircleEndsInAnError) {
  const au_host_class table{AU_ABI_VERSION, echo_id, circle_invoke, nullptr};
  for (int turn = 0; turn < 2; ++turn) {
    Circle circle;
    ASSERT_EQ(au_create_host_object(&table, &circle, &circle.self), AU_OK);
    EXPECT_EQ(au_call(circle.self, "Echo", AU_METHOD, nullptr, 0, nullptr), AU_RAISED);
    EXPECT_EQ(au_last_error().number, 28);
    EXPECT_EQ(std::string(au_last_error().description).rfind("Out of stack space: 64 calls", 0), 0U);
    EXPECT_GE(circle.depth, 64);
    EXPECT_LE(circle.depth, 72);
    au_release(circle.self);
  }
}

TEST_F(CAbi, ReleasedObjectsAreNoticed) {
  // Handles are watched in this build unless the environment says otherwise.
  ASSERT_EQ(au_retain(object_), AU_OK);
  ASSERT_EQ(au_release(object_), AU_OK);
  ASSERT_EQ(au_release(object_), AU_OK);
  EXPECT_EQ(au_release(object_), AU_BAD_HANDLE);
  EXPECT_EQ(au_retain(object_), AU_BAD_HANDLE);
  EXPECT_EQ(au_call(object_, "Echo", AU_METHOD, nullptr, 0, nullptr), AU_BAD_HANDLE);
  object_ = nullptr;
}

TEST_F(CAbi, MisuseIsAStatus) {
  Value value;
  int32_t id = 0;
  EXPECT_EQ(au_retain(nullptr), AU_BAD_HANDLE);
  EXPECT_EQ(au_release(nullptr), AU_BAD_HANDLE);
  EXPECT_EQ(au_get_id(object_, nullptr, &id), AU_BAD_ARGUMENT);
  EXPECT_EQ(au_get_id(object_, "Echo", nullptr), AU_BAD_ARGUMENT);
  EXPECT_EQ(au_invoke(object_, 5, AU_METHOD, nullptr, 1, nullptr, 0, nullptr), AU_BAD_ARGUMENT);
  EXPECT_EQ(au_invoke(object_, 5, 9, nullptr, 0, nullptr, 0, nullptr), AU_BAD_ARGUMENT);
  EXPECT_EQ(au_invoke(object_, 5, AU_METHOD, &value, 1, nullptr, 1, nullptr), AU_BAD_ARGUMENT);
  EXPECT_EQ(au_invoke(object_, 5, AU_METHOD, nullptr, 0, nullptr, 1, nullptr), AU_RAISED);
  EXPECT_EQ(au_set_text(nullptr, "x", 1), AU_BAD_ARGUMENT);
  EXPECT_EQ(au_set_text(&value, nullptr, 1), AU_BAD_ARGUMENT);
  EXPECT_EQ(au_advise(object_, nullptr, nullptr, &id), AU_BAD_ARGUMENT);
  EXPECT_EQ(au_advise(
                object_, [](void*, int32_t, const char*, const au_value*, size_t) -> au_status { return AU_OK; },
                nullptr, &id),
            AU_RAISED);
  EXPECT_EQ(au_last_error().number, 445);
  EXPECT_EQ(au_create_object("Vestara.cLotto", nullptr), AU_BAD_ARGUMENT);
  au_object* object = nullptr;
  au_host_class other = echo_class;
  other.version = 0x00020000;
  EXPECT_EQ(au_create_host_object(&other, nullptr, &object), AU_BAD_VERSION);
  EXPECT_EQ(au_create_host_object(nullptr, nullptr, &object), AU_BAD_ARGUMENT);
  EXPECT_EQ(object, nullptr);
  au_clear(nullptr);
}

TEST_F(CAbi, ArraysAreReadElementByElementAndInColumns) {
  Value array;
  const au_bound bounds[] = {{0, 2}, {1, 3}};
  ASSERT_EQ(au_make_array(&array, AU_EMPTY, bounds, 2), AU_OK);
  for (size_t row = 0; row < 3; ++row) {
    Value text;
    const au_value whole = number(AU_LONG, static_cast<int32_t>(row) + 7);
    ASSERT_EQ(au_set_text(&text, "abc", row), AU_OK);
    ASSERT_EQ(au_array_put(&array, row * 2, &whole), AU_OK);
    ASSERT_EQ(au_array_put(&array, row * 2 + 1, &text), AU_OK);
  }
  size_t dimensions = 0;
  size_t count = 0;
  au_bound found[2];
  ASSERT_EQ(au_array_shape(&array, &dimensions, found, 2, &count), AU_OK);
  EXPECT_EQ(dimensions, 2U);
  EXPECT_EQ(count, 6U);
  EXPECT_EQ(found[1].lower, 1);
  EXPECT_EQ(found[1].count, 3);

  double numbers[3];
  uint8_t kinds[3];
  size_t lengths[3];
  Value joined;
  ASSERT_EQ(au_array_numbers(&array, 0, 2, 3, numbers, kinds), AU_OK);
  EXPECT_EQ(numbers[2], 9.0);
  EXPECT_EQ(kinds[2], AU_LONG);
  ASSERT_EQ(au_array_texts(&array, 1, 2, 3, &joined, lengths), AU_OK);
  EXPECT_EQ(std::string(joined.as.text.bytes, joined.as.text.length), "aab");
  EXPECT_EQ(lengths[2], 2U);

  Value element;
  EXPECT_EQ(au_array_get(&array, 6, &element), AU_RAISED);
  EXPECT_EQ(au_last_error().number, 9);
  EXPECT_EQ(au_array_numbers(&array, 1, 2, 4, numbers, nullptr), AU_RAISED);
  EXPECT_EQ(au_array_numbers(&element, 0, 1, 0, numbers, nullptr), AU_BAD_ARGUMENT);
  const au_bound huge[] = {{0, 2000000000}, {0, 2000000000}};
  EXPECT_EQ(au_make_array(&element, AU_EMPTY, huge, 2), AU_RAISED);
  EXPECT_EQ(au_last_error().number, 7);
}

TEST_F(CAbi, AStridedWalkStaysInsideTheArray) {
  Value array;
  const au_bound ten[] = {{0, 10}};
  ASSERT_EQ(au_make_array(&array, AU_EMPTY, ten, 1), AU_OK);
  for (size_t i = 0; i < 10; ++i) {
    const au_value whole = number(AU_LONG, static_cast<int32_t>(i));
    ASSERT_EQ(au_array_put(&array, i, &whole), AU_OK);
  }
  constexpr size_t huge = SIZE_MAX;
  const struct {
    size_t first, stride, count;
    double last;  ///< the last element of the walk, less than 0 for error 9
  } rows[] = {{0, 1, 10, 9},    {0, 1, 11, -1},   {0, 3, 4, 9},     {0, 3, 5, -1},       {0, 5, 2, 5},
              {0, 5, 3, -1},    {0, 9, 2, 9},     {0, 10, 2, -1},   {9, 1, 1, 9},        {9, 1, 2, -1},
              {10, 1, 1, -1},   {4, 5, 2, 9},     {5, 5, 2, -1},    {0, 0, 1, -1},       {9, huge, 1, 9},
              {0, huge, 2, -1}, {1, huge, 2, -1}, {0, 1, huge, -1}, {0, huge, huge, -1}, {huge, 1, 1, -1}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.first << " " << row.stride << " " << row.count);
    const bool inside = row.last >= 0;
    std::vector<double> numbers(inside ? row.count : 16);
    std::vector<uint8_t> kinds(numbers.size());
    std::vector<size_t> lengths(numbers.size());
    Value joined;
    EXPECT_EQ(au_array_numbers(&array, row.first, row.stride, row.count, numbers.data(), kinds.data()),
              inside ? AU_OK : AU_RAISED);
    if (inside) {
      EXPECT_EQ(numbers.back(), row.last);
    } else {
      EXPECT_EQ(au_last_error().number, 9);
    }
    EXPECT_EQ(au_array_texts(&array, row.first, row.stride, row.count, &joined, lengths.data()),
              inside ? AU_OK : AU_RAISED);
  }
  // Nothing asked for is nowhere outside.
  EXPECT_EQ(au_array_numbers(&array, 100, 0, 0, nullptr, nullptr), AU_OK);
}

TEST_F(CAbi, ArraysAreMadeOfSensibleShapesOnly) {
  const struct {
    au_kind element;
    int32_t count;
    au_status status;
  } rows[] = {{AU_EMPTY, 0, AU_OK},
              {AU_EMPTY, 1, AU_OK},
              {AU_EMPTY, -1, AU_RAISED},
              {AU_EMPTY, INT32_MIN, AU_RAISED},
              {AU_ARRAY, 1, AU_OK},
              {AU_EMPTY - 1, 1, AU_BAD_ARGUMENT},
              {AU_ARRAY + 1, 1, AU_BAD_ARGUMENT}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.element << " " << row.count);
    Value array;
    const au_bound bound{0, row.count};
    EXPECT_EQ(au_make_array(&array, row.element, &bound, 1), row.status);
    EXPECT_EQ(array.kind, row.status == AU_OK ? AU_ARRAY : AU_EMPTY);
    if (row.status == AU_RAISED) {
      EXPECT_EQ(au_last_error().number, 9);
    }
  }
}

TEST_F(CAbi, AShapeFillsNoMoreThanItsRoom) {
  Value array;
  const au_bound bounds[] = {{0, 2}, {1, 3}};
  ASSERT_EQ(au_make_array(&array, AU_EMPTY, bounds, 2), AU_OK);
  for (const size_t room : {0U, 1U, 2U, 3U}) {
    au_bound found[3] = {{-7, -7}, {-7, -7}, {-7, -7}};
    ASSERT_EQ(au_array_shape(&array, nullptr, found, room, nullptr), AU_OK);
    for (size_t i = 0; i < 3; ++i) EXPECT_EQ(found[i].lower != -7, i < room && i < 2) << room << " " << i;
  }
}

TEST(CAbiCalls, ATableOfTheSameMajorVersionIsTaken) {
  const struct {
    uint32_t version;
    au_status status;
  } rows[] = {{0x00010000, AU_OK},          {0x00010001, AU_OK},          {0x0001ffff, AU_OK},
              {0x0000ffff, AU_BAD_VERSION}, {0x00020000, AU_BAD_VERSION}, {0, AU_BAD_VERSION}};
  for (const auto& row : rows) {
    au_host_class table = echo_class;
    table.version = row.version;
    Echo echo;
    au_object* object = nullptr;
    EXPECT_EQ(au_create_host_object(&table, &echo, &object), row.status) << row.version;
    if (object) au_release(object);
  }
}

TEST_F(CAbi, TheYieldHookCanBeTakenOut) {
  int calls = 0;
  const auto error_of_a_yield = [] { return testing_support::error_of([] { automation::yield_to_host(); }); };
  au_set_yield_hook([](void* count) { return ++*static_cast<int*>(count); }, &calls);
  EXPECT_EQ(error_of_a_yield(), 18);
  EXPECT_EQ(calls, 1);
  au_set_yield_hook(nullptr, nullptr);
  EXPECT_EQ(error_of_a_yield(), 0);
  EXPECT_EQ(calls, 1);
}

TEST_F(CAbi, TheYieldHookKeepsItsInterval) {
  int calls = 0;
  const auto calls_after = [&](int yields) {
    for (int i = 0; i < yields; ++i) automation::yield_to_host();
    return calls;
  };
  constexpr int32_t an_hour = 3600000;
  au_set_yield_hook([](void* count) { return ++*static_cast<int*>(count), 0; }, &calls);
  EXPECT_EQ(calls_after(3), 3);
  au_set_yield_interval(an_hour);
  EXPECT_EQ(calls_after(3), 4);
  au_set_yield_interval(an_hour);
  EXPECT_EQ(calls_after(3), 5);
  au_set_yield_interval(0);
  EXPECT_EQ(calls_after(3), 8);
  au_set_yield_hook(nullptr, nullptr);
}

}  // namespace
