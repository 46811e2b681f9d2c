#include "vestara/archive/draw_record.h"

#include <utility>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/int16.h"

namespace vestara {
namespace {

size_t place(int32_t position) {
  if (position < 1 || position > drawn_count) throw automation::subscript_out_of_range();
  return static_cast<size_t>(position - 1);
}

}  // namespace

const cEstrazione::WheelDraw& cEstrazione::wheel(int32_t wheel) const {
  if (wheel < 1 || wheel > wheel_count) throw automation::subscript_out_of_range();
  return wheels_[static_cast<size_t>(wheel - 1)];
}

cEstrazione::WheelDraw& cEstrazione::wheel(int32_t wheel) {
  return const_cast<WheelDraw&>(std::as_const(*this).wheel(wheel));
}

void cEstrazione::DataEstrazione(const automation::Variant& date) { date_ = automation::to_plain(date); }

void cEstrazione::AddNumero(int32_t Ruota, int32_t EstrattoPos, const std::string& Numero, int32_t lIDStorico) {
  const int32_t position = automation::checked_long(int64_t{EstrattoPos} - 1);
  WheelDraw& draw = wheel(Ruota);
  draw.numbers[place(position)] = Numero;
  draw.key = lIDStorico;
}

std::string cEstrazione::GetNumero(int32_t Ruota, int32_t EstrattoPos) const {
  return wheel(Ruota).numbers[place(EstrattoPos)];
}

std::string cEstrazione::GetNumeri(int32_t Ruota) const {
  std::string list;
  for (const std::string& number : wheel(Ruota).numbers)
    if (!number.empty()) list.append(list.empty() ? "" : ",").append(number);
  return list;
}

void cEstrazione::Clear() {
  for (WheelDraw& draw : wheels_) draw.numbers = {};
}

int32_t cEstrazione::GetIdStorico(int32_t Ruota) const { return wheel(Ruota).key; }

}  // namespace vestara
