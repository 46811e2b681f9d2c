#pragma once

#include <cstdint>
#include <string>

#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"
#include "vestara/archive/draw_record.h"

namespace faults {

inline constexpr int32_t drawn_numbers = 55;

/// A whole draw whose contest number tells its numbers, so that a reader knows a mixture when it sees one.
/// `number(i)` is the i-th of the 55, wheel by wheel.
template <class Number>
automation::Ref<vestara::cEstrazione> numbered_draw(const automation::Variant& date, int32_t contest, Number&& number) {
  auto draw = automation::make<vestara::cEstrazione>();
  draw->DataEstrazione(date);
  draw->NumeroConcorso(static_cast<int16_t>(contest));
  for (int32_t i = 0; i < drawn_numbers; ++i) draw->AddNumero(i / 5 + 1, i % 5 + 2, std::to_string(number(i)));
  return draw;
}

}  // namespace faults
