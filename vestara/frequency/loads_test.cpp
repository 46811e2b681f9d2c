#include "vestara/frequency/loads.h"

#include <gtest/gtest.h>

#include "tests/support/connectors.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"

// The loads as a C++ program calls them: a whole answer or an error. What the classes make of them has tests of its
// own.

namespace vestara {
namespace {

using automation::make;
using automation::Null;
using testing_support::day;
using testing_support::error_of;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::is_refused;
using testing_support::ScriptedConnector;
using testing_support::Table;

const Table draws{{"dtEstr", "ruota", "estr1", "estr2", "estr3", "estr4", "estr5"},
                  {{day(2026, 1, 2), "FI", 1, 2, 3, 4, 5}, {day(2026, 1, 1), "FI", 9, 2, 3, 4, 5}}};
const Table pairs{{"ruota", "estrazione", "num", "dtEstr"}, {{"RN", 90, 3, 0}, {"BA", 1, 1, 0}}};

class Loads : public testing::Test {
 protected:
  /// Answers everything with one table.
  testing_support::ConnectorRef answering(const Table& answer) {
    auto scripted = make<ScriptedConnector>();
    scripted->default_answer = answer;
    return scripted;
  }
  testing_support::ConnectorRef failing(const Table& answer, int32_t statement, Failure how) {
    return make<FailingConnector>(answering(answer), FailurePlan{.fail_statement = statement, .how = how});
  }

  testing_support::CanonicalWheels wheels_;
};

TEST_F(Loads, GiveGridAndRanking) {
  const Delays delays = load_delays(*answering(draws), {});
  EXPECT_EQ(delays.grid.at(3, 9), 1);
  EXPECT_EQ(delays.grid.at(3, 1), 0);
  EXPECT_EQ(delays.grid.at(1, 1), -1);
  EXPECT_EQ(delays.ranking.at(0).number, 9);

  const Counts counts = load_counts(*answering(pairs), {});
  EXPECT_EQ(counts.grid.at(11, 90), 3);
  EXPECT_EQ(counts.ranking.at(1).value, 1);

  // The two rows of the same answer are the draws as well.
  const Averages averages = load_averages(*answering(pairs), {});
  EXPECT_EQ(averages.grid.at(11, 90), 150.0F);
  EXPECT_EQ(averages.times.at(11, 90), 3);
  EXPECT_EQ(averages.ranking.at(1).value, 50.0F);

  const auto lines = load_analytic_lines(*answering(draws), day(2026, 1, 3));
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1].numbers, "9");
  EXPECT_EQ(lines[1].delay, 1);
}

TEST_F(Loads, ARefusedStatementIsAnErrorOfItsOwn) {
  for (const int32_t statement : {1, 2}) {
    EXPECT_TRUE(is_refused([&] { load_averages(*failing(pairs, statement, Failure::refuses), {}); })) << statement;
    EXPECT_EQ(error_of([&] { load_averages(*failing(pairs, statement, Failure::raises_error), {}); }), 3001);
  }
  EXPECT_TRUE(is_refused([&] { load_delays(*failing(draws, 1, Failure::refuses), {}); }));
  EXPECT_TRUE(is_refused([&] { load_counts(*failing(pairs, 1, Failure::refuses), {}); }));
  EXPECT_TRUE(is_refused([&] { load_analytic_lines(*failing(draws, 1, Failure::refuses), day(2026, 1, 3)); }));
}

TEST_F(Loads, AnErrorInARowIsTheErrorOfTheLoad) {
  Table odd = draws;
  odd.rows.push_back({day(2025, 1, 1), "XX", 1, 2, 3, 4, 5});
  EXPECT_EQ(error_of([&] { load_delays(*answering(odd), {}); }), 5);
  odd.rows.back() = {day(2025, 1, 1), "FI", 1, 2, 3, 4, 91};
  EXPECT_EQ(error_of([&] { load_delays(*answering(odd), {}); }), 9);
  odd.rows.back() = {day(2025, 1, 1), Null{}, 1, 2, 3, 4, 5};
  EXPECT_EQ(error_of([&] { load_delays(*answering(odd), {}); }), 94);
}

TEST_F(Loads, WhatAFailedLoadWroteStaysWhereItIsWanted) {
  Table odd = draws;
  odd.rows.push_back({day(2025, 1, 1), "XX", 1, 2, 3, 4, 5});
  Delays delays;
  EXPECT_EQ(error_of([&] { load_delays(*answering(odd), {}, PeriodBinding::every_wheel, delays); }), 5);
  EXPECT_EQ(delays.grid.at(3, 9), 1);
  EXPECT_FALSE(delays.ranking.is_built());
  EXPECT_FALSE(load_delays(*failing(draws, 1, Failure::refuses), {}, PeriodBinding::every_wheel, delays));
  EXPECT_EQ(delays.grid.at(3, 9), -1) << "emptied before the statement runs";
}

}  // namespace
}  // namespace vestara
