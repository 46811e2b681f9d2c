#pragma once

#include <stdexcept>
#include <string>

#include "automation/variant.h"
#include "vestara/foundation/export.h"
#include "vestara/keeping/archive_tables.h"

namespace vestara {

/// A value that its column cannot hold on every engine. The text says what it is: "holds \"x\", which is no date".
struct UnfitValue : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A value as statements write it, in one spelling whatever engine it comes from: 5, NULL, '2005-02-09',
/// '2005-02-09 21:30:00', 'it''s'. Equal values have equal literals. Throws UnfitValue.
VESTARA_API std::string value_literal(const automation::Variant& value, ColumnKind kind);

}  // namespace vestara
