#include "tests/support/wheels.h"

#include <gtest/gtest.h>

#include "tests/support/log_capture.h"
#include "tests/support/recordset.h"
#include "tests/support/values.h"
#include "vestara/foundation/draw_columns.h"
#include "vestara/foundation/query.h"

namespace vestara {
namespace {

using automation::make;
using automation::Null;
using automation::Variant;
using testing_support::CanonicalWheels;
using testing_support::ConnectorRef;
using testing_support::error_of;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::LogCapture;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using testing_support::Table;
using testing_support::UnloadedWheels;

constexpr const char* failed_with = "mPrecarica.PreloadRuoteAlias() ";

class WheelsTest : public testing::Test {
 protected:
  /// Preloads a table of these enumerators and aliases.
  bool preload(std::vector<std::pair<Variant, Variant>> wheels) {
    Table table{.columns = {"enumeratore", "enumeratoreBit", "ruotaAlias"}};
    for (auto& [enumerator, alias] : wheels) table.rows.push_back({enumerator, 0, alias});
    return preload_table(std::move(table));
  }
  bool preload_table(Table table) {
    const auto connector = make<ScriptedConnector>();
    connector->answers[std::string(testing_support::wheels_statement)] = std::move(table);
    connector->default_answer.reset();
    return PreloadRuoteAlias(connector);
  }
  bool preload_failing(FailurePlan plan) {
    const auto connector = make<ScriptedConnector>();
    connector->default_answer = testing_support::canonical_wheels();
    return PreloadRuoteAlias(make<FailingConnector>(connector, plan));
  }
  std::string alias(size_t wheel) { return wheel_tables()->RuoteAliasByEnum.at(wheel); }

