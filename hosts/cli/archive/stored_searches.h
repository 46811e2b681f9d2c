#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "automation/variant.h"
#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/output/output.h"

namespace vestara::host {

/// A search as the archive has it. Other programs write them too, so that any value may be anything.
struct StoredSearch {
  automation::Variant id;
  automation::Variant name;
  automation::Variant numbers;
  automation::Variant hits;
  automation::Variant wheels;
  automation::Variant from;
  automation::Variant to;
  automation::Variant saved;
};

/// The search with this id, or every one for -1: newest first, and of one day the largest id first.
std::vector<StoredSearch> stored_searches(const ArchiveSession& session, int32_t id);

/// The names of a search's values and the values, in one order; dates as "YYYY-MM-DD".
std::vector<std::string> stored_names();
std::vector<Cell> stored_values(const StoredSearch& search);

}  // namespace vestara::host
