#include "tests/study/random_question.h"

#include <algorithm>

#include "automation/text.h"
#include "tests/study/random_history.h"
#include "tests/support/study_fairness_oracle.h"

namespace study_test {

using automation::Date;
using automation::Variant;
using testing_support::all_aliases;
using testing_support::Random;
using namespace testing_support::study;

namespace {

using Given = std::map<std::string, Variant>;

// Wheels.

const std::vector<size_t> eleven{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
const std::vector<size_t> ten{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};

std::string in_any_case(Random& random, std::string text) {
  if (random.one_in(2)) return text;
  for (char& c : text)
    if (random.one_in(2)) c = static_cast<char>(c >= 'a' ? c - 'a' + 'A' : c - 'A' + 'a');
  return text;
}

std::string blanks(Random& random) { return random.one_in(5) ? std::string(1 + random.below(2), ' ') : ""; }

/// The codes, in any order, with blanks around them.
std::string codes_of(Random& random, std::vector<size_t> wheels) {
  shuffle(random, wheels);
  std::string text;
  for (const size_t wheel : wheels)
    text += (text.empty() ? "" : ",") + blanks(random) + in_any_case(random, all_aliases()[wheel]) + blanks(random);
  return text;
}

std::vector<size_t> random_wheels(Random& random) {
  if (random.one_in(4)) return eleven;
  if (random.one_in(6)) return ten;
  std::vector<size_t> wheels = eleven;
  shuffle(random, wheels);
  wheels.resize(random.pick<size_t>({1, 1, 2, 3, 9, 10}));
  std::ranges::sort(wheels);
  return wheels;
}

/// Nothing is an argument left out.
std::optional<Variant> wheels_argument(Random& random, const std::vector<size_t>& wheels) {
  if (wheels == eleven && random.one_in(3)) return std::nullopt;
  if (wheels == eleven && random.one_in(2)) return in_any_case(random, random.pick<std::string>({"all", ""}));
  if (wheels == ten && !random.one_in(4)) return in_any_case(random, random.pick<std::string>({"cities", "tutte"}));
  return codes_of(random, wheels);
}

// Dates.

std::optional<int32_t> random_bound(Random& random, const Draws& draws) {
  if (draws.empty() || !random.one_in(3)) return std::nullopt;
  return random.pick(draws).day + random.pick<int32_t>({0, 0, -1, 1, -30, 30, -4000, 4000});
}

Variant date_argument(Random& random, int32_t day) {
  const Date date = Date::from_day(day);
  return random.pick<Variant>({date, automation::date_to_text(date), automation::iso_day(date)});
}

Selection random_selection(Random& random, const Draws& draws, Given& given) {
  Selection selection{.wheels = random_wheels(random)};
  selection.since = random_bound(random, draws);
  selection.until = random_bound(random, draws);
  if (selection.since && selection.until && *selection.since > *selection.until)
    std::swap(selection.since, selection.until);
  if (const auto wheels = wheels_argument(random, selection.wheels)) given["Wheels"] = *wheels;
  if (selection.since) given["Since"] = date_argument(random, *selection.since);
  if (selection.until) given["Until"] = date_argument(random, *selection.until);
  return selection;
}

Selection selection_taken(Random& random, const Draws& draws, Given& given) {
  Selection selection = random_selection(random, draws, given);
  if (random.one_in(2)) selection.taken = Wheels::together;
  if (selection.taken == Wheels::together || random.one_in(2)) given["Together"] = selection.taken == Wheels::together;
  return selection;
}

// Numbers.

/// Ascending; half of the time some that came out in one drawing.
Group random_group(Random& random, const Draws& draws, size_t size) {
  std::vector<int32_t> pool = every_number();
  shuffle(random, pool);
  if (!draws.empty() && random.one_in(2)) {
    const auto& drawn = random.pick(draws).numbers;
    std::ranges::stable_partition(pool, [&](int32_t number) { return std::ranges::count(drawn, number) == 1; });
  }
  Group group(pool.begin(), pool.begin() + static_cast<std::ptrdiff_t>(size));
  std::ranges::sort(group);
  return group;
}

/// Written in one of the ways that are understood; successive numbers also as a range.
std::string written(Random& random, Group numbers) {
  const bool successive = numbers.back() - numbers.front() + 1 == static_cast<int32_t>(numbers.size());
  if (numbers.size() > 1 && successive && random.one_in(2))
    return std::to_string(numbers.front()) + ".." + std::to_string(numbers.back());
  if (random.one_in(2)) shuffle(random, numbers);
  const std::string separator = random.pick<std::string>({",", ",", "-", ".", " "});
  std::string text;
  for (const int32_t number : numbers) text += (text.empty() ? "" : separator) + std::to_string(number);
  return text;
}

Group random_range(Random& random, int32_t size) {
  Group numbers;
  const auto first = static_cast<int32_t>(1 + random.below(static_cast<size_t>(91 - size)));
  for (int32_t i = 0; i < size; ++i) numbers.push_back(first + i);
  return numbers;
}

Group random_numbers(Random& random, const Draws& draws) {
  const auto size = random.pick<size_t>({1, 1, 2, 2, 3, 4, 5, 8, 16, 86, 90});
  return random.one_in(5) ? random_range(random, static_cast<int32_t>(size)) : random_group(random, draws, size);
}

Variant numbers_argument(Random& random, const Group& numbers) {
  if (numbers.size() == 1 && random.one_in(3)) return numbers[0];
  return written(random, numbers);
}

int32_t up_to(Random& random, size_t most) { return static_cast<int32_t>(1 + random.below(most)); }

// Members.

Answered ask_draws(Random& random, const Draws& all) {
  Given given;
  const Selection selection = random_selection(random, all, given);
  return {{"Draws", given}, draws(all, selection)};
}

Answered ask_search(Random& random, const Draws& all) {
  Given given;
  const Selection selection = random_selection(random, all, given);
  const Group wanted = random_numbers(random, all);
  int32_t hits = 1;
  if (random.one_in(2)) given["Hits"] = hits = up_to(random, std::min<size_t>(wanted.size(), 5));
  given["Numbers"] = numbers_argument(random, wanted);
  return {{"Search", given}, search(all, selection, wanted, hits)};
}

Answered ask_numbers(Random& random, const Draws& all) {
  Given given;
  const Selection selection = selection_taken(random, all, given);
  return {{"Numbers", given}, numbers(all, selection)};
}

Answered ask_groups(Random& random, const Draws& all) {
  Given given;
  const Selection selection = selection_taken(random, all, given);
  const auto size = random.pick<size_t>({2, 2, 3, 4, 5});
  std::string by = "delay";
  int32_t top = 100;
  if (!random.one_in(4)) given["By"] = by = random.pick<std::string>({"delay", "times", "record", "z"});
  if (!random.one_in(3)) given["Top"] = top = random.pick<int32_t>({1, 2, 5, 20, 300, 10000});
  if (top == 10000 && size == 3) given["Top"] = top = 500;
  given["Size"] = static_cast<int32_t>(size);
  return {{"Groups", given}, groups(all, selection, size, by, static_cast<size_t>(top))};
}

std::vector<NamedSet> random_sets(Random& random, const Draws& all) {
  std::vector<NamedSet> result;
  const size_t count = 1 + random.below(4);
  for (size_t i = 0; i < count; ++i) {
    const Group group = random_numbers(random, all);
    result.push_back({listed(group), group});
  }
  return result;
}

Answered ask_sets(Random& random, const Draws& all) {
  Given given;
  const Selection selection = selection_taken(random, all, given);
  std::string text = random.pick(families());
  std::vector<NamedSet> chosen = family(text);
  if (random.one_in(2)) {
    chosen = random_sets(random, all);
    text.clear();
    for (const auto& set : chosen) text += (text.empty() ? "" : ";") + written(random, set.numbers);
  }
  size_t most = 5;
  for (const auto& set : chosen) most = std::min(most, set.numbers.size());
  int32_t hits = 1;
  if (!random.one_in(3)) given["Hits"] = hits = up_to(random, most);
  given["Sets"] = text;
  return {{"Sets", given}, sets(all, selection, chosen, hits)};
}

Answered ask_gaps(Random& random, const Draws& all) {
  Given given;
  const Selection selection = selection_taken(random, all, given);
  const Group wanted = random_numbers(random, all);
  auto hits = static_cast<int32_t>(std::min<size_t>(wanted.size(), 5));
  if (random.one_in(2)) given["Hits"] = hits = up_to(random, static_cast<size_t>(hits));
  given["Numbers"] = numbers_argument(random, wanted);
  return {{"Gaps", given}, gaps(all, selection, wanted, hits)};
}

Answered ask_fairness(Random& random, const Draws& all) {
  Given given;
  const Selection selection = random_selection(random, all, given);
  return {{"Fairness", given}, fairness(all, selection)};
}

Answered ask_odds(Random& random, const Draws&) {
  Given given;
  const int32_t count = random.one_in(3) ? up_to(random, 90) : up_to(random, 10);
  int32_t wheels = 1;
  if (random.one_in(3)) given["Wheels"] = wheels = up_to(random, 11);
  if (wheels == 1 && random.one_in(2)) {
    const auto codes = random_wheels(random);
    wheels = static_cast<int32_t>(codes.size());
    given["Wheels"] = wheels_argument(random, codes).value_or("all");
  }
  given["Count"] = count;
  return {{"Odds", given}, odds(count, wheels)};
}

const std::map<std::string, Answered (*)(Random&, const Draws&)> makers{
    {"Draws", ask_draws}, {"Search", ask_search}, {"Numbers", ask_numbers},   {"Groups", ask_groups},
    {"Sets", ask_sets},   {"Gaps", ask_gaps},     {"Fairness", ask_fairness}, {"Odds", ask_odds}};

}  // namespace

Answered random_question(Random& random, const std::string& member, const Draws& all) {
  Answered result = makers.at(member)(random, all);
  result.question.positional = random.below(members().at(member).size() + 1);
  return result;
}

}  // namespace study_test
