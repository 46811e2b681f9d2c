#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "hosts/cli/output/output.h"
#include "vestara/distances/gap_list.h"

namespace vestara::host {

/// A gap between two hits. Days count from 1899-12-30.
struct GapRow {
  std::optional<int32_t> from;  ///< the earlier hit; nothing where no hit bounds the gap
  std::optional<int32_t> to;    ///< the later one
  int32_t draws = 0;            ///< without a hit
  std::string wheel;            ///< of the hit that ends the gap in the walk; empty for none
  std::optional<int32_t> numbers_hit;
  std::optional<int32_t> contest;

  bool is_closed() const { return from && to; }
};

std::vector<GapRow> gap_rows(const GapList& gaps);

/// The draws since the last hit.
int64_t current_delay(const std::vector<GapRow>& rows);

/// Count, means and extremes; absent where there is no gap, or none with two hits.
std::vector<Fact> gap_facts(const GapList& gaps);

}  // namespace vestara::host