  UnloadedWheels unloaded_;
  LogCapture log_;
};

TEST_F(WheelsTest, LoadsBothLookUpsWithOneStatement) {
  const auto scripted = make<ScriptedConnector>();
  scripted->default_answer = testing_support::canonical_wheels();
  const auto recorder = make<RecordingConnector>(scripted);
  EXPECT_TRUE(PreloadRuoteAlias(recorder));
  EXPECT_EQ(recorder->take(),
            (std::vector<std::string>{"OpenRecordset SELECT enumeratore,enumeratoreBit,ruotaAlias FROM ruote",
                                      "CloseRecordset"}));
  const char* expected[] = {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"};
  for (int16_t wheel = 1; wheel <= 11; ++wheel) {
    EXPECT_EQ(alias_of(wheel), expected[wheel - 1]);
    EXPECT_EQ(wheel_of(expected[wheel - 1]), wheel);
  }
  EXPECT_EQ(alias_of(12), "");
  EXPECT_EQ(wheel_of("ba"), 1);
  EXPECT_EQ(wheel_tables()->RuoteEnumByAlias->at("rN"), 11);
  EXPECT_EQ(error_of([] { alias_of(0); }), 9);
  EXPECT_EQ(error_of([] { alias_of(13); }), 9);
  EXPECT_EQ(error_of([] { wheel_of("XX"); }), 5);
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(WheelsTest, EmptyTableIsTrueAndLeavesBothAsTheyWere) {
  EXPECT_TRUE(preload_table(Table{}));
  EXPECT_FALSE(wheel_tables()->RuoteEnumByAlias);
  EXPECT_EQ(error_of([] { wheel_of("BA"); }), 91);
  preload({{1, "BA"}});
  EXPECT_TRUE(preload_table(Table{}));
  EXPECT_EQ(wheel_of("BA"), 1);
  EXPECT_EQ(alias(1), "BA");
}

TEST_F(WheelsTest, RowWithEnumerator12IsStored) {
  EXPECT_TRUE(preload({{12, "TT"}, {1, "BA"}}));
  EXPECT_EQ(alias(12), "TT");
  EXPECT_EQ(wheel_of("TT"), 12);
}

TEST_F(WheelsTest, RowThatFailsStopsTheLoad) {
  const struct {
    const char* what;
    Variant enumerator, alias;
    const char* number;
  } rows[] = {{"enumerator 0", 0, "XX", "9"},
              {"enumerator 13", 13, "XX", "9"},
              {"enumerator -1", -1, "XX", "9"},
              {"Null enumerator", Null{}, "XX", "94"},
              {"Null alias", 2, Null{}, "94"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    UnloadedWheels::reset();
    EXPECT_FALSE(preload({{1, "BA"}, {row.enumerator, row.alias}, {3, "FI"}}));
    EXPECT_EQ(log_.take(), std::vector<std::string>{failed_with + std::string(row.number)});
    EXPECT_EQ(alias(1), "BA");
    EXPECT_EQ(wheel_of("BA"), 1);
    EXPECT_EQ(alias(3), "");
    EXPECT_EQ(error_of([] { wheel_of("FI"); }), 5);
  }
}

TEST_F(WheelsTest, SecondEqualAliasIsInTheArrayOnly) {
  EXPECT_FALSE(preload({{1, "BA"}, {2, "ba"}, {3, "FI"}}));
  EXPECT_EQ(log_.take(), std::vector<std::string>{failed_with + std::string("457")});
  EXPECT_EQ(alias(1), "BA");
  EXPECT_EQ(alias(2), "ba");
  EXPECT_EQ(alias(3), "");
  EXPECT_EQ(wheel_of("BA"), 1);
}

TEST_F(WheelsTest, LaterPreloadReplacesTheCollectionAndOverwritesTheArray) {
  EXPECT_TRUE(preload({{1, "BA"}, {2, "CA"}}));
  EXPECT_TRUE(preload({{"1", "XX"}}));
  EXPECT_EQ(alias(1), "XX");
  EXPECT_EQ(alias(2), "CA");
  EXPECT_EQ(wheel_of("XX"), 1);
  EXPECT_EQ(error_of([] { wheel_of("CA"); }), 5);
}

TEST_F(WheelsTest, FailuresOfTheConnector) {
  const struct {
    const char* what;
    FailurePlan plan;
    std::vector<std::string> log;
  } rows[] = {{"refused", {.how = Failure::refuses}, {}},
              {"error", {.how = Failure::raises_error}, {failed_with + std::string("3001")}},
              {"exception", {.how = Failure::raises_exception}, {failed_with + std::string("-2147467259")}},
              {"no record set", {.how = Failure::hands_over_nothing}, {failed_with + std::string("91")}},
              {"no rows", {.how = Failure::rows_raise, .good_calls = 0}, {failed_with + std::string("3002")}},
              {"rows lost", {.how = Failure::rows_raise, .good_calls = 12}, {failed_with + std::string("3002")}}};
  preload({{1, "XX"}});
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_FALSE(preload_failing(row.plan));
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_NE(alias(1), "");
  }
  EXPECT_FALSE(PreloadRuoteAlias(ConnectorRef()));
  EXPECT_EQ(log_.take(), std::vector<std::string>{failed_with + std::string("91")});
  EXPECT_TRUE(preload_table(testing_support::canonical_wheels()));
}

TEST_F(WheelsTest, WheelArgumentsAreEnumeratorsOrAliases) {
  const struct {
    Variant argument;
    const char* wheel;
  } rows[] = {{1, "Long 1"},       {static_cast<int16_t>(11), "Long 11"},
              {3.0, "Long 3"},     {2.5, "Long 2"},
              {3.5F, "Long 4"},    {"7", "Long 7"},
              {12, "Long 12"},     {0, "Long 0"},
              {-1, "Long -1"},     {91, "Long 91"},
              {"BA", "Long 1"},    {"ba", "Long 1"},
              {"rN", "Long 11"},   {"XX", "error 5"},
              {" BA", "error 5"},  {"", "error 5"},
              {Null{}, "error 94"}};
  EXPECT_TRUE(preload_table(testing_support::canonical_wheels()));
  for (const auto& row : rows)
    EXPECT_EQ(testing_support::outcome([&] { return wheel_argument(row.argument); }), row.wheel)
        << testing::PrintToString(row.argument);
  UnloadedWheels::reset();
  EXPECT_EQ(wheel_argument("7"), 7);
  EXPECT_EQ(error_of([] { wheel_argument("BA"); }), 91);
}

TEST_F(WheelsTest, AnAssignedConnectorIsReadWhenItIsOpen) {
  const struct {
    const char* what;
    int32_t state;
    std::vector<std::string> calls;
  } rows[] = {
      {"open",
       connection_open,
       {"ConnectionState", "OpenRecordset " + std::string(testing_support::wheels_statement), "CloseRecordset"}},
      {"closed", 0, {"ConnectionState"}},
      {"some other state", 2, {"ConnectionState"}}};
  for (const auto& row : rows) {
    UnloadedWheels::reset();
    const auto scripted = make<ScriptedConnector>();
    scripted->default_answer = testing_support::canonical_wheels();
    scripted->state = row.state;
    const auto recorder = make<RecordingConnector>(scripted);
    preload_if_open(recorder);
    EXPECT_EQ(recorder->calls, row.calls) << row.what;
    EXPECT_EQ(alias(1), row.state == connection_open ? "BA" : "") << row.what;
  }
  preload_if_open(ConnectorRef());
  EXPECT_EQ(log_.bytes(), "") << "none is no failure";
}

TEST(Required, IsTheConnectorOrError91) {
  const ConnectorRef connector = make<ScriptedConnector>();
  EXPECT_EQ(&required(connector), connector.get());
  EXPECT_EQ(error_of([] { required(ConnectorRef()); }), 91);
}

TEST(WheelEnumerators, AliasesIgnoreCase) {
  WheelEnumerators wheels;
  wheels.add("BA", 1);
  EXPECT_EQ(wheels.at("ba"), 1);
  EXPECT_EQ(error_of([&] { wheels.add("bA", 2); }), 457);
  EXPECT_EQ(wheels.at("BA"), 1);
  EXPECT_EQ(error_of([&] { wheels.at("CA"); }), 5);
  wheels.add("", 12);
  EXPECT_EQ(wheels.at(""), 12);
  wheels.add("a long alias", 3);
  EXPECT_EQ(wheels.at("A long Alias"), 3);
  EXPECT_EQ(error_of([&] { wheels.at(std::string_view("\0BA", 3)); }), 5);
}

TEST(WheelEnumerators, AliasesIgnoreCaseBeyondAscii) {
  WheelEnumerators wheels;
  wheels.add("FORLÌ", 1);
  wheels.add("Ωmega", 2);
  wheels.add("МОСКВА", 3);
  EXPECT_EQ(wheels.at("forlì"), 1);
  EXPECT_EQ(wheels.at("ωMEGA"), 2);
  EXPECT_EQ(wheels.at("москва"), 3);
  EXPECT_EQ(error_of([&] { wheels.add("forlÌ", 4); }), 457);
  EXPECT_EQ(error_of([&] { wheels.at("FORLI"); }), 5);
}

TEST(WheelColumn, ReadsByTheTablesOfItsBeginning) {
  const CanonicalWheels loaded;
  testing_support::MemoryRecordSet rows({{"ruota"}, {{"CA"}, {"ca"}, {"XX"}}});
  const WheelColumn column(rows);
  replace_wheel_tables({});
  EXPECT_EQ(column.wheel(rows), 2);
  EXPECT_EQ(error_of([&] { WheelColumn(rows).wheel(rows); }), 91);
  rows.move_next();
  EXPECT_EQ(column.wheel(rows), 2);
  rows.move_next();
  EXPECT_EQ(error_of([&] { column.wheel(rows); }), 5);
  EXPECT_EQ(column.alias(rows), "XX");
}

TEST(WheelEnumerators, ManyAliasesAreFoundBesideEachOther) {
  WheelEnumerators wheels;
  for (int16_t i = 0; i < 300; ++i) wheels.add("w" + std::to_string(i), i);
  for (int16_t i = 0; i < 300; ++i) {
    EXPECT_EQ(wheels.at("w" + std::to_string(i)), i);
    EXPECT_EQ(wheels.at("W" + std::to_string(i)), i);
  }
}

TEST(OpenRows, GivesTheRowsOrNothing) {
  const auto scripted = make<ScriptedConnector>();
  scripted->refused = {"no"};
  EXPECT_TRUE(open_rows(*scripted, "yes"));
  EXPECT_FALSE(open_rows(*scripted, "no"));
  FailingConnector broken(scripted, {.how = Failure::hands_over_nothing});
  EXPECT_EQ(error_of([&] { open_rows(broken, "yes"); }), 91);
}

TEST(WheelGrid, FillsEveryCellAndReplacesWhatWasThere) {
  WheelGrid<int16_t> grid;
  EXPECT_FALSE(grid.is_filled());
  EXPECT_EQ(error_of([&] { grid.at(1, 1); }), 9);
  FillWheelGridInt(grid, -1);
  grid.at(11, 90) = 7;
  grid.at(1, 2) = 8;
  EXPECT_EQ(grid.at(1, 1), -1);
  EXPECT_EQ(grid.at(2, 1), -1);
  FillWheelGridInt(grid, 3);
  for (int32_t wheel = 1; wheel <= 11; ++wheel)
    for (int32_t number = 1; number <= 90; ++number) EXPECT_EQ(grid.at(wheel, number), 3);
  for (const auto& [wheel, number] : {std::pair{0, 1}, {12, 1}, {1, 0}, {1, 91}, {-1, 1}, {1, -1}})
    EXPECT_EQ(error_of([&] { grid.at(wheel, number); }), 9) << wheel << ',' << number;
  grid.clear();
  EXPECT_FALSE(grid.is_filled());

  WheelGrid<float> means;
  FillWheelGridSingle(means, -1);
  means.at(3, 45) = 1.5F;
  EXPECT_EQ(means.at(3, 45), 1.5F);
  EXPECT_EQ(means.at(3, 46), -1.0F);
}

TEST(PerWheel, HasOneValueForEachWheel) {
  PerWheel<int32_t> values;
  for (int32_t wheel = 1; wheel <= wheel_count; ++wheel) {
    EXPECT_EQ(values.at(wheel), 0);
    values.at(wheel) = 100 + wheel;
  }
  EXPECT_EQ(values.at(1), 101);
  EXPECT_EQ(values.at(11), 111);
  for (const int32_t wheel : {0, 12, -1}) EXPECT_EQ(error_of([&] { values.at(wheel); }), 9) << wheel;
}

}  // namespace
}  // namespace vestara
