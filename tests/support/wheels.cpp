#include "tests/support/wheels.h"

namespace testing_support {

namespace {
constexpr const char* aliases[] = {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"};
}  // namespace

Table canonical_wheels() {
  Table table{.columns = {"enumeratore", "enumeratoreBit", "ruotaAlias"}};
  int32_t wheel = 0;
  for (const char* alias : aliases) {
    ++wheel;
    table.rows.push_back({wheel, 1 << (wheel - 1), alias});
  }
  return table;
}

CanonicalWheels::CanonicalWheels() {
  vestara::WheelTables tables;
  tables.RuoteEnumByAlias.emplace();
  int32_t wheel = 0;
  for (const char* alias : aliases) {
    tables.RuoteAliasByEnum.at(static_cast<size_t>(++wheel)) = alias;
    tables.RuoteEnumByAlias->add(alias, static_cast<int16_t>(wheel));
  }
  vestara::replace_wheel_tables(std::move(tables));
}

}  // namespace testing_support
