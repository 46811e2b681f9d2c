#include <gtest/gtest.h>

#include "automation/member.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"
#include "vestara/frequency/analytic_table.h"
#include "vestara/frequency/frequency.h"

// Rows are handed back before a load keeps what it found: a connector that raises then leaves the ranking before.

namespace vestara {
namespace {

using automation::make;
using testing_support::RowsRef;
using testing_support::Table;
using Calls = std::vector<std::string>;

/// Answers every statement with one table; raises error 51 when rows come back to it and `raises` is set.
class UnclosableConnector final : public DbConnector {
 public:
  Table answer;
  bool raises = false;

  const automation::ClassDescription& description() const override {
    static constexpr automation::ClassDescription description{.library = "Tests", .name = "UnclosableConnector"};
    return description;
  }
  int32_t ConnectionState() override { return 0; }
  bool OpenRecordset(RowsRef& rows, std::string_view) override {
    rows = make<testing_support::MemoryRecordSet>(answer);
    return true;
  }
  void CloseRecordset(RowsRef&) override {
    if (raises) throw automation::RunTimeError(51, "Internal error");
  }
  bool ExecuteSql(std::string_view) override { return false; }
  int32_t GetMaxId(std::string_view, std::string_view) override { return 0; }
  RowsRef GetRecordset(std::string_view) override { return {}; }
  void BeginTrans() override {}
  void CommitTrans() override {}
  void RollbackTrans() override {}
};

TEST(CloseFailure, LeavesTheRankingsAndNoLines) {
  testing_support::LogCapture log;
  const testing_support::CanonicalWheels wheels;
  const auto connector = make<UnclosableConnector>();
  cFrequenza frequency;
  cTabAnalytics table;
  frequency.ActiveConnection(connector);
  table.ActiveConnection(connector);
  const auto load_all = [&](int32_t number) {
    const auto date = testing_support::day(2026, 1, 2);
    connector->answer = {{"dtEstr", "ruota", "estr1", "estr2", "estr3", "estr4", "estr5", "estrazione", "num"},
                         {{date, "BA", 1, 1, 1, 1, 1, number, 1}, {date, "BA", number, 1, 1, 1, 1, number, 1}}};
    frequency.LoadRitardi();
    frequency.LoadFrequenti();
    frequency.LoadFrequenzaMedia();
    table.LoadTabelloneAnalitico();
  };
  load_all(7);
  EXPECT_EQ(log.bytes(), "");
  EXPECT_EQ(table.GetItemCount(), 2);
  connector->raises = true;
  load_all(8);
  EXPECT_EQ(log.take(), (Calls{"cFrequenza.LoadRitardi() 51", "cFrequenza.LoadFrequenti() 51",
                               "cFrequenza.LoadFrequenzaMedia() 51", "cTabAnalytics.LoadTabelloneAnalitico() 51"}));
  EXPECT_EQ(frequency.GetRitNum(8, "BA"), 1);
  EXPECT_EQ(frequency.GetRitTopTenNumero(0), 7);
  EXPECT_EQ(frequency.GetFrqNum(8, "BA"), 1);
  EXPECT_EQ(frequency.GetFrqTopTenNumero(0), 7);
  EXPECT_EQ(frequency.GetFrqTopTenNumeroAVG(0), 7);
  EXPECT_EQ(table.GetItemCount(), 0);
}

}  // namespace
}  // namespace vestara
