#pragma once

#include <CLI/App.hpp>
#include <cstdint>
#include <string>

#include "hosts/cli/archive/stored_searches.h"
#include "hosts/cli/context.h"
#include "hosts/cli/failure.h"

// What the commands behind `vestara saved` share.

namespace vestara::host {

/// ID, which must be given.
void add_search_id(CLI::App& app, std::string& place);
/// Failure (usage) when it is no id. No search has 0, which may be asked for all the same.
int32_t search_id(const std::string& text);

/// Failure (nothing_found) when no search is saved under this id.
StoredSearch search_with_id(const ArchiveSession& session, int32_t id);

/// Says what was done with the search of this id.
ExitCode report_done(const Context& context, const std::string& result, int32_t id);

}  // namespace vestara::host
