#include "vestara/draws/loaded_draws.h"

#include <algorithm>
#include <tuple>

namespace vestara {
namespace {

bool comes_first(const LoadedDraw& left, const LoadedDraw& right) {
  // An optional without a value is less than any.
  return std::tie(left.day, left.contest, left.numbers) < std::tie(right.day, right.contest, right.numbers);
}

}  // namespace

LoadedDraws::LoadedDraws(ByWheel draws) {
  size_t rows = 0;
  for (const auto& of_wheel : draws) rows += of_wheel.size();
  days_.reserve(rows);
  contests_.reserve(rows);
  has_contest_.reserve(rows);
  numbers_.reserve(rows);
  low_.reserve(rows);
  high_.reserve(rows);
  for (size_t place = 0; place < draws.size(); ++place) {
    append(draws[place]);
    starts_[place + 1] = days_.size();
  }
}

void LoadedDraws::append(std::vector<LoadedDraw>& of_wheel) {
  if (!std::is_sorted(of_wheel.begin(), of_wheel.end(), comes_first))
    std::sort(of_wheel.begin(), of_wheel.end(), comes_first);
  for (const LoadedDraw& draw : of_wheel) {
    days_.push_back(draw.day);
    contests_.push_back(draw.contest.value_or(0));
    has_contest_.push_back(draw.contest.has_value());
    numbers_.push_back(draw.numbers);
    NumberMask mask;
    for (const uint8_t number : draw.numbers) mask.add(number);
    low_.push_back(mask.low);
    high_.push_back(mask.high);
  }
  of_wheel = {};
}

RowRange LoadedDraws::rows_of(int32_t wheel, std::optional<int32_t> since, std::optional<int32_t> until) const {
  const auto place = static_cast<size_t>(wheel);
  const auto begin = days_.begin() + static_cast<ptrdiff_t>(starts_[place - 1]);
  const auto end = days_.begin() + static_cast<ptrdiff_t>(starts_[place]);
  const auto first = since ? std::lower_bound(begin, end, *since) : begin;
  const auto last = until ? std::upper_bound(first, end, *until) : end;
  return {static_cast<size_t>(first - days_.begin()), static_cast<size_t>(last - days_.begin())};
}

std::optional<int32_t> LoadedDraws::contest(size_t row) const {
  return has_contest_[row] ? std::optional(contests_[row]) : std::nullopt;
}

}  // namespace vestara
