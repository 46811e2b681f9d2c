#include <gtest/gtest.h>

#include <algorithm>

#include "dorvane/connector.h"
#include "tests/conformance/back_end.h"
#include "tests/support/gap_reader.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"

namespace conformance {
namespace {

using automation::Date;
using automation::Missing;
using automation::Null;
using automation::Variant;
using testing_support::Archive;
using testing_support::day;
using testing_support::describe;
using testing_support::figures_of;
using testing_support::GapFigures;
using testing_support::GapItem;
using testing_support::GapQuery;
using testing_support::items_of;
using Items = std::vector<GapItem>;

class GapsTest : public BackEnd {
 protected:
  GapsTest() { gaps_.ActiveConnection(connector_); }

  testing_support::LogCapture log_;
  vestara::cDistanze gaps_;
};

INSTANTIATE_TEST_SUITE_P(Engines, GapsTest, engines(), engine_name);

template <class Piece>
std::string joined(const std::vector<Piece>& pieces) {
  std::string text;
  for (const auto& piece : pieces) {
    if constexpr (std::is_same_v<Piece, std::string>)
      text += "," + piece;
    else
      text += "," + std::to_string(piece);
  }
  return text.empty() ? text : text.substr(1);
}

Variant bound(const std::optional<Date>& date) { return date ? Variant(*date) : Variant(Missing{}); }

void load(vestara::cDistanze& gaps, const GapQuery& query) {
  bool all_draws = query.all_draws;
  gaps.LoadDistanze(joined(query.numbers), static_cast<int16_t>(query.least_hits), joined(query.wheels),
                    bound(query.from), bound(query.to), all_draws, query.all_wheels, query.ascending);
  EXPECT_EQ(all_draws, query.all_draws || query.numbers.empty());
}

/// Several hits of one date and wheel have no order of their own: their values are put into one.
Items without_ties(Items items) {
  const auto value = [](const GapItem& item) { return describe(item.contest) + " " + describe(item.hits); };
  for (auto first = items.begin(); first != items.end();) {
    const auto ends = [&](const GapItem& item) { return item.days != Variant(0) || item.wheel != first->wheel; };
    const auto last = std::find_if(first + 1, items.end(), ends);
    std::vector<std::pair<std::string, const GapItem*>> order;
    const Items run(first, last);
    for (const auto& item : run) order.emplace_back(value(item), &item);
    std::ranges::sort(order, {}, &decltype(order)::value_type::first);
    for (const auto& [key, item] : order) {
      first->contest = item->contest;
      (first++)->hits = item->hits;
    }
  }
  return items;
}

GapQuery random_query(testing_support::Random& random, const Archive& archive, int32_t highest_number) {
  GapQuery query;
  const size_t numbers = random.pick<size_t>({0, 1, 1, 2, 2, 3, 3, 5});
  for (size_t i = 0; i < numbers; ++i)
    query.numbers.push_back(static_cast<int32_t>(random.below(static_cast<size_t>(highest_number) + 2)));
  query.least_hits = random.pick<int32_t>({0, 1, 1, 1, 2, 2, 3, -1, 6});
  const size_t wheels = random.below(4);
  const auto& aliases = testing_support::all_aliases();
  for (size_t i = 0; i < wheels; ++i)
    query.wheels.push_back(archive.empty() || random.one_in(4) ? random.pick(aliases) : random.pick(archive).wheel);
  const auto date = [&] {
    return Date::from_day(random.pick(archive).date.day() + static_cast<int32_t>(random.below(3)) - 1);
  };
  if (!archive.empty() && random.one_in(4)) query.from = date();
  if (!archive.empty() && random.one_in(4)) query.to = date();
  query.all_draws = random.one_in(3);
  query.all_wheels = random.one_in(2);
  return query;
}

TEST_P(GapsTest, AThousandArchivesAgreeWithTheOracle) {
  GapFigures figures;
  size_t items_seen = 0;
  for (uint64_t seed = 1; seed <= seeds() && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    testing_support::Random random(seed);
    const auto shape = testing_support::random_shape(random);
    const Archive archive = testing_support::random_archive(random, shape);
    store(archive);
    GapQuery query = random_query(random, archive, shape.highest_number);
    for (const bool ascending : {false, true}) {
      query.ascending = ascending;
      load(gaps_, query);
      if (query.numbers.empty() && !takes_empty_lists()) continue;
      const Items expected = testing_support::gaps_of(archive, query);
      ASSERT_EQ(without_ties(items_of(gaps_)), without_ties(expected));
      if (!expected.empty()) figures = testing_support::figures_of(expected);
      ASSERT_EQ(figures_of(gaps_), figures);
      ASSERT_EQ(gaps_.ISSortASC(), ascending);
      items_seen += expected.size();
    }
  }
  EXPECT_GT(items_seen, 15000 * seeds() / 1000) << "the archives hold something to compare";
  EXPECT_EQ(log_.bytes(), "");
}

/// Draws of January 2026: two contests on the 9th, a row of zeros, one of Null, a wheel and a contest unknown.
class GapCasesTest : public GapsTest {
 protected:
  GapCasesTest() {
    store({{day(2026, 1, 2), 1, "BA", {5, 12, 33, 40, 41}},
           {day(2026, 1, 2), 1, "NA", {1, 2, 3, 4, 6}},
           {day(2026, 1, 6), 2, "BA", {0, 0, 0, 0, 0}},
           {day(2026, 1, 9), 3, "NA", {5, 6, 7, 8, 12}},
           {day(2026, 1, 9), 3, "BA", {9, 12, 5, 10, 11}},
           {day(2026, 1, 9), 4, "VE", {60, 61, 62, 63, 64}},
           {day(2026, 1, 13), {}, "BA", {5, 5, {}, {}, {}}}});
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, GapCasesTest, engines(), engine_name);

TEST_P(GapCasesTest, Cases) {
  const auto trailing = [](int32_t draws, const Variant& earlier, const Variant& later) {
    return GapItem{draws, earlier, later, "##", "##", "##", "##"};
  };
  const char* open_date = "########";
  const struct {
    const char *what, *numbers;
    int16_t least_hits;
    const char* wheels;
    Variant from, to;
    bool ascending;
    Items items;
  } rows[] = {{"two contests on a date: each draw meets every hit of the date, wheel by wheel",
               "5,12",
               2,
               "",
               Missing{},
               day(2026, 1, 9),
               true,
               {{0, open_date, day(2026, 1, 2), "##", "BA", 2, 1},
                {1, "02/01/2026", day(2026, 1, 9), 7, "BA", 2, 3},
                {0, "09/01/2026", day(2026, 1, 9), 0, "BA", 2, 3},
                {0, "09/01/2026", day(2026, 1, 9), 0, "NA", 2, 3},
                {0, "09/01/2026", day(2026, 1, 9), 0, "NA", 2, 3}}},
              {"a row that repeats a number hits twice; its contest is unknown",
               "5",
               2,
               "BA",
               Missing{},
               Missing{},
               false,
               {{0, day(2026, 1, 13), open_date, "##", "BA", 2, Null{}}, trailing(4, open_date, "13/01/2026")}},
              {"draws count on every wheel",
               "60",
               1,
               "VE",
               Missing{},
               Missing{},
               false,
               {{1, day(2026, 1, 9), open_date, "##", "VE", 1, 4},
                {0, day(2026, 1, 9), "09/01/2026", 0, "VE", 1, 4},
                trailing(2, open_date, "09/01/2026")}},
              {"0 is a number that rows may hold",
               "0",
               5,
               "BA",
               Missing{},
               Missing{},
               true,
               {{1, open_date, day(2026, 1, 6), "##", "BA", 5, 2}, trailing(3, "06/01/2026", open_date)}},
              {"no hits", "90", 1, "", Missing{}, Missing{}, false, {trailing(5, open_date, open_date)}},
              {"no numbers", "", 0, "BA", Missing{}, Missing{}, true, {trailing(5, open_date, open_date)}},
              {"another wheel's hits", "60", 1, "ba", Missing{}, Missing{}, false, {trailing(5, open_date, open_date)}},
              {"a period without draws", "5", 1, "", day(2026, 2, 1), Missing{}, false, {}},
              {"no date", "5", 1, "", "x", Missing{}, false, {}},
              {"malformed numbers", "5,x,", 1, "", Missing{}, Missing{}, false, {}}};
  GapFigures figures;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    gaps_.LoadDistanze(row.numbers, row.least_hits, row.wheels, row.from, row.to, false, false, row.ascending);
    if (*row.numbers == '\0' && !takes_empty_lists()) {
      EXPECT_EQ(gaps_.ItemCount(), 0);
      continue;
    }
    EXPECT_EQ(items_of(gaps_), row.items);
    if (!row.items.empty()) figures = testing_support::figures_of(row.items);
    EXPECT_EQ(figures_of(gaps_), figures);
  }
  EXPECT_EQ(log_.bytes(), "") << "what the database refuses is no entry";
}

TEST_P(GapCasesTest, CombinationTypesUpToOneAreTheSame) {
  const auto items_for = [&](int16_t least_hits) {
    gaps_.LoadDistanze("5,6,12", least_hits);
    return items_of(gaps_);
  };
  EXPECT_EQ(items_for(0), items_for(1));
  EXPECT_EQ(items_for(-1), items_for(1));
  EXPECT_NE(items_for(2), items_for(1));
}

}  // namespace
}  // namespace conformance
