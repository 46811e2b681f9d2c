#include "vestara/study/set_families.h"

#include <gtest/gtest.h>

#include "vestara/draws/number_mask.h"

namespace vestara::study {
namespace {

TEST(SetFamilies, HaveTheirSets) {
  const struct {
    const char* family;
    size_t sets;
    const char *first, *first_numbers, *last, *last_numbers;
  } rows[] = {
      {"decine", 9, "1-10", "1,2,3,4,5,6,7,8,9,10", "81-90", "81,82,83,84,85,86,87,88,89,90"},
      {"Decine-Popolari", 9, "1-9", "1,2,3,4,5,6,7,8,9", "80-89", "80,81,82,83,84,85,86,87,88,89"},
      {"CADENZE", 10, "1", "1,11,21,31,41,51,61,71,81", "0", "10,20,30,40,50,60,70,80,90"},
      {"figure", 9, "1", "1,10,19,28,37,46,55,64,73,82", "9", "9,18,27,36,45,54,63,72,81,90"},
      {"gemelli", 1, "11,22,33,44,55,66,77,88", "11,22,33,44,55,66,77,88", "11,22,33,44,55,66,77,88",
       "11,22,33,44,55,66,77,88"},
      {"vertibili", 28, "12,21", "12,21", "78,87", "78,87"},
      {"diametrali", 45, "1,46", "1,46", "45,90", "45,90"},
  };
  for (const auto& row : rows) {
    const auto sets = set_family(row.family);
    ASSERT_EQ(sets.size(), row.sets) << row.family;
    EXPECT_EQ(sets.front().name, row.first);
    EXPECT_EQ(number_text(sets.front().numbers), row.first_numbers);
    EXPECT_EQ(sets.back().name, row.last);
    EXPECT_EQ(number_text(sets.back().numbers), row.last_numbers);
  }
  EXPECT_TRUE(set_family("altre").empty());
  EXPECT_TRUE(set_family("").empty());
}

TEST(SetFamilies, HoldEachNumberOnceOrNever) {
  const struct {
    const char* family;
    int32_t numbers;
  } rows[] = {{"decine", 90}, {"decine-popolari", 89}, {"cadenze", 90},   {"figure", 90},
              {"gemelli", 8}, {"vertibili", 56},       {"diametrali", 90}};
  for (const auto& row : rows) {
    NumberMask seen;
    int32_t all = 0;
    for (const NamedNumbers& set : set_family(row.family))
      for (const uint8_t number : set.numbers) seen.add(number), ++all;
    EXPECT_EQ(seen.count(), row.numbers) << row.family;
    EXPECT_EQ(all, row.numbers) << row.family;
  }
}

}  // namespace
}  // namespace vestara::study
