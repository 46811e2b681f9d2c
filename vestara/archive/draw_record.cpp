#include "vestara/archive/draw_record.h"

#include <utility>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/int16.h"
#include "automation/member.h"

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

namespace {

using automation::optional;
using automation::parameter;
using automation::Variant;
using row = automation::Rows<cEstrazione>;

constexpr std::array members{
    row::get<Variant, &cEstrazione::DataEstrazione>(1, "DataEstrazione", "The date of the draw."),
    row::put<const Variant&, &cEstrazione::DataEstrazione>(1, "DataEstrazione", "The date of the draw."),
    row::get<int16_t, &cEstrazione::NumeroConcorso>(2, "NumeroConcorso", "The contest number."),
    row::put<int16_t, &cEstrazione::NumeroConcorso>(2, "NumeroConcorso", "The contest number."),
    row::method<&cEstrazione::AddNumero>(3, "AddNumero", "Stores a number; positions run from 2 to 6.",
                                         parameter("Ruota"), parameter("EstrattoPos"), parameter("Numero"),
                                         optional("lIDStorico", 0)),
    row::method<&cEstrazione::GetNumero>(4, "GetNumero", "The number at position 1 to 5.", parameter("Ruota"),
                                         parameter("EstrattoPos")),
    row::method<&cEstrazione::GetNumeri>(5, "GetNumeri", "The numbers of a wheel, joined by commas.",
                                         parameter("Ruota")),
    row::method<&cEstrazione::Clear>(6, "Clear", "Forgets the numbers, not the keys, the contest and the date."),
    row::method<&cEstrazione::GetIdStorico>(7, "GetIdStorico", "The row key of a wheel.", parameter("Ruota")),
};

}  // namespace

const automation::ClassDescription& cEstrazione::description() const {
  static constexpr automation::ClassDescription description{.library = "Vestara",
                                                            .name = contract_name,
                                                            .interface_name = "_cEstrazione",
                                                            .help = "One draw: date, contest, numbers of every wheel.",
                                                            .members = members};
  return description;
}

}  // namespace vestara
