#include "vestara/foundation/wheels.h"

#include <utility>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "vestara/foundation/query.h"
#include "vestara/foundation/trap.h"

namespace vestara {
namespace {

void read_wheels(RecordSet& rows, WheelTables& tables) {
  tables.RuoteEnumByAlias.emplace();
  const Column enumerator = rows.column("enumeratore");
  const Column alias = rows.column("ruotaAlias");
  for (; !rows.at_end(); rows.move_next()) {
    const int32_t wheel = automation::to_long(rows.value(enumerator));
    if (wheel < 1 || wheel > 12) throw automation::subscript_out_of_range();
    const std::string name = automation::to_text(rows.value(alias));
    // The array takes the alias before the collection can refuse it.
    tables.RuoteAliasByEnum[static_cast<size_t>(wheel)] = name;
    tables.RuoteEnumByAlias->add(name, std::to_string(wheel));
  }
}

}  // namespace

void KeyedTexts::add(std::string_view key, std::string item) {
  if (!items_.emplace(automation::lower_case(key), std::move(item)).second) throw automation::duplicate_key();
}

const std::string& KeyedTexts::item(std::string_view key) const {
  const auto found = items_.find(automation::lower_case(key));
  if (found == items_.end()) throw automation::invalid_call();
  return found->second;
}

WheelTables& wheel_tables() {
  static WheelTables tables;
  return tables;
}

const std::string& alias_of(int32_t wheel) {
  if (wheel < 1 || wheel > 12) throw automation::subscript_out_of_range();
  return wheel_tables().RuoteAliasByEnum[static_cast<size_t>(wheel)];
}

int16_t wheel_of(std::string_view alias) {
  const auto& by_alias = wheel_tables().RuoteEnumByAlias;
  if (!by_alias) throw automation::object_not_set();
  return automation::to_integer(by_alias->item(alias));
}

bool PreloadRuoteAlias(const automation::Ref<DbConnector>& connector) {
  return trapped("mPrecarica.PreloadRuoteAlias()", false, [&] {
    if (!connector) throw automation::object_not_set();
    auto rows = open_rows(*connector, "SELECT enumeratore,enumeratoreBit,ruotaAlias FROM ruote");
    if (!rows) return false;
    if (!rows->at_end()) read_wheels(*rows, wheel_tables());
    connector->CloseRecordset(rows);
    return true;
  });
}

}  // namespace vestara
