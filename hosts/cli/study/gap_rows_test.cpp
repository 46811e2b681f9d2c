#include "hosts/cli/study/gap_rows.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "automation/date.h"
#include "hosts/cli/output/output_forms.h"
#include "tests/support/connectors.h"

namespace vestara::host {
namespace {

using automation::Date;
using automation::Null;
using automation::Variant;

/// One row for a draw: its day, then wheel, contest and numbers hit when it was one.
std::vector<Variant> hit(int32_t day, const char* wheel, Variant contest) {
  return {Date::from_day(day), Date::from_day(day), wheel, std::move(contest), int32_t{1}};
}
std::vector<Variant> miss(int32_t day) { return {Date::from_day(day), Null{}, Null{}, Null{}, Null{}}; }

GapList load(std::vector<std::vector<Variant>> rows, bool oldest_first = false) {
  auto connector = automation::make<testing_support::ScriptedConnector>();
  connector->default_answer = testing_support::Table{
      {"R1.dtEstr", "R2.dtEstr", "R2.ruota", "R2.concorsoNumero", "R2.numeriTrovati"}, std::move(rows)};
  return load_gaps(*connector, {.numbers = "53", .order = date_order(oldest_first)});
}

std::string facts_of(const GapList& gaps) {
  std::string text;
  for (const Fact& fact : gap_facts(gaps)) text.append(cell_text(fact.value)).append("|");
  return text;
}

TEST(GapRows, HaveTheirSidesWhateverTheDirection) {
  const auto newest_first = std::vector{miss(50), hit(40, "VE", int16_t{9}), miss(30), hit(20, "RM", Null{}), miss(10)};
  for (const bool oldest_first : {false, true}) {
    auto walked = newest_first;
    if (oldest_first) std::reverse(walked.begin(), walked.end());
    const GapList gaps = load(walked, oldest_first);
    auto rows = gap_rows(gaps);
    ASSERT_EQ(rows.size(), 3U);
    if (oldest_first) std::reverse(rows.begin(), rows.end());
    EXPECT_FALSE(rows[0].to);
    EXPECT_EQ(rows[0].from, 40);
    EXPECT_EQ(rows[0].draws, 1);
    EXPECT_EQ(rows[1].from, 20);
    EXPECT_EQ(rows[1].to, 40);
    EXPECT_TRUE(rows[1].is_closed());
    EXPECT_EQ(rows[2].to, 20);
    EXPECT_FALSE(rows[2].from);
    EXPECT_EQ(rows[oldest_first ? 0 : 2].wheel, "") << "the trailing gap ends at no hit";
    EXPECT_EQ(rows[1].wheel, oldest_first ? "VE" : "RM");
    EXPECT_EQ(rows[1].contest, oldest_first ? std::optional(9) : std::nullopt);
    EXPECT_EQ(facts_of(gaps), "3|1|1|1|1|20|20|20|");
  }
}

TEST(GapRows, FactsAreAbsentWhereNothingBearsThem) {
  struct Row {
    const char* why;
    std::vector<std::vector<Variant>> rows;
    bool oldest_first;
    const char* facts;
  };
  for (const Row& row : {Row{"nothing loaded", {}, false, "0||||||||"},
                         {"no hit", {miss(2), miss(1)}, false, "1|2|2|2|2||||"},
                         {"one hit, the newest draw", {hit(2, "VE", Null{}), miss(1)}, false, "2|0|0.5|0|1||||"},
                         {"the walk ends on a hit", {miss(1), hit(2, "VE", Null{})}, true, "1|0|1|1|1||||"},
                         {"a third",
                          {miss(4), hit(3, "VE", Null{}), hit(2, "VE", Null{}), hit(1, "VE", Null{})},
                          false,
                          "3|1|0.33333334|0|1|1|1|1|"}}) {
    EXPECT_EQ(facts_of(load(row.rows, row.oldest_first)), row.facts) << row.why;
  }
}

}  // namespace
}  // namespace vestara::host
