#include "hosts/cli/output/combinations_head.h"

namespace vestara::host {

ExactCount combination_count(const NumberList& numbers, int32_t size) {
  return ways_to_choose(static_cast<int32_t>(numbers.count), size);
}

Report combinations_head(const NumberList& numbers, int32_t size, Listing listing) {
  Report report;
  report.facts = {{"numbers", static_cast<int64_t>(numbers.count)},
                  {"size", int64_t{size}},
                  {"count", count_cell(combination_count(numbers, size))}};
  if (listing == Listing::absent) return report;
  report.listing = "combinations";
  report.row_kind = "combination";
  for (int32_t i = 1; i <= size; ++i) report.columns.push_back("n" + std::to_string(i));
  return report;
}

}  // namespace vestara::host
