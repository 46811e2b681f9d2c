#pragma once  // for hosts

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"

// What a database can do to an archive behind the library's back, or deny it.

namespace vestara {

/// Triggers on the archive's tables, which change what is stored.
struct TriggerFinding {
  int64_t count = 0;
  std::string name;  ///< of the first
  std::string table;
};

/// `scheme` names the engine as the archive's URL does; none are found on an engine that is not known, and none where
/// the database does not tell.
VESTARA_API TriggerFinding find_triggers(const Archive& archive, std::string_view scheme);

/// A column of texts that the database cannot compare, for want of their collation.
struct UncomparableColumn {
  std::string_view table;
  std::string_view column;
  std::string reason;
};

VESTARA_API std::vector<UncomparableColumn> uncomparable_columns(const Archive& archive);

/// Why no change is possible; "" when one is. A change of no row is made and taken back.
VESTARA_API std::string why_unchangeable(const Archive& archive);

}  // namespace vestara
