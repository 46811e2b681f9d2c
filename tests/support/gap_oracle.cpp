#include "tests/support/gap_oracle.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "tests/support/values.h"

namespace testing_support {

using automation::Date;
using automation::Null;
using automation::Variant;

namespace {

using Contest = std::optional<int32_t>;
using Draw = std::pair<int32_t, Contest>;                           // day, contest
using HitRow = std::tuple<int32_t, std::string, Contest, int32_t>;  // day, wheel, contest, hits
struct Line {
  int32_t day;
  std::optional<HitRow> hit;
};

bool in_period(const ArchiveRow& row, const GapQuery& query) {
  return !(query.from && row.date < *query.from) && !(query.to && row.date > *query.to);
}

bool on_wheel(const ArchiveRow& row, const GapQuery& query) {
  const bool all_draws = query.all_draws || query.numbers.empty();
  if (query.wheels.empty() || (query.all_wheels && all_draws)) return true;
  return std::ranges::count(query.wheels, row.wheel) != 0;
}

int32_t hits_in(const ArchiveRow& row, const GapQuery& query) {
  return static_cast<int32_t>(std::ranges::count_if(
      row.numbers, [&](const auto& number) { return number && std::ranges::count(query.numbers, *number) != 0; }));
}

std::vector<Line> lines_of(const Archive& archive, const GapQuery& query) {
  std::set<Draw> draws;
  std::set<HitRow> hits;
  for (const auto& row : archive) {
    if (!in_period(row, query)) continue;
    draws.insert({row.date.day(), row.contest});
    const int32_t count = hits_in(row, query);
    if (count > 0 && count >= query.least_hits && on_wheel(row, query))
      hits.insert({row.date.day(), row.wheel, row.contest, count});
  }
  std::vector<Line> lines;
  for (const auto& [day, contest] : draws) {
    const size_t before = lines.size();
    for (const auto& hit : hits)
      if (std::get<0>(hit) == day) lines.push_back({day, hit});
    if (lines.size() == before) lines.push_back({day, {}});
  }
  std::ranges::stable_sort(lines, [&](const Line& a, const Line& b) {
    if (a.day != b.day) return query.ascending ? a.day < b.day : a.day > b.day;
    return a.hit < b.hit;
  });
  return lines;
}

/// One item: the draw or the open side that ends it is `reached`, the one before it `last_hit`.
GapItem item_between(const std::optional<int32_t>& last_hit, const std::optional<int32_t>& reached, bool ascending) {
  GapItem item{.days = "##", .wheel = "##", .hits = "##", .contest = "##"};
  const Variant end = reached ? Variant(Date::from_day(*reached)) : Variant("########");
  const Variant start = last_hit ? Variant(automation::date_to_text(Date::from_day(*last_hit))) : Variant("########");
  item.earlier = ascending ? start : end;
  item.later = ascending ? end : start;
  if (reached && last_hit) item.days = ascending ? *reached - *last_hit : *last_hit - *reached;
  return item;
}

}  // namespace

std::vector<GapItem> gaps_of(const Archive& archive, const GapQuery& query) {
  std::vector<GapItem> items;
  std::optional<int32_t> last_hit;
  int32_t gap = 0;
  for (const auto& line : lines_of(archive, query)) {
    if (!line.hit) {
      ++gap;
      continue;
    }
    const auto& [day, wheel, contest, hits] = *line.hit;
    GapItem item = item_between(last_hit, day, query.ascending);
    item.draws = gap;
    item.wheel = wheel;
    item.hits = hits;
    item.contest = contest ? Variant(*contest) : Variant(Null{});
    items.push_back(item);
    gap = 0;
    last_hit = day;
  }
  if (gap == 0) return items;
  items.push_back(item_between(last_hit, {}, query.ascending));
  items.back().draws = gap;
  return items;
}

GapFigures figures_of(const std::vector<GapItem>& items) {
  GapFigures figures;
  double sum = 0;
  std::vector<int32_t> draws, days;
  for (const auto& item : items) {
    draws.push_back(item.draws);
    if (const auto* value = item.days.get_if<int32_t>()) days.push_back(*value);
  }
  for (const int32_t value : draws) sum += value;
  figures.mean_draws = static_cast<float>(sum / static_cast<double>(draws.size()));
  figures.least_draws = *std::ranges::min_element(draws);
  figures.most_draws = std::max(0, *std::ranges::max_element(draws));
  if (days.empty()) return figures;
  sum = 0;
  for (const int32_t value : days) sum += value;
  figures.mean_days = static_cast<float>(sum / static_cast<double>(days.size()));
  figures.least_days = *std::ranges::min_element(days);
  figures.most_days = std::max(0, *std::ranges::max_element(days));
  return figures;
}

void PrintTo(const GapItem& item, std::ostream* out) {
  *out << item.draws << " draws, " << describe(item.earlier) << " to " << describe(item.later) << ", "
       << describe(item.days) << " days, " << item.wheel << ", " << describe(item.hits) << " hits, "
       << describe(item.contest);
}

void PrintTo(const GapFigures& figures, std::ostream* out) {
  *out << "draws " << figures.mean_draws << " [" << figures.least_draws << ", " << figures.most_draws << "], days "
       << figures.mean_days << " [" << figures.least_days << ", " << figures.most_days << "]";
}

}  // namespace testing_support
