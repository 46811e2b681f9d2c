#pragma once  // for hosts

#include <cstdint>
#include <optional>

#include "vestara/archive/hit_search.h"
#include "vestara/distances/gap_list.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/study/wheels_per_draw.h"

// What a hit search amounts to, beside what chance would have given.

namespace vestara {

/// What a search found, and where.
struct SearchOutcome {
  int16_t numbers = 0;         ///< played
  int16_t size = 0;            ///< of a hit
  int16_t wheels = 0;          ///< that the search named
  int64_t draws_in_range = 0;  ///< dates that hold a number, on any wheel
  int64_t draws_with_hit = 0;
  int64_t combinations = 0;  ///< of all sizes
  GapList gaps;              ///< newest first
};
/// Counts the draws of the range and loads the gaps; raises what `count_draws` and `load_gaps` raise.
VESTARA_API SearchOutcome search_outcome(DbConnector& connector, const SearchQuestion& question, const Hits& hits);

/// Expected and effective hits. Percentages are of draws; draws per hit are nothing when there is never one.
struct SearchFigures {
  /// In the very draws of the archive, each with the wheels that were drawn in it. Shares are nothing without draws.
  struct Drawn {
    int64_t draws = 0;
    std::optional<double> wheels_per_draw;
    double expected_hits = 0;  ///< draws with a hit
    std::optional<double> expected_percent;
    std::optional<double> effective_percent;
    std::optional<double> expected_draws_per_hit;
    std::optional<double> effective_draws_per_hit;
  } drawn;
  /// As the contract has them: one wheel when none was named, all draw dates of the range.
  struct Contract {
    int16_t wheels = 1;
    double theoretical_percent = 0;
    double effective_percent = 0;
    std::optional<double> theoretical_draws_per_hit;
    std::optional<double> effective_draws_per_hit;
  } contract;
  /// If every wheel of the search were drawn each time; nothing when there are none.
  struct AllWheels {
    double percent = 0;
    std::optional<double> draws_per_hit;
  };
  std::optional<AllWheels> all_wheels;
};
/// `wheels` are those that the range has (`wheels_in`).
VESTARA_API SearchFigures search_figures(const SearchOutcome& outcome, const WheelsPerDraw& drawn, int16_t wheels);

}  // namespace vestara
