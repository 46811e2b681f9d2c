#pragma once

#include <CLI/App.hpp>
#include <cstddef>
#include <string>

#include "vestara/draws/draw_range.h"

// What `vestara delays` and `vestara frequencies` share.

namespace vestara::host {

/// Which draws the figures come from and how many of them are shown, in words.
struct FigureWords {
  std::string wheels = "all";
  std::string from;  ///< empty for no bound
  std::string to;
  std::string top;    ///< empty for all
  bool grid = false;  ///< every number of every wheel rather than a ranking
};

/// --wheels, --from, --to, --top and --grid.
void add_figure_words(CLI::App& app, FigureWords& words);

/// Failure (usage) when they name no such draws.
DrawRange draws_of(const FigureWords& words);
/// The entries of a ranking that are listed.
size_t top_of(const FigureWords& words);

}  // namespace vestara::host
