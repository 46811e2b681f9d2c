#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/checks/finding.h"

namespace vestara::host {

/// A question whose every row is a fault.
struct ContentCheck {
  std::string what;
  std::string selection;  ///< a SELECT that every engine takes; the first column is unique enough to sort
  std::vector<std::string_view> tables;  ///< those that it reads
  std::string remedy;
};

std::vector<ContentCheck> content_checks();

/// What the rows of an archive have against them. Tables that cannot be read are left out: the schema has that. A
/// question that the database refuses is a finding itself.
Findings content_findings(const ArchiveSession& session);

/// The first row of a record set: "id 7, dtEstr 2005-02-09, ruota Null".
std::string row_in_words(RecordSet& rows);

}  // namespace vestara::host
