#pragma once  // for hosts

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vestara/foundation/export.h"
#include "vestara/foundation/schema.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// A table that the schema has and that yet cannot be read, for want of a right or because the file is damaged.
struct UnreadableTable {
  std::string_view table;
  std::string reason;
};

struct SchemaFacts {
  std::vector<SchemaGap> gaps;         ///< what is missing
  std::optional<std::string> refusal;  ///< why that is not known
  std::vector<UnreadableTable> unreadable;
};

VESTARA_API SchemaFacts check_schema(const Archive& archive);

}  // namespace vestara
