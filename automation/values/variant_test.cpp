#include "automation/variant.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"

namespace automation {
namespace {

using testing_support::error_of;

template <class... Indexes>
int32_t error_at(const Array& array, Indexes... indexes) {
  const int32_t place[] = {indexes...};
  return error_of([&] { array.at(place); });
}

TEST(Variant, KnowsItsKind) {
  const struct {
    Variant value;
    VariantKind kind;
  } rows[] = {{Variant(), VariantKind::empty},
              {Empty{}, VariantKind::empty},
              {Null{}, VariantKind::null},
              {Missing{}, VariantKind::missing},
              {true, VariantKind::boolean},
              {int16_t{1}, VariantKind::integer},
              {1, VariantKind::long_integer},
              {1.0F, VariantKind::single},
              {1.0, VariantKind::double_precision},
              {Date::from_day(1), VariantKind::date},
              {"a", VariantKind::text},
              {std::string("a"), VariantKind::text},
              {std::string_view("a"), VariantKind::text},
              {Ref<Object>{}, VariantKind::object},
              {Array(VariantKind::empty, 0, {}), VariantKind::array}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.value));
    EXPECT_EQ(row.value.kind(), row.kind);
    EXPECT_EQ(row.value.is_empty(), row.kind == VariantKind::empty);
    EXPECT_EQ(row.value.is_null(), row.kind == VariantKind::null);
    EXPECT_EQ(row.value.is_missing(), row.kind == VariantKind::missing);
    EXPECT_EQ(row.value.is_object(), row.kind == VariantKind::object);
  }
}

TEST(Variant, EqualsTheSameValueOfTheSameKind) {
  EXPECT_EQ(Variant("a"), Variant(std::string("a")));
  EXPECT_EQ(Variant(Null{}), Variant(Null{}));
  EXPECT_NE(Variant(int16_t{1}), Variant(1));
  EXPECT_NE(Variant(1), Variant(2));
  EXPECT_NE(Variant(), Variant(Null{}));
  EXPECT_EQ(*Variant(7).get_if<int32_t>(), 7);
  EXPECT_EQ(Variant(7).get_if<int16_t>(), nullptr);
}

TEST(Array, BoundsOfOneDimension) {
  Array array(VariantKind::integer, 1, {int16_t{10}, int16_t{20}, int16_t{30}});
  EXPECT_EQ(array.element(), VariantKind::integer);
  EXPECT_EQ(array.lower(), 1);
  EXPECT_EQ(array.upper(), 3);
  EXPECT_EQ(array.at(1), Variant(int16_t{10}));
  EXPECT_EQ(array.at(3), Variant(int16_t{30}));
  for (const int32_t index : {0, 4, -1, INT32_MAX, INT32_MIN})
    EXPECT_EQ(error_of([&] { array.at(index); }), 9) << index;
  EXPECT_EQ(error_of([&] { array.lower(1); }), 9);
  EXPECT_EQ(error_of([&] { array.upper(1); }), 9);
  array.at(2) = Variant("x");
  EXPECT_EQ(array.items()[1], Variant("x"));
}

TEST(Array, NegativeLowerBoundAndNoItems) {
  const Array below(VariantKind::empty, -2, {1, 2});
  EXPECT_EQ(below.upper(), -1);
  EXPECT_EQ(below.at(-1), Variant(2));
  const Array none(VariantKind::empty, 0, {});
  EXPECT_EQ(none.upper(), -1);
  EXPECT_EQ(error_of([&] { none.at(0); }), 9);
}

TEST(Array, WithoutDimensionsHasNoItems) {
  const Array none(VariantKind::integer, {});
  EXPECT_EQ(none.items().size(), 0U);
  EXPECT_EQ(error_of([&] { none.lower(0); }), 9);
}

TEST(Array, SeveralDimensionsWithTheFirstIndexFastest) {
  Array grid(VariantKind::integer, {{1, 11}, {1, 90}});
  EXPECT_EQ(grid.items().size(), 990U);
  EXPECT_EQ(grid.items().front(), Variant());
  EXPECT_EQ(grid.lower(1), 1);
  EXPECT_EQ(grid.upper(0), 11);
  EXPECT_EQ(grid.upper(1), 90);
  const int32_t second[] = {2, 1}, next_number[] = {1, 2}, last[] = {11, 90};
  grid.at(second) = Variant(1);
  grid.at(next_number) = Variant(2);
  grid.at(last) = Variant(3);
  EXPECT_EQ(grid.items()[1], Variant(1));
  EXPECT_EQ(grid.items()[11], Variant(2));
  EXPECT_EQ(grid.items()[989], Variant(3));
  EXPECT_EQ(error_at(grid, 0, 1), 9);
  EXPECT_EQ(error_at(grid, 12, 1), 9);
  EXPECT_EQ(error_at(grid, 1, 0), 9);
  EXPECT_EQ(error_at(grid, 1, 91), 9);
  EXPECT_EQ(error_at(grid, 1), 9);
  EXPECT_EQ(error_at(grid, 1, 1, 1), 9);
  EXPECT_EQ(error_of([&] { grid.upper(2); }), 9);
}

TEST(Array, CopiesAreDeep) {
  const Variant original(Array(VariantKind::empty, 0, {Array(VariantKind::empty, 0, {1})}));
  Variant copy = original;
  copy.get_if<Array>()->at(0).get_if<Array>()->at(0) = Variant(2);
  EXPECT_EQ(original.get_if<Array>()->at(0).get_if<Array>()->at(0), Variant(1));
  EXPECT_NE(copy, original);
  copy = original;
  EXPECT_EQ(copy, original);
}

TEST(Array, EqualityLooksAtBoundsToo) {
  EXPECT_EQ(Array(VariantKind::empty, 0, {1, 2}), Array(VariantKind::empty, 0, {1, 2}));
  EXPECT_FALSE(Array(VariantKind::empty, 0, {1, 2}) == Array(VariantKind::empty, 1, {1, 2}));
  EXPECT_FALSE(Array(VariantKind::empty, 0, {1, 2}) == Array(VariantKind::empty, 0, {1, 3}));
}

}  // namespace
}  // namespace automation
