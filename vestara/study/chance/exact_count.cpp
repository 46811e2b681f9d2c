#include "vestara/study/chance/exact_count.h"

#include <algorithm>

namespace vestara {

ExactCount ways_to_choose(int32_t items, int32_t chosen) {
  if (chosen < 0 || chosen > items) return 0;
  ExactCount ways = 1;
  // After step i this is the number of ways to choose i, so each division comes out even.
  for (int32_t i = 1; i <= chosen; ++i) ways = ways * static_cast<uint32_t>(items - i + 1) / static_cast<uint32_t>(i);
  return ways;
}

std::string digits_of(ExactCount count) {
  constexpr unsigned base = 10;
  std::string digits;
  do {
    digits += static_cast<char>('0' + static_cast<char>(count % base));
    count /= base;
  } while (count != 0);
  std::reverse(digits.begin(), digits.end());
  return digits;
}

}  // namespace vestara
