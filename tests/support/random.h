#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace testing_support {

/// The same choices for the same seed, on every platform.
class Random {
 public:
  explicit Random(uint64_t seed) : engine_(seed) {}
  /// 0 … limit - 1.
  size_t below(size_t limit) { return static_cast<size_t>(engine_() % limit); }
  bool one_in(size_t n) { return below(n) == 0; }
  template <class T>
  const T& pick(const std::vector<T>& choices) {
    return choices[below(choices.size())];
  }
  /// Bytes from an alphabet, or any bytes when it is empty.
  std::string text(size_t longest, const std::string& alphabet = {}) {
    std::string result(below(longest + 1), '\0');
    for (char& c : result) c = alphabet.empty() ? static_cast<char>(below(256)) : alphabet[below(alphabet.size())];
    return result;
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace testing_support
