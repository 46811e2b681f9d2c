#pragma once  // for hosts

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/ref.h"
#include "automation/variant.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
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
    std::string alias;
    int16_t wheel;
  };
  const Entry* find(std::string_view alias) const;

  std::vector<Entry> entries_;
};

/// The two look-ups between a wheel's alias ("BA") and its enumerator (1).
struct VESTARA_API WheelTables {
  /// Aliases by enumerator 1 to 12; place 0 is never used. Nobody reads 12, though a row may fill it.
  std::array<std::string, 13> RuoteAliasByEnum;
  /// Nothing until a preload has read a row.
  std::optional<WheelEnumerators> RuoteEnumByAlias;

  /// The alias of a wheel. Error 9 outside 1..12.
  const std::string& alias_of(int32_t wheel) const;
  /// The enumerator behind an alias. Error 91 before the first preload, 5 for an unknown alias.
  int16_t wheel_of(std::string_view alias) const;
};

// One pair of tables serves the whole process and all its threads: each preload replaces it as a whole. A load takes
// the tables once and keeps them to its end, whatever is preloaded meanwhile, on its own thread or another.

/// The tables of this moment; they never change. Never null.
VESTARA_API std::shared_ptr<const WheelTables> wheel_tables();
/// Makes these the tables of the process.
VESTARA_API void replace_wheel_tables(WheelTables tables);

// One look-up in the tables of this moment. The errors are those of WheelTables.
VESTARA_API std::string alias_of(int32_t wheel);
VESTARA_API int16_t wheel_of(std::string_view alias);
/// The enumerator that a member's argument means: itself when it is numeric, otherwise the one behind the alias.
int32_t wheel_argument(const automation::Variant& wheel);

/// Replaces the tables by those of `ruote`; an alias that no row replaces stays. True when the table was read to its
/// end, also when it is empty (the tables then stay). False when it could not be opened, and after an error: an
/// enumerator outside 1..12, a Null, a second equal alias; what was read before it counts.
VESTARA_API bool PreloadRuoteAlias(const automation::Ref<DbConnector>& connector);
/// The same when there is a connector and it is open. Classes do this when they are given a connector.
void preload_if_open(const automation::Ref<DbConnector>& connector);

}  // namespace vestara
