#include "vestara/keeping/import/manual_draws.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace vestara {
namespace {

std::span<const DrawRow> rows_of(const std::vector<DrawRow>& rows, int32_t day) {
  struct ByDay {
    bool operator()(const DrawRow& row, int32_t other) const { return row.day < other; }
    bool operator()(int32_t other, const DrawRow& row) const { return other < row.day; }
  };
  const auto [first, last] = std::equal_range(rows.begin(), rows.end(), day, ByDay{});
  return {first, last};
}

InFile compare(std::span<const DrawRow> held, std::span<const DrawRow> given) {
  if (given.empty()) return InFile::missing;
  return std::equal(held.begin(), held.end(), given.begin(), given.end(), same_draw) ? InFile::equal
                                                                                     : InFile::different;
}

}  // namespace

std::vector<ManualDraw> compare_manual(const std::vector<int32_t>& marked, const std::vector<DrawRow>& held,
                                       const std::vector<DrawRow>& rows) {
  std::vector<ManualDraw> manual;
  for (const int32_t day : marked)
    if (const auto draw = rows_of(held, day); !draw.empty()) manual.push_back({day, compare(draw, rows_of(rows, day))});
  return manual;
}

std::vector<DrawRow> with_missing(const std::vector<DrawRow>& rows, const std::vector<DrawRow>& held,
                                  const std::vector<ManualDraw>& manual) {
  std::vector<DrawRow> missing;
  for (const ManualDraw& draw : manual) {
    if (draw.in_file != InFile::missing) continue;
    const auto its_rows = rows_of(held, draw.day);
    missing.insert(missing.end(), its_rows.begin(), its_rows.end());
  }
  std::vector<DrawRow> all;
  all.reserve(rows.size() + missing.size());
  std::merge(rows.begin(), rows.end(), missing.begin(), missing.end(), std::back_inserter(all), comes_before);
  return all;
}

std::string_view fate_of(const ManualDraw& draw, MissingManual missing) {
  if (draw.in_file != InFile::missing) return "replaced";
  return missing == MissingManual::keep ? "kept" : "lost";
}

}  // namespace vestara
