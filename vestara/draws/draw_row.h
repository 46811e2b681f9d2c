#pragma once  // installed

#include <array>
#include <cstdint>
#include <utility>

namespace vestara {

/// The five numbers that one wheel drew on one date, in order of extraction.
struct DrawRow {
  int32_t day = 0;      ///< days since 1899-12-30
  int16_t contest = 0;  ///< of the calendar year, from 1; 0 when unknown
  int8_t wheel = 0;     ///< enumerator 1 to 11
  std::array<int8_t, 5> numbers{};
};

/// The archive's order: by date, then by enumerator.
inline bool comes_before(const DrawRow& left, const DrawRow& right) {
  return std::pair(left.day, left.wheel) < std::pair(right.day, right.wheel);
}
inline bool same_place(const DrawRow& left, const DrawRow& right) {
  return left.day == right.day && left.wheel == right.wheel;
}
/// Date, wheel and numbers; the contest number is not looked at.
inline bool same_draw(const DrawRow& left, const DrawRow& right) {
  return same_place(left, right) && left.numbers == right.numbers;
}

}  // namespace vestara
