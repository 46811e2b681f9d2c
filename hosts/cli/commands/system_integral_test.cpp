#include "hosts/cli/commands/system_integral.h"

#include <gtest/gtest.h>

#include "hosts/cli/failure.h"
#include "vestara/systems/systems.h"

namespace vestara::host {
namespace {

NumberList numbers_up_to(int32_t last, int32_t first = 1) {
  NumberList list;
  for (int32_t number = first; number <= last; ++number, ++list.count)
    list.text.append(list.count == 0 ? "" : ",").append(std::to_string(number));
  return list;
}

TEST(SystemIntegral, TheSizeOfTheTextIsKnownBefore) {
  constexpr uint64_t last_break = 2;
  for (const auto& [numbers, size] :
       {std::pair{numbers_up_to(9), 3}, std::pair{numbers_up_to(12, 8), 2}, std::pair{numbers_up_to(20), 5},
        std::pair{numbers_up_to(5), 5}, std::pair{numbers_up_to(90), 1}, std::pair{numbers_up_to(90), 2}}) {
    int32_t count = 0;
    const std::string text = cSistemi().CombinazioniIntegraliString(numbers.text, static_cast<int16_t>(size), count);
    EXPECT_EQ(integral_text_size({numbers, size}, static_cast<uint64_t>(count)), text.size() + last_break) << size;
  }
}

TEST(SystemIntegral, Limits) {
  struct Row {
    int32_t numbers;
    int32_t size;
    const char* refusal;
  };
  for (const Row& row :
       {Row{90, 5, ""}, Row{90, 3, ""}, Row{12, 12, ""}, Row{24, 12, ""},
        Row{13, 13, "13 of 13 numbers make 1 combinations, but the library chooses 12 numbers at most"},
        Row{90, 45,
            "45 of 90 numbers make 103827421287553411369671120 combinations, but the library chooses 12 numbers at "
            "most"},
        Row{90, 7, "7 of 90 numbers make 7471375560 combinations, more than the 2147483647 that the library can count"},
        Row{90, 6,
            "6 of 90 numbers make 622614630 combinations, a text of 11456109192 bytes in memory, more than the "
            "1073741824 allowed"}}) {
    std::string refusal;
    try {
      check_integral({numbers_up_to(row.numbers), row.size});
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.kind(), FailureKind::argument);
      refusal = failure.what();
      EXPECT_NE(refusal.find("; vestara combinations "), std::string::npos);
      refusal.erase(refusal.find(';'));
    }
    EXPECT_EQ(refusal, row.refusal);
  }
}

}  // namespace
}  // namespace vestara::host
