#pragma once

#include "hosts/cli/archive/stored_searches.h"
#include "hosts/cli/options/search_request.h"

namespace vestara::host {

/// What `vestara search` would be asked for a search that is stored. Failure (usage) when it is none of its questions.
SearchRequest request_of(const StoredSearch& stored);

}  // namespace vestara::host
