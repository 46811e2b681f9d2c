#include "vestara/archive/hit_search.h"

#include <gtest/gtest.h>

#include "tests/support/connectors.h"
#include "tests/support/values.h"
#include "vestara/archive/archive_text.h"
#include "vestara/archive/search_text.h"

namespace vestara {
namespace {

using automation::make;
using automation::Null;
using testing_support::day;
using testing_support::error_of;
using testing_support::is_refused;
using testing_support::ScriptedConnector;

class HitSearch : public testing::Test {
 protected:
  HitSearch() {
    scripted_->answers[counting_statement(question_)] = {{"id", "s2.numeriTrovati"}, {{1, 2}, {2, 3}}};
    scripted_->answers[dates_statement(question_)] = {{"dtEstr", "concorsoNumero"},
                                                      {{day(2026, 1, 2), 7}, {Null{}, Null{}}}};
  }

  SearchQuestion question_{.numbers = "5,12,33", .least_hits = 2, .selection = {WheelFilter::listed("BA"), {}, {}}};
  automation::Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
};

TEST_F(HitSearch, GivesCountsAndDates) {
  const Hits hits = find_hits(*scripted_, question_);
  EXPECT_EQ(hits.count.rows, 2);
  EXPECT_EQ(hits.count.combinations, (HitCounters{5, 4, 1, 0, 0}));
  ASSERT_EQ(hits.dates.size(), 2U);
  EXPECT_EQ(hits.dates[0].date, day(2026, 1, 2));
  EXPECT_EQ(hits.dates[0].contest, 7);
  EXPECT_FALSE(hits.dates[1].date);
  EXPECT_FALSE(hits.dates[1].contest);
}

TEST_F(HitSearch, ARefusedStatementIsAnErrorOfItsOwn) {
  for (const std::string& statement : {counting_statement(question_), dates_statement(question_)}) {
    scripted_->refused = {statement};
    EXPECT_TRUE(is_refused([&] { find_hits(*scripted_, question_); })) << statement;
  }
}

TEST_F(HitSearch, ARowWithSixHitsIsAnError) {
  scripted_->answers[counting_statement(question_)] = {{"id", "s2.numeriTrovati"}, {{1, 6}}};
  EXPECT_EQ(error_of([&] { find_hits(*scripted_, question_); }), 9);
}

TEST_F(HitSearch, CountsDraws) {
  scripted_->default_answer = {{"dtEstr"}, {{day(2026, 1, 2)}, {day(2026, 1, 9)}}};
  EXPECT_EQ(count_draws(*scripted_, {}), 2);
  scripted_->default_answer = {{"dtEstr"}, {}};
  EXPECT_EQ(count_draws(*scripted_, {}), 0);
  scripted_->refused = {draw_count_statement({})};
  EXPECT_TRUE(is_refused([&] { count_draws(*scripted_, {}); }));
}

}  // namespace
}  // namespace vestara
