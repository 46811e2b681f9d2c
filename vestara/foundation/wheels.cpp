#include "vestara/foundation/wheels.h"

#include <utility>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/system/process_wide.h"
#include "automation/text/case_folding.h"
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
    tables.RuoteEnumByAlias->add(name, static_cast<int16_t>(wheel));
  }
}

using Shared = std::shared_ptr<const WheelTables>;

/// Never destroyed: loads of other threads may still run while the process ends.
automation::ProcessWide<Shared>& current_tables() {
  // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
  static auto* const tables = new automation::ProcessWide<Shared>(std::make_shared<const WheelTables>());
  return *tables;
}

}  // namespace

const WheelEnumerators::Entry* WheelEnumerators::find(std::string_view alias) const {
  // Archives mostly write their aliases as `ruote` does: eleven comparisons of two bytes.
  for (const Entry& entry : entries_)
    if (entry.alias == alias) return &entry;
  for (const Entry& entry : entries_)
    if (automation::equal_folded(entry.alias, alias)) return &entry;
  return nullptr;
}

void WheelEnumerators::add(std::string_view alias, int16_t wheel) {
  if (find(alias)) throw automation::duplicate_key();
  entries_.push_back({std::string(alias), wheel});
}

int16_t WheelEnumerators::at(std::string_view alias) const {
  const Entry* entry = find(alias);
  if (!entry) throw automation::invalid_call();
  return entry->wheel;
}

const std::string& WheelTables::alias_of(int32_t wheel) const {
  if (wheel < 1 || wheel > 12) throw automation::subscript_out_of_range();
  return RuoteAliasByEnum[static_cast<size_t>(wheel)];
}

int16_t WheelTables::wheel_of(std::string_view alias) const {
  if (!RuoteEnumByAlias) throw automation::object_not_set();
  return RuoteEnumByAlias->at(alias);
}

std::shared_ptr<const WheelTables> wheel_tables() { return current_tables().get(); }

void replace_wheel_tables(WheelTables tables) {
  current_tables().exchange(std::make_shared<const WheelTables>(std::move(tables)));
}

std::string alias_of(int32_t wheel) { return wheel_tables()->alias_of(wheel); }

int16_t wheel_of(std::string_view alias) { return wheel_tables()->wheel_of(alias); }

int32_t wheel_argument(const automation::Variant& wheel) {
  return automation::is_numeric(wheel) ? automation::to_long(wheel) : wheel_of(automation::to_text(wheel));
}

namespace {

void replace_tables(RecordSet& rows) {
  WheelTables tables = *wheel_tables();
  try {
    read_wheels(rows, tables);
  } catch (...) {
    replace_wheel_tables(std::move(tables));
    throw;
  }
  replace_wheel_tables(std::move(tables));
}

}  // namespace

bool PreloadRuoteAlias(const automation::Ref<DbConnector>& connector) {
  return trapped("mPrecarica.PreloadRuoteAlias()", false, [&] {
    return walk_rows(required(connector), "SELECT enumeratore,enumeratoreBit,ruotaAlias FROM ruote",
                     [](RecordSet& rows) {
                       if (!rows.at_end()) replace_tables(rows);
                     });
  });
}

void preload_if_open(const automation::Ref<DbConnector>& connector) {
  if (connector && connector->ConnectionState() == connection_open) PreloadRuoteAlias(connector);
}

}  // namespace vestara
