#include "hosts/cli/output/combinations_head.h"

#include "hosts/cli/output/count_cell.h"

namespace vestara::host {

ExactCount combination_count(size_t numbers, int32_t size) {
  return ways_to_choose(static_cast<int32_t>(numbers), size);
}

Report combinations_head(size_t numbers, int32_t size, Listing listing) {
  Report report;
  report.facts = {{"numbers", static_cast<int64_t>(numbers)},
                  {"size", int64_t{size}},
                  {"count", count_cell(combination_count(numbers, size))}};
  if (listing == Listing::absent) return report;
  report.listing = "combinations";
  report.row_kind = "combination";
  for (int32_t i = 1; i <= size; ++i) report.columns.push_back("n" + std::to_string(i));
  return report;
}

}  // namespace vestara::host
