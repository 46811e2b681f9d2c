#pragma once

#include <cstddef>
#include <limits>

#include "hosts/cli/context.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/options/search_request.h"

namespace vestara::host {

/// How the result of a search is shown.
struct SearchView {
  bool oldest_first = false;
  bool statistics = false;  ///< also what the search amounts to
  size_t table_rows = std::numeric_limits<size_t>::max();
};

/// Searches the archive and shows the draws. `nothing_found` when there is none.
ExitCode show_search(const SearchRequest& request, const SearchView& view, const Context& context);

}  // namespace vestara::host
