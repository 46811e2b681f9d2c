#include "tests/support/delay_oracle.h"

#include <algorithm>
#include <functional>

#include "automation/coercion.h"
#include "automation/text.h"

namespace testing_support {

using automation::Date;
using automation::Variant;

namespace {

constexpr size_t every_cell = 990;

Truth both(Truth a, Truth b) {
  if (a == false || b == false) return false;
  return a && b ? Truth(true) : Truth();
}

Truth either(Truth a, Truth b) {
  if (a == true || b == true) return true;
  return a && b ? Truth(false) : Truth();
}

/// Whether a day keeps a bound; what is no date cannot be compared with.
template <class Compare>
Truth keeps(Date day, const Variant& bound, Compare compare) {
  if (bound.is_missing() || bound.is_null()) return true;
  const auto date = automation::date_in(bound);
  return date ? Truth(compare(day.day(), date->day())) : Truth();
}

std::vector<std::string> wheels_in(const std::string& text) {
  if (text.find_first_not_of(' ') == std::string::npos) return {};
  std::vector<std::string> wheels;
  for (const auto piece : automation::split(text, ',')) wheels.emplace_back(piece);
  return wheels;
}

/// A number as the walk meets it, and how many draws of its wheel are newer.
struct Met {
  int32_t wheel, number, delay;
  bool same_cell(const Met& other) const { return wheel == other.wheel && number == other.number; }
};

/// The first of every cell, in the order they are met.
struct Walk {
  std::vector<Met> firsts;
  int32_t error = 0;
  size_t rows = 0;
};

Walk walk(const Archive& draws) {
  Walk result;
  for (auto row = draws.begin(); row != draws.end() && result.firsts.size() < every_cell; ++row) {
    ++result.rows;
    const auto newer = std::count_if(draws.begin(), row, [&](const auto& other) { return other.wheel == row->wheel; });
    for (const auto& number : row->numbers) {
      result.error = error_in(row->wheel, number);
      if (result.error != 0) return result;
      const Met met{enumerator_of(row->wheel), *number, static_cast<int32_t>(newer)};
      if (std::ranges::none_of(result.firsts, [&](const Met& m) { return m.same_cell(met); }))
        result.firsts.push_back(met);
    }
  }
  return result;
}

std::vector<std::tuple<int32_t, int32_t, int32_t>> maxima(const std::vector<Met>& firsts) {
  std::vector<std::tuple<int32_t, int32_t, int32_t>> ranking;
  int32_t largest = 0;
  for (const auto& [wheel, number, delay] : firsts) {
    if (delay > largest) ranking.insert(ranking.begin(), {number, wheel, delay});
    largest = std::max(largest, delay);
  }
  const int32_t filler = ranking.size() < 10 ? -1 : 0;
  ranking.resize(90, {filler, filler, filler});
  return ranking;
}

}  // namespace

Truth is_selected(const ArchiveRow& row, const DrawQuery& query, Truth first) {
  Truth truth = both(first, keeps(row.date, query.from, std::greater_equal<>()));
  truth = both(truth, keeps(row.date, query.to, std::less_equal<>()));
  const auto wheels = wheels_in(query.wheels);
  for (size_t i = 0; i < wheels.size(); ++i) {
    const Truth on_wheel = row.wheel == wheels[i];
    truth = i == 0 ? both(truth, on_wheel) : either(truth, on_wheel);
  }
  return truth;
}

Truth is_complete(const ArchiveRow& row) {
  Truth truth = true;
  for (const auto& number : row.numbers) truth = both(truth, number ? Truth(*number > 0) : Truth());
  return truth;
}

int32_t enumerator_of(const std::string& alias) {
  const auto& aliases = all_aliases();
  const auto found = std::ranges::find(aliases, alias);
  return found == aliases.end() ? 0 : static_cast<int32_t>(found - aliases.begin()) + 1;
}

int32_t error_in(const std::string& wheel, const std::optional<int32_t>& number) {
  if (enumerator_of(wheel) == 0) return 5;
  if (!number) return 94;
  return *number < 1 || *number > 90 ? 9 : 0;
}

Figures<int32_t> delays_of(const Archive& archive, const DrawQuery& query) {
  Archive draws;
  for (const auto& row : archive)
    if (is_selected(row, query, is_complete(row)) == true) draws.push_back(row);
  std::ranges::stable_sort(draws, [](const auto& a, const auto& b) { return a.date > b.date; });
  const Walk met = walk(draws);
  Figures<int32_t> result{.cells = std::vector<int32_t>(every_cell, -1), .error = met.error, .rows = met.rows};
  for (const auto& [wheel, number, delay] : met.firsts)
    result.cells[static_cast<size_t>((wheel - 1) * 90 + number - 1)] = delay;
  if (result.error == 0) result.ranking = maxima(met.firsts);
  return result;
}

Archive odd_archive(Random& random) {
  ArchiveShape shape = random_shape(random);
  if (random.one_in(4)) shape.wheels = {"BA", "XX", "RN"};
  if (random.one_in(30)) shape = {.dates = 180, .days_apart = 3, .missing_wheel = 20, .zero_row = 50};
  Archive archive = random_archive(random, shape);
  if (archive.empty() || !random.one_in(3)) return archive;
  for (size_t damaged = random.below(3); damaged > 0; --damaged)
    archive[random.below(archive.size())].numbers[random.below(5)] = random.one_in(3) ? 91 : 0;
  return archive;
}

DrawQuery random_draw_query(Random& random, const Archive& archive) {
  const auto bound = [&]() -> Variant {
    const Date day = archive.empty() ? Date::from_day(36500) : archive[random.below(archive.size())].date;
    switch (random.below(8)) {
      case 0:
        return automation::Null{};
      case 1:
        return "30/02/2000";
      case 2:
        return day;
      case 3:
        return Date::from_serial(day.serial() + 0.75);
      case 4:
        return automation::date_to_text(Date::from_day(day.day() + static_cast<int32_t>(random.below(5)) - 2));
      default:
        return automation::Missing{};
    }
  };
  DrawQuery query{.from = bound(), .to = bound()};
  for (size_t wheels = random.pick<size_t>({0, 1, 1, 2, 2, 3, 4}); wheels > 0; --wheels) {
    const std::string& alias = random.pick(all_aliases());
    query.wheels += query.wheels.empty() ? "" : ",";
    query.wheels += random.one_in(8) ? random.pick<std::string>({"XX", " BA", "", "ba"}) : alias;
  }
  return query;
}

}  // namespace testing_support
