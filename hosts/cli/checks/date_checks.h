#pragma once

#include <cstdint>
#include <optional>

#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/checks/finding.h"

namespace vestara::host {

/// What the dates of the draws tell. Days count from 1899-12-30.
struct DateFacts {
  std::optional<int32_t> first;
  std::optional<int32_t> last;
  int64_t dates = 0;
  int64_t lacking = 0;  ///< rows that would be there had every wheel been drawn on each date since its first one
  Findings findings;    ///< dates that are none
};

/// Reads the dates of storico, which can be read. Failure (database).
DateFacts check_dates(const ArchiveSession& session);

}  // namespace vestara::host
