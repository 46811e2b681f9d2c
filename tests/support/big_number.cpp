#include "tests/support/big_number.h"

#include <algorithm>
#include <cmath>

namespace testing_support {

BigNumber::BigNumber(uint64_t value) {
  for (; value != 0; value >>= 32) digits_.push_back(static_cast<uint32_t>(value));
}

void BigNumber::trim() {
  while (!digits_.empty() && digits_.back() == 0) digits_.pop_back();
}

BigNumber operator*(const BigNumber& a, const BigNumber& b) {
  BigNumber product;
  product.digits_.resize(a.digits_.size() + b.digits_.size());
  for (size_t i = 0; i < a.digits_.size(); ++i) {
    uint64_t carry = 0;
    for (size_t j = 0; j < b.digits_.size() || carry != 0; ++j) {
      const uint64_t factor = j < b.digits_.size() ? b.digits_[j] : 0;
      carry += product.digits_[i + j] + factor * a.digits_[i];
      product.digits_[i + j] = static_cast<uint32_t>(carry);
      carry >>= 32;
    }
  }
  product.trim();
  return product;
}

BigNumber operator-(const BigNumber& a, const BigNumber& b) {
  BigNumber difference = a;
  uint64_t borrow = 0;
  for (size_t i = 0; i < a.digits_.size(); ++i) {
    const uint64_t taken = borrow + (i < b.digits_.size() ? b.digits_[i] : 0);
    borrow = taken > a.digits_[i] ? 1 : 0;
    difference.digits_[i] = static_cast<uint32_t>((borrow << 32) + a.digits_[i] - taken);
  }
  difference.trim();
  return difference;
}

/// The three highest digits: more than a long double holds.
long double BigNumber::mantissa(int* exponent) const {
  long double value = 0;
  const size_t kept = std::min<size_t>(digits_.size(), 3);
  for (size_t i = 0; i < kept; ++i)
    value = std::ldexp(value, 32) + static_cast<long double>(digits_[digits_.size() - 1 - i]);
  *exponent = 32 * static_cast<int>(digits_.size() - kept);
  return value;
}

long double ratio(const BigNumber& a, const BigNumber& b) {
  int of_a = 0;
  int of_b = 0;
  const long double quotient = a.mantissa(&of_a) / b.mantissa(&of_b);
  return std::ldexp(quotient, of_a - of_b);
}

BigNumber power(const BigNumber& base, int32_t exponent) {
  BigNumber result(1);
  for (int32_t i = 0; i < exponent; ++i) result = result * base;
  return result;
}

}  // namespace testing_support
