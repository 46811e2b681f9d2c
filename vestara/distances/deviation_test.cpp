#include "vestara/distances/deviation.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/values.h"

namespace vestara {
namespace {

using automation::Array;
using automation::Missing;
using automation::Null;
using automation::Variant;
using automation::VariantKind;
using testing_support::day;
using testing_support::error_of;

using Items = std::vector<Variant>;
const Variant empty;

Variant array(Items items, int32_t lower = 0) { return Array(VariantKind::empty, lower, std::move(items)); }

TEST(StandardDeviation, Values) {
  const struct {
    const char* what;
    Variant numbers;
    double sample, population;  // empties skipped
  } rows[] = {{"four numbers", array({1, 2, 3, 4}), std::sqrt(5.0 / 3), std::sqrt(1.25)},
              {"two", array({1.5, -1.5}), std::sqrt(4.5), 1.5},
              {"one: by definition, and in place of 0", array({7}), 0.1, 0.1},
              {"zero alone", array({0}), 0.1, 0.1},
              {"equal ones", array({3, 3, 3}), 0.1, 0.1},
              {"equal ones that rounding spares", array({0.5, 0.5, 0.5, 0.5}), 0.1, 0.1},
              {"equal ones that leave a residue", array({0.1, 0.1, 0.1}), 0.1, 0.1},
              {"one above zero", array({2.3, 2.3, 2.3, 2.3, 2.3}), 0.1, 0.1},
              {"one far above", array({100000000.1, 100000000.1, 100000000.1}), 0.1, 0.1},
              {"one of either sign", array({-100000000.3, -100000000.3, -100000000.3, -100000000.3}), 0.1, 0.1},
              {"equal ones and empties", array({empty, 0.1, 0.1, empty, 0.1}), 0.1, 0.1},
              {"unequal ones whose residue is below zero", array({100000000.64, 100000000.64, 100000000.64 + 0x1p-20}),
               0.1, 0.1},
              {"a deviation below 0.1 stays", array({1, 1.0625}), std::sqrt(0.001953125), 0.03125},
              {"any numeric type", array({int16_t{1}, 2, 3.0F, 4.0}), std::sqrt(5.0 / 3), std::sqrt(1.25)},
              {"texts that are numbers", array({"1", " 2 ", "3.0", "4e0"}), std::sqrt(5.0 / 3), std::sqrt(1.25)},
              {"True is -1", array({true, false, 1}), 1, std::sqrt(2.0 / 3)},
              {"True alone", array({true}), 0.1, 0.1},
              {"a date is no number", array({1, day(2026, 1, 2), 3}), std::sqrt(2.0), 1},
              {"empties at all places", array({empty, 1, empty, 3, empty}), std::sqrt(2.0), 1},
              {"one number among empties", array({empty, 9, empty}), 0.1, 0.1},
              {"counted from 5", array({1, 2, 3, 4}, 5), std::sqrt(5.0 / 3), std::sqrt(1.25)},
              {"counted from below 0", array({1, 3}, -7), std::sqrt(2.0), 1},
              {"a typed array", Array(VariantKind::long_integer, 1, {1, 3}), std::sqrt(2.0), 1},
              {"large numbers", array({1e150, -1e150}), std::sqrt(2.0) * 1e150, 1e150}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_DOUBLE_EQ(standard_deviation(row.numbers, Deviation::of_sample, EmptyElements::are_skipped), row.sample);
    EXPECT_DOUBLE_EQ(standard_deviation(row.numbers, Deviation::of_population, EmptyElements::are_skipped),
                     row.population);
  }
}

TEST(StandardDeviation, EmptiesCountAsZero) {
  const struct {
    const char* what;
    Items items;
    double sample, population;
  } rows[] = {{"one among numbers", {1, empty, 3}, std::sqrt(7.0 / 3), std::sqrt(14.0 / 9)},
              {"two", {empty, empty, 3}, std::sqrt(3.0), std::sqrt(2.0)},
              {"nothing but empties", {empty, empty}, 0.1, 0.1},
              {"a single one", {empty}, 0.1, 0.1},
              {"a zero in a text is a number like any", {1, "0", 3}, std::sqrt(7.0 / 3), std::sqrt(14.0 / 9)},
              {"dates stay out", {1, day(2026, 1, 2), 3}, std::sqrt(2.0), 1}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    const Variant numbers = array(row.items);
    EXPECT_DOUBLE_EQ(standard_deviation(numbers, Deviation::of_sample, EmptyElements::count_as_zero), row.sample);
    EXPECT_DOUBLE_EQ(standard_deviation(numbers, Deviation::of_population, EmptyElements::count_as_zero),
                     row.population);
  }
}

TEST(StandardDeviation, Errors) {
  const Variant table = Array(VariantKind::empty, {{0, 2}, {0, 2}});
  const struct {
    const char* what;
    Variant numbers;
    int32_t skipped, counted;  // error, with empties skipped and counted
  } rows[] = {{"a word", array({1, "x", 3}), 13, 13},
              {"a word behind a number", array({1, 2, "3x"}), 13, 13},
              {"the empty text", array({1, "", 3}), 13, 13},
              {"a date in a text", array({1, "02/01/2026", 3}), 13, 13},
              {"Null", array({1, Null{}, 3}), 94, 94},
              {"Missing", array({1, Missing{}, 3}), 13, 13},
              {"an array in the array", array({1, array({2})}), 13, 13},
              {"no elements", array({}), 6, 6},
              {"no numbers but dates", array({day(2026, 1, 2)}), 6, 6},
              {"nothing but empties", array({empty, empty}), 6, 0},
              {"the first error counts", array({"x", Null{}}), 13, 13},
              {"two dimensions", table, 9, 9},
              {"the square is too large", array({1e200}), 6, 6},
              {"so is the sum of squares", array({1.2e154, -1.2e154}), 6, 6},
              {"so is the square of the sum", array({0.8e154, 0.8e154}), 6, 6},
              {"a number", 5, 13, 13},
              {"a text", "1,2,3", 13, 13},
              {"Empty", empty, 13, 13},
              {"Missing", Missing{}, 13, 13},
              {"Nothing", automation::Ref<automation::Object>(), 91, 91}};
  for (const auto& row : rows)
    for (const auto deviation : {Deviation::of_sample, Deviation::of_population})
      for (const auto empties : {EmptyElements::are_skipped, EmptyElements::count_as_zero})
        EXPECT_EQ(error_of([&] { standard_deviation(row.numbers, deviation, empties); }),
                  empties == EmptyElements::are_skipped ? row.skipped : row.counted)
            << row.what;
}

}  // namespace
}  // namespace vestara
