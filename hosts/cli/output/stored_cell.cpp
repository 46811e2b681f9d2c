#include "hosts/cli/output/stored_cell.h"

#include "vestara/keeping/stored_value.h"

namespace vestara::host {

Cell stored_cell(const automation::Variant& value) {
  if (value.is_null() || value.is_empty()) return {};
  if (const auto* number = value.get_if<int32_t>()) return int64_t{*number};
  if (const auto* number = value.get_if<int16_t>()) return int64_t{*number};
  return stored_text(value);
}

}  // namespace vestara::host
