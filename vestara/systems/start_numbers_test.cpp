#include "vestara/systems/start_numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

#include "automation/coercion.h"
#include "automation/text.h"

namespace vestara {
namespace {

TEST(StartNumbers, Sets) {
  struct Row {
    NumberSet set;
    int16_t number;
    const char* library;
    const char* plain;
  };
  using enum NumberSet;
  const char* const twins_list = "11,22,33,44,55,66,77,88";
  const char* const reversed = "12,21,13,31,14,41,15,51,16,61,17,71,18,81";
  const char* const tens_of_90 = "1,2,3,4,5,6,7,8,9,90";
  for (const Row& row :
       {Row{twins, 0, twins_list, twins_list}, Row{reversibles, 0, reversed, reversed},
        Row{ending, 0, "0,10,20,30,40,50,60,70,80,90", "10,20,30,40,50,60,70,80,90"},
        Row{ending, 10, "10,20,30,40,50,60,70,80,90", "10,20,30,40,50,60,70,80,90"},
        Row{ending, 7, "7,17,27,37,47,57,67,77,87", "7,17,27,37,47,57,67,77,87"},
        Row{fibonacci, 1, "1,2,3,5,8,13,21,34,55,89", "1,2,3,5,8,13,21,34,55,89"},
        Row{fibonacci, 2, "2,4,6,10,16,26,42,68,110,178", "2,4,6,10,16,26,42,68"},
        Row{fibonacci, 90, "90,180,270,450,720,1170,1890,3060,4950,8010", "90"},
        Row{tens, 1, "1,2,3,4,5,6,7,8,9,10,11", "1,2,3,4,5,6,7,8,9,10"},
        Row{tens, 80, "80,81,82,83,84,85,86,87,88,89,90", "80,81,82,83,84,85,86,87,88,89"},
        Row{tens, 81, "81,82,83,84,85,86,87,88,89,90,91", "81,82,83,84,85,86,87,88,89,90"},
        Row{tens, 90, tens_of_90, tens_of_90},
        Row{figure, 1, "1,10,19,28,37,46,55,64,73", "1,10,19,28,37,46,55,64,73,82"},
        Row{figure, 9, "9,18,27,36,45,54,63,72", "9,18,27,36,45,54,63,72,81,90"}, Row{figure, 81, "", "81,90"}}) {
    EXPECT_EQ(numbers_of_set({row.set, row.number, Reach::library}), row.library);
    EXPECT_EQ(numbers_of_set({row.set, row.number, Reach::plain}), row.plain);
  }
}

TEST(StartNumbers, RandomOnes) {
  for (const RandomQuestion& options :
       {RandomQuestion{90, 1, 90}, RandomQuestion{5, 1, 90, false, true}, RandomQuestion{1, 0, 0},
        RandomQuestion{3, 7, 7, true}, RandomQuestion{300, 5, 9, true, true}}) {
    const std::string list = random_numbers(options);
    std::vector<int32_t> numbers;
    for (const std::string_view piece : automation::split(list, ',')) {
      numbers.push_back(automation::leading_number(piece));
      EXPECT_GE(numbers.back(), options.least);
      EXPECT_LE(numbers.back(), options.most);
    }
    EXPECT_EQ(numbers.size(), static_cast<size_t>(options.count));
    const std::set<int32_t> different(numbers.begin(), numbers.end());
    EXPECT_TRUE(options.repeat || different.size() == numbers.size()) << list;
    EXPECT_TRUE(!options.sorted || std::is_sorted(numbers.begin(), numbers.end())) << list;
  }
}

TEST(StartNumbers, Lengths) {
  EXPECT_EQ(length_of(""), 0U);
  EXPECT_EQ(length_of("5"), 1U);
  EXPECT_EQ(length_of("5,12,33"), 3U);
}

}  // namespace
}  // namespace vestara
