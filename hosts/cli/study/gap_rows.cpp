#include "hosts/cli/study/gap_rows.h"

#include <algorithm>

#include "vestara/study/widened.h"

namespace vestara::host {
namespace {

std::optional<int32_t> day_of(const std::optional<automation::Date>& date) {
  return date ? std::optional(date->day()) : std::nullopt;
}

GapRow row_of(const Gap& gap) {
  return {.from = day_of(gap.earlier),
          .to = day_of(gap.later),
          .draws = gap.draws,
          .wheel = std::string(gap.wheel),
          .numbers_hit = gap.numbers_hit,
          .contest = gap.contest};
}

}  // namespace

std::vector<GapRow> gap_rows(const GapList& gaps) {
  std::vector<GapRow> rows;
  rows.reserve(static_cast<size_t>(gaps.size()));
  for (int32_t index = 1; index <= gaps.size(); ++index) rows.push_back(row_of(gaps.gap(index)));
  return rows;
}

int64_t current_delay(const std::vector<GapRow>& rows) {
  const auto open = std::find_if(rows.begin(), rows.end(), [](const GapRow& row) { return !row.to; });
  return open == rows.end() ? 0 : open->draws;
}

std::vector<Fact> gap_facts(const GapList& gaps) {
  const auto rows = gap_rows(gaps);
  const bool any = !rows.empty();
  const bool closed = std::any_of(rows.begin(), rows.end(), [](const GapRow& row) { return row.is_closed(); });
  const GapAggregates found = any ? aggregates_of(gaps) : GapAggregates{};
  const auto mean = [](bool known, float value) { return known ? Cell(widened(value)) : Cell(); };
  const auto extreme = [](bool known, int32_t value) { return known ? Cell(int64_t{value}) : Cell(); };
  return {{"gaps", std::ssize(rows)},
          {"current_delay", any ? Cell(current_delay(rows)) : Cell()},
          {"mean_gap_draws", mean(any, found.mean_draws)},
          {"minimum_gap_draws", extreme(any, found.least_draws)},
          {"maximum_gap_draws", extreme(any, found.most_draws)},
          {"mean_gap_days", mean(closed, found.mean_days)},
          {"minimum_gap_days", extreme(closed, found.least_days)},
          {"maximum_gap_days", extreme(closed, found.most_days)}};
}

}  // namespace vestara::host
