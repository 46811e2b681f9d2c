#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/export.h"
#include "automation/ref.h"
#include "automation/variant.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {

/// Enumerators under aliases, which are compared without regard to case. Error 457 on a second equal alias, 5 on a
/// missing one.
class VESTARA_API WheelEnumerators {
 public:
  void add(std::string_view alias, int16_t wheel);
  int16_t at(std::string_view alias) const;

 private:
  struct Entry {
    uint64_t code;  ///< the alias's bytes, as far as it has eight at most, and 0 otherwise
    std::string alias;
    int16_t wheel;
  };
  const Entry* find(std::string_view alias) const;
  static size_t slot_of(uint64_t code);

  std::vector<Entry> entries_;
  /// The place of the entry that an alias may be, by its code. So many keep the eleven wheels apart.
  static constexpr size_t guess_count = 39;
  std::array<uint8_t, guess_count> guesses_{};
};

/// The two look-ups between a wheel's alias ("BA") and its enumerator (1). One pair per process, shared by all
/// objects, overwritten by every preload.
struct WheelTables {
  /// Aliases by enumerator 1 to 12; place 0 is never used. Nobody reads 12, though a row may fill it.
  std::array<std::string, 13> RuoteAliasByEnum;
  /// Nothing until a first preload read a row.
  std::optional<WheelEnumerators> RuoteEnumByAlias;
};
VESTARA_API WheelTables& wheel_tables();

/// The alias of a wheel. Error 9 outside 1..12.
VESTARA_API const std::string& alias_of(int32_t wheel);
/// The enumerator behind an alias. Error 91 before the first preload, 5 for an unknown alias.
VESTARA_API int16_t wheel_of(std::string_view alias);
/// The enumerator that a member's argument means: itself when it is numeric, otherwise the one behind the alias.
int32_t wheel_argument(const automation::Variant& wheel);

/// Fills the tables from `ruote`. True when the table was read to its end, also when it is empty (the tables
/// then keep what they hold). False when it could not be opened, and after an error: an enumerator outside
/// 1..12, a Null, a second equal alias; what was read before stays.
VESTARA_API bool PreloadRuoteAlias(const automation::Ref<DbConnector>& connector);
/// The same, when there is a connector and it is open: what assigning one does.
void preload_if_open(const automation::Ref<DbConnector>& connector);

}  // namespace vestara
