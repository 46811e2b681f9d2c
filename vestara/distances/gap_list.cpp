#include "vestara/distances/gap_list.h"

#include <algorithm>

#include "automation/coercion.h"
#include "automation/error.h"

namespace vestara {

using automation::Variant;

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

std::optional<int32_t> GapList::days(int32_t index) const {
  const Item& gap = item(index);
  if (index == 1 || gap.is_trailing) return std::nullopt;
  const int32_t back = item(index - 1).date.day() - gap.date.day();
  return order_ == DateOrder::newest_first ? back : -back;
}

Variant GapList::reached_date(int32_t index) const {
  const Item& gap = item(index);
  return gap.is_trailing ? Variant(open_side) : Variant(gap.date);
}

Variant GapList::previous_date(int32_t index) const {
  item(index);
  return index == 1 ? Variant(open_side) : Variant(automation::date_to_text(item(index - 1).date));
}

Variant GapList::earlier_date(int32_t index) const {
  return order_ == DateOrder::newest_first ? reached_date(index) : previous_date(index);
}

Variant GapList::later_date(int32_t index) const {
  return order_ == DateOrder::newest_first ? previous_date(index) : reached_date(index);
}

Variant GapList::day_difference(int32_t index) const {
  const auto difference = days(index);
  return difference ? Variant(*difference) : Variant(no_value);
}

std::string GapList::wheel(int32_t index) const {
  const Item& gap = item(index);
  return gap.is_trailing ? std::string(no_value) : wheels_[gap.wheel];
}

Variant GapList::numbers_hit(int32_t index) const {
  const Item& gap = item(index);
  return gap.is_trailing ? Variant(no_value) : Variant(gap.numbers_hit);
}

Variant GapList::contest(int32_t index) const {
  const Item& gap = item(index);
  if (gap.is_trailing) return no_value;
  return gap.has_contest ? Variant(gap.contest) : Variant(automation::Null{});
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

}  // namespace vestara
