#include "vestara/study/widened.h"

#include <array>
#include <charconv>

namespace vestara {

double widened(float number) {
  std::array<char, 32> text{};
  char* const end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  double wide = 0;
  std::from_chars(text.data(), end, wide);
  return wide;
}

}  // namespace vestara
