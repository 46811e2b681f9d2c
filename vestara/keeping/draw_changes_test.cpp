#include "vestara/keeping/draw_changes.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "automation/yield.h"
#include "tests/support/connectors.h"
#include "tests/support/values.h"

namespace vestara {
namespace {

using automation::make;
using testing_support::day;
using testing_support::FailingConnector;
using testing_support::FailurePlan;
using testing_support::is_refused;
using Calls = std::vector<std::string>;
using Rows = std::vector<DrawRow>;

constexpr auto one_by_one = DatabaseType::one_row_per_insert;
constexpr auto many = DatabaseType::many_rows_per_insert;
const std::string emptied = "ExecuteSql DELETE FROM storico";
const std::string insert =
    "ExecuteSql INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES";

DrawRow row(int16_t contest, int8_t wheel) {
  return {.day = day(2026, 1, 2).day(), .contest = contest, .wheel = wheel, .numbers = {90, 2, 3, 4, 5}};
}
Rows rows(size_t count) {
  Rows result;
  for (size_t i = 0; i < count; ++i) result.push_back(row(static_cast<int16_t>(i), 1));
  return result;
}

class DrawChanges : public testing::Test {
 protected:
  ~DrawChanges() override { automation::set_yield_hook({}); }
  /// The progress calls, "stored/rows".
  StoredProgress progress() {
    return [this](int32_t stored, int32_t count) {
      told_.push_back(std::to_string(stored) + "/" + std::to_string(count));
    };
  }

  automation::Ref<testing_support::RecordingConnector> recorder_ =
      make<testing_support::RecordingConnector>(make<testing_support::ScriptedConnector>());
  Calls told_;
};

TEST_F(DrawChanges, RowsGoInStatementsAsTheDatabaseTakesThem) {
  const Rows two{row(7, 1), row(8, 11)};
  insert_draws(*recorder_, many, two, Remainder::written, progress());
  EXPECT_EQ(recorder_->take(), Calls{insert + "(7,'2026-01-02','BA',90,2,3,4,5),(8,'2026-01-02','RN',90,2,3,4,5)"});
  EXPECT_EQ(std::exchange(told_, {}), Calls{"2/2"});
  insert_draws(*recorder_, one_by_one, two, Remainder::written, progress());
  EXPECT_EQ(recorder_->take(),
            (Calls{insert + "(7,'2026-01-02','BA',90,2,3,4,5)", insert + "(8,'2026-01-02','RN',90,2,3,4,5)"}));
  EXPECT_EQ(told_, (Calls{"1/2", "2/2"}));
  insert_draws(*recorder_, many, {});
  EXPECT_EQ(recorder_->take(), Calls{});
}

TEST_F(DrawChanges, TheRemainderIsWrittenOrLeft) {
  const struct {
    size_t rows;
    Remainder remainder;
    Calls told;
  } cases[] = {{999, Remainder::left, {}},
               {1000, Remainder::left, {"1000/1000"}},
               {2001, Remainder::left, {"1000/2001", "2000/2001"}},
               {999, Remainder::written, {"999/999"}},
               {1000, Remainder::written, {"1000/1000"}},
               {2001, Remainder::written, {"1000/2001", "2000/2001", "2001/2001"}}};
  for (const auto& each : cases) {
    import_draws(*recorder_, many, rows(each.rows), each.remainder, progress());
    EXPECT_EQ(std::exchange(told_, {}), each.told) << each.rows;
    EXPECT_EQ(recorder_->calls.front(), emptied);
    EXPECT_EQ(recorder_->take().size(), each.told.size() + 1) << each.rows;
  }
}

TEST_F(DrawChanges, TheHostGetsItsTurnBetweenStatements) {
  int yields = 0;
  automation::set_yield_hook([&] { ++yields; });
  insert_draws(*recorder_, one_by_one, rows(3));
  EXPECT_EQ(yields, 3);
  save_draw(*recorder_, day(2026, 1, 2), rows(3));
  EXPECT_EQ(yields, 3) << "not inside a transaction that is ours";
}

TEST_F(DrawChanges, ADrawIsSavedInATransactionOfItsOwn) {
  save_draw(*recorder_, day(2026, 1, 2), Rows{row(7, 1), row(7, 2)});
  const Calls saving{"BeginTrans", emptied + " WHERE dtEstr ='2026-01-02'",
                     insert + "(7,'2026-01-02','BA',90,2,3,4,5),(7,'2026-01-02','CA',90,2,3,4,5)", "CommitTrans"};
  EXPECT_EQ(recorder_->take(), saving);
  for (const int32_t statement : {2, 3}) {
    const auto failing = make<FailingConnector>(recorder_, FailurePlan{.fail_statement = statement});
    EXPECT_TRUE(is_refused([&] { save_draw(*failing, day(2026, 1, 2), Rows{row(7, 1)}); })) << statement;
    EXPECT_EQ(recorder_->take().back(), "RollbackTrans") << statement;
  }
  save_draw(*recorder_, day(2026, 1, 2), {});
  EXPECT_EQ(recorder_->take(), (Calls{"BeginTrans", emptied + " WHERE dtEstr ='2026-01-02'", "CommitTrans"}));
}

TEST_F(DrawChanges, ARefusedStatementIsAFailureOfTheDatabase) {
  const auto refusing = [&](int32_t statement) {
    return make<FailingConnector>(recorder_, FailurePlan{.fail_statement = statement});
  };
  EXPECT_TRUE(is_refused([&] { delete_draw(*refusing(1), day(2026, 1, 2)); }));
  EXPECT_TRUE(is_refused([&] { delete_all_draws(*refusing(1)); }));
  EXPECT_TRUE(is_refused([&] { import_draws(*refusing(1), many, rows(1)); }));
  EXPECT_TRUE(is_refused([&] { import_draws(*refusing(2), many, rows(1)); }));
  EXPECT_TRUE(is_refused([&] { insert_draws(*refusing(2), one_by_one, rows(3)); }));
}

}  // namespace
}  // namespace vestara
