#pragma once

#include <CLI/App.hpp>
#include <cstdint>
#include <string>
#include <vector>

#include "hosts/cli/options/option_values.h"
#include "vestara/draws/draw_range.h"

namespace vestara::host {

/// A search in words, as a command line gives it.
struct SearchWords {
  std::vector<std::string> numbers;
  std::string hits = "1";
  std::string wheels = "all";
  std::string from;  ///< empty for no bound
  std::string to;
};

/// Which hits are looked for, and where.
struct SearchRequest {
  NumberList numbers;
  int16_t hits = 1;  ///< on one wheel, at least
  DrawRange draws;
};

/// NUMBERS and --hits, --wheels, --from, --to.
void add_search_words(CLI::App& app, SearchWords& words);

/// The search that they mean. Failure (usage) when they mean none.
SearchRequest search_request(const SearchWords& words);

}  // namespace vestara::host
