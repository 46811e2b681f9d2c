#pragma once  // installed

#include <array>
#include <cstdint>
#include <string>

#include "automation/object.h"
#include "automation/variant.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {

/// One draw: its date, its contest number, and for each wheel 1 to 11 the five numbers and the key of its row. It traps
/// nothing: error 9 for a wheel outside 1..11 and for a position that does not exist.
///
/// An object belongs to one thread at a time; it shares nothing with others.
class VESTARA_API cEstrazione final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "cEstrazione";

  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  /// Empty until it is set. Stored as it is given: a text stays a text.
  automation::Variant DataEstrazione() const { return date_; }
  void DataEstrazione(const automation::Variant& date);
  int16_t NumeroConcorso() const { return contest_; }
  void NumeroConcorso(int16_t contest) { contest_ = contest; }

  /// Stores a number, as text, and the key of the wheel's row (0 when it is left out). The first number drawn has
  /// position 2, the fifth 6. That is one more than in GetNumero, which is the contract's. A wrong wheel or position
  /// stores nothing. Error 6 for the smallest 32-bit position.
  void AddNumero(int32_t Ruota, int32_t EstrattoPos, const std::string& Numero, int32_t lIDStorico = 0);
  /// The number at position 1 to 5, "" where none is stored.
  std::string GetNumero(int32_t Ruota, int32_t EstrattoPos) const;
  /// The numbers of a wheel joined by ",", without gaps for empty positions.
  std::string GetNumeri(int32_t Ruota) const;
  /// Forgets the numbers. Keys, contest and date stay, which is the contract's.
  void Clear();
  int32_t GetIdStorico(int32_t Ruota) const;

 private:
  struct WheelDraw {
    std::array<std::string, drawn_count> numbers;
    int32_t key = 0;
  };
  WheelDraw& wheel(int32_t wheel);
  const WheelDraw& wheel(int32_t wheel) const;

  std::array<WheelDraw, wheel_count> wheels_;
  automation::Variant date_;
  int16_t contest_ = 0;
};

}  // namespace vestara
