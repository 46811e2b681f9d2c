#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "automation/export.h"
#include "automation/ref.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {

/// Items under keys that are compared without regard to case. Error 457 on a second equal key, 5 on a missing one.
class VESTARA_API KeyedTexts {
 public:
  void add(std::string_view key, std::string item);
  const std::string& item(std::string_view key) const;

 private:
  std::map<std::string, std::string, std::less<>> items_;  // by lower-case key
};

/// The two look-ups between a wheel's alias ("BA") and its enumerator (1). One pair per process, shared by all
/// objects, overwritten by every preload.
struct WheelTables {
  /// Aliases by enumerator 1 to 12; place 0 is never used. Nobody reads 12, though a row may fill it.
  std::array<std::string, 13> RuoteAliasByEnum;
  /// Enumerators, as text, by alias; nothing until a first preload read a row.
  std::optional<KeyedTexts> RuoteEnumByAlias;
};
VESTARA_API WheelTables& wheel_tables();

/// The alias of a wheel. Error 9 outside 1..12.
VESTARA_API const std::string& alias_of(int32_t wheel);
/// The enumerator behind an alias. Error 91 before the first preload, 5 for an unknown alias.
VESTARA_API int16_t wheel_of(std::string_view alias);

/// Fills the tables from `ruote`. True when the table was read to its end, also when it is empty (the tables
/// then keep what they hold). False when it could not be opened, and after an error: an enumerator outside
/// 1..12, a Null, a second equal alias; what was read before stays.
VESTARA_API bool PreloadRuoteAlias(const automation::Ref<DbConnector>& connector);

}  // namespace vestara
