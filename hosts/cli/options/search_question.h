#pragma once

#include <string>
#include <vector>

#include "hosts/cli/options/options.h"

namespace vestara::host {

/// A search in words, as a command line gives it.
struct SearchWords {
  std::vector<std::string> numbers;
  std::string hits = "1";
  std::string wheels = "all";
  std::string from;  ///< empty for no bound
  std::string to;
};

/// The search that they mean. Failure (usage) when they mean none.
SearchOptions search_question(const SearchWords& words);

}  // namespace vestara::host
