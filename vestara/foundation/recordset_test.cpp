#include "tests/support/recordset.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/connectors.h"
#include "tests/support/values.h"

// The doubles keep the contract that they stand in for.

namespace vestara {
namespace {

using automation::make;
using automation::Null;
using automation::Variant;
using testing_support::error_of;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::MemoryRecordSet;
using testing_support::RecordingConnector;
using testing_support::RowsRef;
using testing_support::ScriptedConnector;

class MemoryRecordSetTest : public testing::Test {
 protected:
  MemoryRecordSet rows_{{.columns = {"s.dtEstr", "numeriTrovati", "S2.dtestr"},
                         .rows = {{"a", 2, "x"}, {Null{}, "2.5 hits", "y"}, {"c", 3e9, "z"}}}};
};

TEST_F(MemoryRecordSetTest, FindsColumnsByNameWithAndWithoutQualifier) {
  const struct {
    const char* name;
    int32_t index;
  } found[] = {{"dtEstr", 0},   {"DTESTR", 0},        {"s.dtestr", 0},        {"s2.DtEstr", 2},
               {"S.DTESTR", 0}, {"numeritrovati", 1}, {"s2.numeriTrovati", 1}};
  for (const auto& row : found) EXPECT_EQ(rows_.column(row.name).index, row.index) << row.name;
  for (const char* name : {"id", "s3.dtEstr", "", "s.", "dtEst"})
    EXPECT_EQ(error_of([&] { rows_.column(name); }), 3265) << name;
  EXPECT_EQ(rows_.column_count(), 3);
  EXPECT_EQ(rows_.column_name({0}), "dtEstr");
  EXPECT_EQ(error_of([&] { rows_.column_name({3}); }), 3265);
}

TEST_F(MemoryRecordSetTest, ReadsTheCurrentRow) {
  EXPECT_EQ(rows_.value({0}), Variant("a"));
  EXPECT_EQ(rows_.whole_number({1}), 2);
  EXPECT_EQ(rows_.text({1}), "2");
  rows_.move_next();
  EXPECT_TRUE(rows_.is_null({0}));
  EXPECT_EQ(rows_.value({0}), Variant(Null{}));
  EXPECT_EQ(error_of([&] { rows_.text({0}); }), 94);
  EXPECT_EQ(error_of([&] { rows_.whole_number({0}); }), 94);
  EXPECT_EQ(rows_.whole_number({1}), 2);
  rows_.move_next();
  EXPECT_EQ(error_of([&] { rows_.whole_number({1}); }), 6);
  EXPECT_EQ(rows_.whole_number({2}), 0);
}

TEST_F(MemoryRecordSetTest, Scrolls) {
  EXPECT_FALSE(rows_.at_start() || rows_.at_end());
  rows_.move(2);
  EXPECT_EQ(rows_.value({2}), Variant("z"));
  rows_.move(5);
  EXPECT_TRUE(rows_.at_end());
  for (const int32_t further : {1, 7}) EXPECT_EQ(error_of([&] { rows_.move(further); }), 3021);
  EXPECT_EQ(error_of([&] { rows_.move_next(); }), 3021);
  EXPECT_EQ(error_of([&] { rows_.value({0}); }), 3021);
  rows_.move_previous();
  EXPECT_EQ(rows_.value({2}), Variant("z"));
  rows_.move(-7);
  EXPECT_TRUE(rows_.at_start());
  EXPECT_EQ(error_of([&] { rows_.move_previous(); }), 3021);
  rows_.move_first();
  EXPECT_EQ(rows_.value({0}), Variant("a"));
  rows_.move_last();
  EXPECT_EQ(rows_.value({2}), Variant("z"));
  EXPECT_EQ(rows_.record_count(), 3);
}

TEST_F(MemoryRecordSetTest, WithoutRowsStandsAtBothEnds) {
  MemoryRecordSet none({.columns = {"id"}});
  EXPECT_TRUE(none.at_start() && none.at_end());
  EXPECT_EQ(none.record_count(), 0);
  EXPECT_EQ(error_of([&] { none.move_next(); }), 3021);
  EXPECT_EQ(error_of([&] { none.value({0}); }), 3021);
}

TEST_F(MemoryRecordSetTest, ClosedRaisesFromEveryCall) {
  rows_.close();
  rows_.close();
  EXPECT_FALSE(rows_.is_open());
  const std::function<void()> calls[] = {
      [&] { rows_.at_end(); },          [&] { rows_.at_start(); },   [&] { rows_.move_first(); },
      [&] { rows_.move_last(); },       [&] { rows_.move_next(); },  [&] { rows_.move_previous(); },
      [&] { rows_.move(1); },           [&] { rows_.column("id"); }, [&] { rows_.record_count(); },
      [&] { rows_.column_count(); },    [&] { rows_.value({0}); },   [&] { rows_.column_name({0}); },
      [&] { rows_.whole_number({0}); }, [&] { rows_.text({0}); },    [&] { rows_.is_null({0}); }};
  for (const auto& call : calls) EXPECT_EQ(error_of(call), 3704);
}

TEST(Connectors, RecordAndFailTheStatementOfThePlan) {
  const auto scripted = make<ScriptedConnector>();
  scripted->max_ids["tRicerche.idRicerca"] = 7;
  RecordingConnector recorder(make<FailingConnector>(scripted, FailurePlan{.fail_statement = 3}));
  RowsRef rows;
  EXPECT_TRUE(recorder.OpenRecordset(rows, "a"));
  recorder.CloseRecordset(rows);
  EXPECT_FALSE(rows);
  EXPECT_TRUE(recorder.ExecuteSql("b"));
  EXPECT_EQ(error_of([&] { recorder.BeginTrans(); }), 3001);
  recorder.CommitTrans();
  recorder.RollbackTrans();
  EXPECT_EQ(recorder.GetMaxId("tRicerche", "idRicerca"), 7);
  EXPECT_TRUE(recorder.GetRecordset("c"));
  EXPECT_EQ(recorder.ConnectionState(), 1);
  EXPECT_EQ(
      recorder.take(),
      (std::vector<std::string>{"OpenRecordset a", "CloseRecordset", "ExecuteSql b", "BeginTrans", "CommitTrans",
                                "RollbackTrans", "GetMaxId tRicerche idRicerca", "GetRecordset c", "ConnectionState"}));
}

TEST(Connectors, RowsThatRaiseFromSomeCallOn) {
  const auto scripted = make<ScriptedConnector>();
  FailingConnector connector(scripted, {.how = Failure::rows_raise, .good_calls = 2});
  RowsRef rows;
  ASSERT_TRUE(connector.OpenRecordset(rows, "a"));
  EXPECT_TRUE(rows->at_end());
  EXPECT_EQ(rows->record_count(), 0);
  for (int i = 0; i < 2; ++i) EXPECT_EQ(error_of([&] { rows->at_end(); }), 3002);
  EXPECT_TRUE(rows->is_open());
  connector.CloseRecordset(rows);
  EXPECT_FALSE(rows);
}

}  // namespace
}  // namespace vestara
