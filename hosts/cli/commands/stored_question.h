#pragma once

#include "hosts/cli/archive/stored_searches.h"
#include "hosts/cli/options/search_question.h"

namespace vestara::host {

/// What `vestara search` would be asked for a search that is stored. Failure (usage) when it is none of its questions.
SearchOptions question_of(const StoredSearch& stored);

}  // namespace vestara::host
