#pragma once

#include <cstdint>
#include <vector>

namespace testing_support {

/// A whole number of any size, never negative: exact arithmetic to check approximations against.
class BigNumber {
 public:
  explicit BigNumber(uint64_t value = 0);

  friend BigNumber operator*(const BigNumber& a, const BigNumber& b);
  /// `a` is not below `b`.
  friend BigNumber operator-(const BigNumber& a, const BigNumber& b);
  /// a / b to about eighteen digits.
  friend long double ratio(const BigNumber& a, const BigNumber& b);

 private:
  long double mantissa(int* exponent) const;
  void trim();

  std::vector<uint32_t> digits_;  // base 2^32, lowest first
};

BigNumber power(const BigNumber& base, int32_t exponent);

}  // namespace testing_support
