#include "vestara/distances/gap_list.h"

#include <algorithm>
#include <utility>

#include "automation/coercion.h"
#include "automation/error.h"
#include "vestara/distances/gap_text.h"
#include "vestara/foundation/query.h"

namespace vestara {

void GapList::restart(DateOrder order) {
  order_ = order;
  items_.clear();
  wheels_.clear();
  places_.clear();
}

void GapList::add(const Hit& hit, int32_t draws) {
  items_.push_back({.date = hit.date,
                    .draws = draws,
                    .contest = hit.contest.value_or(0),
                    .numbers_hit = hit.numbers_hit,
                    .wheel = wheel_place(hit.wheel),
                    .has_contest = hit.contest.has_value(),
                    .is_trailing = false});
}

void GapList::add_trailing(int32_t draws) { items_.push_back({.draws = draws, .is_trailing = true}); }

uint16_t GapList::wheel_place(std::string_view alias) {
  if (const auto known = places_.find(alias); known != places_.end()) return known->second;
  if (wheels_.size() > UINT16_MAX) throw automation::overflow();
  const auto place = static_cast<uint16_t>(wheels_.size());
  wheels_.emplace_back(alias);
  places_.emplace(alias, place);
  return place;
}

const GapList::Item& GapList::item(int32_t index) const {
  if (index < 1 || index > size()) throw automation::subscript_out_of_range();
  return items_[static_cast<size_t>(index - 1)];
}

Gap GapList::gap(int32_t index) const {
  const Item& at = item(index);
  Gap gap{.draws = at.draws};
  std::optional<automation::Date> reached;
  std::optional<automation::Date> previous;
  if (index > 1) previous = item(index - 1).date;
  if (!at.is_trailing) {
    reached = at.date;
    gap.wheel = wheels_[at.wheel];
    gap.numbers_hit = at.numbers_hit;
    if (at.has_contest) gap.contest = at.contest;
  }
  gap.earlier = order_ == DateOrder::newest_first ? reached : previous;
  gap.later = order_ == DateOrder::newest_first ? previous : reached;
  return gap;
}

GapAggregates aggregates_of(const GapList& gaps) {
  GapAggregates result{.least_draws = gaps.draws(1)};
  int64_t draws = 0;
  int64_t days = 0;
  int32_t closed = 0;
  for (int32_t i = 1; i <= gaps.size(); ++i) {
    const int32_t distance = gaps.draws(i);
    draws += distance;
    result.least_draws = std::min(result.least_draws, distance);
    result.most_draws = std::max(result.most_draws, distance);
    const auto difference = gaps.days(i);
    if (!difference) continue;
    days += *difference;
    result.least_days = closed == 0 ? *difference : std::min(result.least_days, *difference);
    result.most_days = std::max(result.most_days, *difference);
    ++closed;
  }
  result.mean_draws = static_cast<float>(static_cast<double>(draws) / gaps.size());
  if (closed > 0) result.mean_days = static_cast<float>(static_cast<double>(days) / closed);
  return result;
}

namespace {

/// The columns of a gap statement, found once. The dates of draw and hit share a name, so they go by place.
class GapRow {
 public:
  explicit GapRow(RecordSet& rows)
      : rows_(rows),
        wheel_(rows.column("ruota")),
        contest_(rows.column("concorsoNumero")),
        numbers_hit_(rows.column("numeriTrovati")) {}

  bool is_hit() const { return !rows_.is_null(date_of_hit) && rows_.value(date_of_hit) == rows_.value(date_of_draw); }
  Hit hit() const {
    const auto date = automation::date_in(rows_.value(date_of_hit));
    if (!date) throw automation::type_mismatch();
    Hit hit{.date = *date, .wheel = {}, .numbers_hit = automation::to_long(rows_.value(numbers_hit_)), .contest = {}};
    if (!rows_.is_null(contest_)) hit.contest = automation::to_long(rows_.value(contest_));
    if (!rows_.is_null(wheel_)) hit.wheel = rows_.text(wheel_);
    return hit;
  }

 private:
  static constexpr Column date_of_draw{0};
  static constexpr Column date_of_hit{1};

  RecordSet& rows_;
  Column wheel_;
  Column contest_;
  Column numbers_hit_;
};

}  // namespace

void walk_gaps(RecordSet& rows, GapList& gaps) {
  if (rows.at_end()) return;
  const GapRow row(rows);
  int32_t draws = 0;
  for (; !rows.at_end(); rows.move_next()) {
    if (!row.is_hit()) {
      ++draws;
      continue;
    }
    gaps.add(row.hit(), draws);
    draws = 0;
  }
  if (draws != 0) gaps.add_trailing(draws);
}

bool load_gaps(DbConnector& connector, const GapQuestion& question, GapList& into) {
  return walk_rows(connector, gap_statement(question), [&](RecordSet& rows) { walk_gaps(rows, into); });
}

GapList load_gaps(DbConnector& connector, const GapQuestion& question) {
  GapList gaps;
  gaps.restart(question.order);
  return whole("the gaps", std::move(gaps), [&](GapList& into) { return load_gaps(connector, question, into); });
}

}  // namespace vestara
