#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/output/output.h"

namespace vestara::host {

/// The header of a system as the archive has it.
struct StoredSystem {
  Cell id;
  Cell title;
  Cell description;
  Cell kind;     ///< "U" for a user's; the combinations of "S" are numbers, never positions
  Cell numbers;  ///< as a list
  Cell number_count;
  Cell size;  ///< numbers of a combination
  Cell bets;
  Cell guarantee;
};

/// Which systems somebody looks for. An empty text and 0 do not filter.
struct SystemFilter {
  std::string title;        ///< found anywhere in the title
  std::string description;  ///< the same
  std::string kind;
  int16_t numbers = 0;
  int16_t size = 0;
  int16_t bets = 0;
  int16_t guarantee = 0;
};

/// The systems that meet every filter, by id. "%", "_" and "\" of a filter stand for themselves.
std::vector<StoredSystem> stored_systems(const ArchiveSession& session, const SystemFilter& filter);
/// Failure (nothing_found) when there is none with this id, which is 1 or more.
StoredSystem system_with_id(const ArchiveSession& session, int32_t id);

struct StoredCombinations {
  std::string text;  ///< CR LF between them
  size_t count = 0;
};
/// With `numbers` ("10,20,30"), the number that stands there for each position, unless the system is of kind "S".
StoredCombinations stored_combinations(const ArchiveSession& session, int32_t id, const std::string& numbers = {});

}  // namespace vestara::host
