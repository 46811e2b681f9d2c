#include "hosts/cli/study/gap_rows.h"

#include <algorithm>

#include "automation/coercion.h"
#include "hosts/cli/widened.h"

namespace vestara::host {
namespace {

std::optional<int32_t> day_in(const automation::Variant& value) {
  const auto date = automation::date_in(value);
  if (!date) return std::nullopt;
  return date->day();
}

std::optional<int32_t> number_in(const automation::Variant& value) {
  if (!automation::is_numeric(value)) return std::nullopt;
  return automation::to_long(value);
}

GapRow row_at(const cDistanze& gaps, int32_t index) {
  GapRow row{.from = day_in(gaps.DatePrec(index)),
             .to = day_in(gaps.DateLast(index)),
             .draws = gaps.Distance(index),
             .numbers_hit = number_in(gaps.combinazione(index)),
             .contest = number_in(gaps.ConcorsoNumero(index))};
  if (row.numbers_hit) row.wheel = gaps.Ruota(index);
  return row;
}

}  // namespace

std::vector<GapRow> gap_rows(const cDistanze& gaps) {
  std::vector<GapRow> rows;
  rows.reserve(static_cast<size_t>(gaps.ItemCount()));
  for (int32_t index = 1; index <= gaps.ItemCount(); ++index) rows.push_back(row_at(gaps, index));
  return rows;
}

int64_t current_delay(const std::vector<GapRow>& rows) {
  const auto open = std::find_if(rows.begin(), rows.end(), [](const GapRow& row) { return !row.to; });
  return open == rows.end() ? 0 : open->draws;
}

std::vector<Fact> gap_facts(const cDistanze& gaps) {
  const auto rows = gap_rows(gaps);
  const bool any = !rows.empty();
  const bool closed = std::any_of(rows.begin(), rows.end(), [](const GapRow& row) { return row.is_closed(); });
  const auto mean = [](bool known, float value) { return known ? Cell(widened(value)) : Cell(); };
  const auto extreme = [](bool known, int32_t value) { return known ? Cell(int64_t{value}) : Cell(); };
  return {{"gaps", int64_t{gaps.ItemCount()}},
          {"current_delay", any ? Cell(current_delay(rows)) : Cell()},
          {"mean_gap_draws", mean(any, gaps.GetAVGDistance())},
          {"minimum_gap_draws", extreme(any, gaps.GetMinDistance())},
          {"maximum_gap_draws", extreme(any, gaps.GetMaxDistance())},
          {"mean_gap_days", mean(closed, gaps.GetAVGDistanceDays())},
          {"minimum_gap_days", extreme(closed, gaps.GetMinDistanceDays())},
          {"maximum_gap_days", extreme(closed, gaps.GetMaxDistanceDays())}};
}

}  // namespace vestara::host
