#include "tests/support/study_oracle.h"

#include <algorithm>
#include <cmath>

#include "tests/support/big_number.h"

namespace testing_support::study {

using automation::Date;
using automation::Null;
using automation::Variant;
using Row = std::vector<Variant>;
using Places = std::vector<size_t>;

namespace {

constexpr size_t cities = 10;
constexpr size_t all_wheels = 11;

Variant whole(size_t count) { return static_cast<int32_t>(count); }
Variant date(int32_t day) { return Date::from_day(day); }

bool is_selected(const Draw& draw, const Selection& selection) {
  const bool wheel = std::ranges::count(selection.wheels, draw.wheel) == 1;
  const bool since = !selection.since || draw.day >= *selection.since;
  const bool until = !selection.until || draw.day <= *selection.until;
  return wheel && since && until;
}

Draws selected(const Draws& draws, const Selection& selection) {
  Draws result;
  for (const auto& draw : draws)
    if (is_selected(draw, selection)) result.push_back(draw);
  return result;
}

size_t hits_of(const Group& numbers, const Numbers& drawing) {
  size_t hits = 0;
  for (const int32_t number : drawing) hits += static_cast<size_t>(std::ranges::count(numbers, number));
  return hits;
}

/// "tutte" for the ten cities, "all" for the eleven, else the codes.
std::string name_of(const std::vector<size_t>& wheels) {
  if (wheels.size() == all_wheels) return "all";
  if (wheels.size() == cities && wheels.back() < cities) return "tutte";
  std::string name;
  for (const size_t wheel : wheels) name += (name.empty() ? "" : "+") + all_aliases()[wheel];
  return name;
}

Series one_series(const Draws& draws, const std::vector<size_t>& wheels) {
  std::map<int32_t, std::vector<Numbers>> by_day;
  for (const auto& draw : draws)
    if (std::ranges::count(wheels, draw.wheel) == 1) by_day[draw.day].push_back(draw.numbers);
  Series series{.wheel = name_of(wheels), .moments = {}};
  for (const auto& [day, drawings] : by_day) series.moments.push_back({day, drawings});
  return series;
}

/// Where at least `hits` of the numbers came out in one drawing.
Places places_of(const Series& series, const Group& numbers, size_t hits) {
  Places places;
  for (size_t i = 0; i < series.moments.size(); ++i) {
    const auto& drawings = series.moments[i].drawings;
    if (std::ranges::any_of(drawings, [&](const Numbers& drawing) { return hits_of(numbers, drawing) >= hits; }))
      places.push_back(i);
  }
  return places;
}

/// What chance gives over a series.
struct Expectation {
  long double sum = 0;
  long double variance = 0;
};

/// `favourable` of the C(90,5) drawings make the thing occur.
Expectation expectation_of(const Series& series, int64_t favourable) {
  const auto every = static_cast<uint64_t>(binomial(90, 5));
  const auto missing = every - static_cast<uint64_t>(favourable);
  std::map<size_t, Expectation> by_drawings;
  Expectation total;
  for (const auto& moment : series.moments) {
    const auto count = static_cast<int32_t>(moment.drawings.size());
    if (!by_drawings.contains(moment.drawings.size())) {
      const BigNumber cases = power(BigNumber(every), count);
      const BigNumber none = power(BigNumber(missing), count);
      const long double chance = ratio(cases - none, cases);
      by_drawings[moment.drawings.size()] = {chance, chance * ratio(none, cases)};
    }
    total.sum += by_drawings[moment.drawings.size()].sum;
    total.variance += by_drawings[moment.drawings.size()].variance;
  }
  return total;
}

/// Successive draws without an occurrence.
struct Run {
  size_t begin = 0;
  size_t length = 0;
};

/// The longest, and of equally long ones the earliest.
Run longest_run(const Places& places, size_t draws) {
  Run longest;
  size_t begin = 0;
  for (size_t i = 0; i <= places.size(); ++i) {
    const size_t end = i < places.size() ? places[i] : draws;
    if (end - begin > longest.length) longest = {begin, end - begin};
    begin = end + 1;
  }
  return longest;
}

size_t delay_of(const Places& places, size_t draws) { return places.empty() ? draws : draws - 1 - places.back(); }

Variant z_of(const Places& places, const Expectation& expected) {
  if (expected.variance == 0) return Null{};
  const long double times = static_cast<long double>(places.size());
  return static_cast<double>((times - expected.sum) / std::sqrt(expected.variance));
}

const std::vector<std::string> figure_columns{"draws", "times",  "expected",    "z",        "delay",
                                              "last",  "record", "record_from", "record_to"};

Row figures(const Series& series, const Places& places, const Expectation& expected) {
  const size_t draws = series.moments.size();
  const auto day_at = [&](size_t place) { return date(series.moments[place].day); };
  const Run record = longest_run(places, draws);
  return {whole(draws),
          whole(places.size()),
          static_cast<double>(expected.sum),
          z_of(places, expected),
          whole(delay_of(places, draws)),
          places.empty() ? Null{} : day_at(places.back()),
          whole(record.length),
          record.length == 0 ? Null{} : day_at(record.begin),
          record.length == 0 ? Null{} : day_at(record.begin + record.length - 1)};
}

template <class T>
std::vector<T> joined(std::vector<T> first, const std::vector<T>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

/// The next of the ascending groups of numbers below `limit`, in their order as numbers; False behind the last.
bool advance(Group& group, int32_t limit) {
  for (size_t i = group.size(); i-- > 0;) {
    const auto behind = static_cast<int32_t>(group.size() - 1 - i);
    if (group[i] + 1 + behind >= limit) continue;
    ++group[i];
    for (size_t j = i + 1; j < group.size(); ++j) group[j] = group[j - 1] + 1;
    return true;
  }
  return false;
}

Group first_group(size_t size, int32_t first) {
  Group group;
  for (size_t i = 0; i < size; ++i) group.push_back(first + static_cast<int32_t>(i));
  return group;
}

using Occurrences = std::map<Group, Places>;

void add_groups_of(Numbers drawing, size_t place, size_t size, Occurrences& found) {
  std::ranges::sort(drawing);
  Group chosen = first_group(size, 0);
  do {
    Group group;
    for (const int32_t i : chosen) group.push_back(drawing[static_cast<size_t>(i)]);
    Places& places = found[group];
    if (places.empty() || places.back() != place) places.push_back(place);
  } while (advance(chosen, 5));
}

/// The groups of one series that may be in an answer of `top` rows. Groups that never occurred have equal figures, so
/// no more than the first `top` of them can be.
Occurrences groups_of(const Series& series, size_t size, size_t top) {
  Occurrences found;
  for (size_t i = 0; i < series.moments.size(); ++i)
    for (const auto& drawing : series.moments[i].drawings) add_groups_of(drawing, i, size, found);
  if (size > 3) return found;
  Group group = first_group(size, 1);
  size_t missing = 0;
  do {
    if (found.try_emplace(group).second) ++missing;
  } while (missing < top && advance(group, 91));
  return found;
}

/// A row of Groups before it has its rank.
struct Ranked {
  double value = 0;  ///< of the column that was asked for
  size_t series = 0;
  Group group;
  Row figures;
};

bool comes_before(const Ranked& a, const Ranked& b) {
  if (a.value != b.value) return a.value > b.value;
  if (a.series != b.series) return a.series < b.series;
  return a.group < b.group;
}

double number_in(const Variant& cell) {
  const auto* count = cell.get_if<int32_t>();
  return count ? *count : cell.get_if<double>() ? *cell.get_if<double>() : 0;
}

std::vector<Ranked> ranked_groups(const std::vector<Series>& all, size_t size, const std::string& by, size_t top) {
  const auto column = static_cast<size_t>(std::ranges::find(figure_columns, by) - figure_columns.begin());
  std::vector<Ranked> rows;
  for (size_t i = 0; i < all.size(); ++i) {
    const auto count = static_cast<int32_t>(size);
    const Expectation expected = expectation_of(all[i], drawings_with(count, count));
    for (const auto& [group, places] : groups_of(all[i], size, top)) {
      Row row = figures(all[i], places, expected);
      const double value = number_in(row[column]);
      rows.push_back({value, i, group, std::move(row)});
    }
  }
  std::ranges::sort(rows, comes_before);
  if (rows.size() > top) rows.resize(top);
  return rows;
}

}  // namespace

Draws draws_in(const Archive& archive) {
  Draws draws;
  for (const auto& row : archive) {
    const auto wheel = static_cast<size_t>(std::ranges::find(all_aliases(), row.wheel) - all_aliases().begin());
    Draw draw{.day = row.date.day(), .contest = row.contest, .wheel = wheel, .numbers = {}};
    for (size_t i = 0; i < 5; ++i) draw.numbers.at(i) = row.numbers.at(i).value();
    draws.push_back(draw);
  }
  return draws;
}

std::vector<Series> series_of(const Draws& draws, const Selection& selection) {
  const Draws chosen = selected(draws, selection);
  std::vector<Series> result;
  if (selection.taken == Wheels::together)
    result.push_back(one_series(chosen, selection.wheels));
  else
    for (const size_t wheel : selection.wheels) result.push_back(one_series(chosen, {wheel}));
  std::erase_if(result, [](const Series& series) { return series.moments.empty(); });
  return result;
}

std::string listed(const Group& numbers) {
  std::string text;
  for (const int32_t number : numbers) text += (text.empty() ? "" : ",") + std::to_string(number);
  return text;
}

int64_t binomial(int64_t n, int64_t k) {
  if (k < 0 || k > n) return 0;
  int64_t result = 1;
  for (int64_t i = 1; i <= k; ++i) result = result * (n - k + i) / i;
  return result;
}

int64_t drawings_with(int32_t size, int32_t hits) {
  int64_t count = 0;
  for (int64_t i = hits; i <= 5; ++i) count += binomial(size, i) * binomial(90 - size, 5 - i);
  return count;
}

Table draws(const Draws& draws, const Selection& selection) {
  Table table{.columns = {"date", "contest", "wheel", "n1", "n2", "n3", "n4", "n5"}, .rows = {}};
  Draws chosen = selected(draws, selection);
  std::ranges::sort(chosen,
                    [](const Draw& a, const Draw& b) { return a.day != b.day ? a.day < b.day : a.wheel < b.wheel; });
  for (const auto& draw : chosen) {
    Row row{date(draw.day), draw.contest ? Variant(*draw.contest) : Variant(Null{}), all_aliases()[draw.wheel]};
    for (const int32_t number : draw.numbers) row.emplace_back(number);
    table.rows.push_back(row);
  }
  return table;
}

Table search(const Draws& draws, const Selection& selection, const Group& numbers, int32_t hits) {
  Table table{.columns = {"date", "contest", "wheel", "hits", "numbers", "drawn"}, .rows = {}};
  Draws chosen = selected(draws, selection);
  std::ranges::sort(chosen,
                    [](const Draw& a, const Draw& b) { return a.day != b.day ? a.day > b.day : a.wheel < b.wheel; });
  for (const auto& draw : chosen) {
    const Group drawn(draw.numbers.begin(), draw.numbers.end());
    Group found;
    for (const int32_t number : numbers)
      if (std::ranges::count(drawn, number) == 1) found.push_back(number);
    if (found.size() < static_cast<size_t>(hits)) continue;
    table.rows.push_back({date(draw.day), draw.contest ? Variant(*draw.contest) : Variant(Null{}),
                          all_aliases()[draw.wheel], whole(found.size()), listed(found), listed(drawn)});
  }
  return table;
}

Table numbers(const Draws& draws, const Selection& selection) {
  Table table{.columns = joined<std::string>({"wheel", "number"}, figure_columns), .rows = {}};
  for (const auto& series : series_of(draws, selection)) {
    const Expectation expected = expectation_of(series, drawings_with(1, 1));
    for (int32_t number = 1; number <= 90; ++number)
      table.rows.push_back(
          joined<Variant>({series.wheel, number}, figures(series, places_of(series, {number}, 1), expected)));
  }
  return table;
}

Table groups(const Draws& draws, const Selection& selection, size_t size, const std::string& by, size_t top) {
  Table table{.columns = joined<std::string>({"rank", "wheel", "numbers"}, figure_columns), .rows = {}};
  const auto all = series_of(draws, selection);
  size_t rank = 0;
  double value = 0;
  for (const auto& row : ranked_groups(all, size, by, top)) {
    if (table.rows.empty() || row.value != value) rank = table.rows.size() + 1;
    value = row.value;
    table.rows.push_back(joined<Variant>({whole(rank), all[row.series].wheel, listed(row.group)}, row.figures));
  }
  return table;
}

Table sets(const Draws& draws, const Selection& selection, const std::vector<NamedSet>& sets, int32_t hits) {
  Table table{.columns = joined<std::string>({"wheel", "set", "numbers"}, figure_columns), .rows = {}};
  for (const auto& series : series_of(draws, selection))
    for (const auto& set : sets) {
      const auto size = static_cast<int32_t>(set.numbers.size());
      const Places places = places_of(series, set.numbers, static_cast<size_t>(hits));
      const Expectation expected = expectation_of(series, drawings_with(size, hits));
      table.rows.push_back(
          joined<Variant>({series.wheel, set.name, listed(set.numbers)}, figures(series, places, expected)));
    }
  return table;
}

Table gaps(const Draws& draws, const Selection& selection, const Group& numbers, int32_t hits) {
  Table table{.columns = {"wheel", "from", "to", "draws", "days"}, .rows = {}};
  for (const auto& series : series_of(draws, selection)) {
    const Places places = places_of(series, numbers, static_cast<size_t>(hits));
    if (places.empty()) continue;
    const auto day_at = [&](size_t i) { return series.moments[places[i]].day; };
    const size_t newest = places.size() - 1;
    table.rows.push_back(
        {series.wheel, date(day_at(newest)), Null{}, whole(delay_of(places, series.moments.size())), Null{}});
    for (size_t i = newest; i > 0; --i)
      table.rows.push_back({series.wheel, date(day_at(i - 1)), date(day_at(i)), whole(places[i] - places[i - 1]),
                            day_at(i) - day_at(i - 1)});
  }
  return table;
}

}  // namespace testing_support::study
