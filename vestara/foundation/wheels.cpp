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
    tables.RuoteEnumByAlias->add(name, static_cast<int16_t>(wheel));
  }
}

}  // namespace

namespace {

/// The bytes of a short alias as one number, so that it is compared at once.
uint64_t code_of(std::string_view alias) {
  uint64_t code = 0;
  if (alias.size() > sizeof code) return code;
  for (const char byte : alias) code = code << 8U | static_cast<unsigned char>(byte);
  return code;
}

}  // namespace

size_t WheelEnumerators::slot_of(uint64_t code) { return static_cast<size_t>(code % guess_count); }

const WheelEnumerators::Entry* WheelEnumerators::find(std::string_view alias) const {
  const uint64_t code = code_of(alias);
  if (const size_t place = guesses_[slot_of(code)]; code != 0 && place < entries_.size()) {
    const Entry& guess = entries_[place];
    if (guess.code == code && guess.alias.size() == alias.size()) return &guess;
  }
  for (const Entry& entry : entries_)
    if (automation::equal_ignoring_case(entry.alias, alias)) return &entry;
  return nullptr;
}

void WheelEnumerators::add(std::string_view alias, int16_t wheel) {
  if (find(alias)) throw automation::duplicate_key();
  const uint64_t code = code_of(alias);
  guesses_[slot_of(code)] = static_cast<uint8_t>(entries_.size());
  entries_.push_back({code, std::string(alias), wheel});
}

int16_t WheelEnumerators::at(std::string_view alias) const {
  const Entry* entry = find(alias);
  if (!entry) throw automation::invalid_call();
  return entry->wheel;
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
  return by_alias->at(alias);
}

int32_t wheel_argument(const automation::Variant& wheel) {
  return automation::is_numeric(wheel) ? automation::to_long(wheel) : wheel_of(automation::to_text(wheel));
}

bool PreloadRuoteAlias(const automation::Ref<DbConnector>& connector) {
  return trapped("mPrecarica.PreloadRuoteAlias()", false, [&] {
    return walk_rows(connector, "SELECT enumeratore,enumeratoreBit,ruotaAlias FROM ruote", [](RecordSet& rows) {
      if (!rows.at_end()) read_wheels(rows, wheel_tables());
    });
  });
}

void preload_if_open(const automation::Ref<DbConnector>& connector) {
  if (connector && connector->ConnectionState() == connection_open) PreloadRuoteAlias(connector);
}

}  // namespace vestara
