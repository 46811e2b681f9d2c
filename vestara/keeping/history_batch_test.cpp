#include "vestara/keeping/history_batch.h"

#include <gtest/gtest.h>

#include "tests/support/connectors.h"

namespace vestara {
namespace {

using automation::make;
using Calls = std::vector<std::string>;

/// Takes rows as values as well, and writes down how it got them.
class InsertingConnector final : public DbConnector, private RowInserter {
 public:
  Calls calls;
  bool takes = true;

  const automation::ClassDescription& description() const override { return inner_->description(); }
  int32_t ConnectionState() override { return connection_open; }
  bool OpenRecordset(testing_support::RowsRef&, std::string_view) override { return false; }
  void CloseRecordset(testing_support::RowsRef&) override {}
  bool ExecuteSql(std::string_view statement) override {
    calls.push_back("text " + std::string(statement.substr(statement.find("VALUES"))));
    return takes;
  }
  int32_t GetMaxId(std::string_view, std::string_view) override { return 0; }
  testing_support::RowsRef GetRecordset(std::string_view) override { return nullptr; }
  void BeginTrans() override {}
  void CommitTrans() override {}
  void RollbackTrans() override {}
  RowInserter* row_inserter() override { return this; }

 private:
  bool InsertRows(const NewRows& rows) override {
    std::string call = "values of " + std::string(rows.table);
    for (const RowValue& value : rows.values)
      call += value.kind == RowValue::Kind::text    ? " '" + std::string(value.text) + "'"
              : value.kind == RowValue::Kind::whole ? " " + std::to_string(value.number)
                                                    : " NULL";
    calls.push_back(call);
    return takes;
  }
  automation::Ref<testing_support::ScriptedConnector> inner_ = make<testing_support::ScriptedConnector>();
};

HistoryRecord record(std::string_view contest, std::string_view date, std::string_view wheel, int16_t first = 1) {
  return {contest, date, wheel, {first, 2, 3, 4, 5}};
}

TEST(HistoryBatch, RowsAreValuesUnlessOnlyATextCanSayThem) {
  const struct {
    const char* what;
    std::vector<HistoryRecord> records;
    const char* call;
  } rows[] = {
      {"one row", {record("7", "02/01/2026", "BA")}, "values of storico 7 '2026-01-02' 'BA' 1 2 3 4 5"},
      {"two days",
       {record("7", "02/01/2026", "BA"), record("8", "09/01/2026", "NA", 90)},
       "values of storico 7 '2026-01-02' 'BA' 1 2 3 4 5 8 '2026-01-09' 'NA' 90 2 3 4 5"},
      {"the same day twice",
       {record("7", "2026-01-02", "BA"), record("7", "2026-01-02", "NA")},
       "values of storico 7 '2026-01-02' 'BA' 1 2 3 4 5 7 '2026-01-02' 'NA' 1 2 3 4 5"},
      {"no date", {record("7", "x", "BA")}, "values of storico 7 NULL 'BA' 1 2 3 4 5"},
      {"an odd wheel, a number below zero", {record("007", "", "zz", -1)}, "values of storico 7 NULL 'zz' -1 2 3 4 5"},
      {"no contest", {record("", "x", "BA")}, "text VALUES(,NULL,'BA',1,2,3,4,5)"},
      {"a contest that is no number", {record("1+1", "x", "BA")}, "text VALUES(1+1,NULL,'BA',1,2,3,4,5)"},
      {"a contest of 19 digits",
       {record("1234567890123456789", "x", "BA")},
       "text VALUES(1234567890123456789,NULL,'BA',1,2,3,4,5)"},
      {"a quote", {record("7", "x", "B'A")}, "text VALUES(7,NULL,'B'A',1,2,3,4,5)"},
      {"a backslash", {record("7", "x", "B\\")}, "text VALUES(7,NULL,'B\\',1,2,3,4,5)"},
      {"an odd one among others",
       {record("7", "02/01/2026", "BA"), record("8", "x", "'"), record("9", "02/01/2026", "NA")},
       "text VALUES(7,'2026-01-02','BA',1,2,3,4,5),(8,NULL,''',1,2,3,4,5),(9,'2026-01-02','NA',1,2,3,4,5)"}};
  for (const auto& row : rows) {
    const auto connector = make<InsertingConnector>();
    HistoryBatch batch(*connector);
    for (int time = 0; time < 2; ++time) {
      for (const HistoryRecord& each : row.records) batch.add(each);
      EXPECT_TRUE(batch.send()) << row.what;
    }
    EXPECT_EQ(connector->calls, (Calls{row.call, row.call})) << row.what << ", twice: each begins anew";
  }
}

TEST(HistoryBatch, ADayThatGoesOnBehindAStatementIsKeptAnew) {
  const auto connector = make<InsertingConnector>();
  HistoryBatch records(*connector);
  records.add(record("7", "02/01/2026", "BA"));
  EXPECT_TRUE(records.send());
  records.add(record("7", "02/01/2026", "NA"));
  records.add(record("8", "09/01/2026", "BA"));
  EXPECT_TRUE(records.send());
  const int32_t day = automation::Date::from_civil(2026, 1, 2)->day();
  HistoryBatch rows(*connector);
  rows.add(DrawRow{day, 7, 1, {1, 2, 3, 4, 5}});
  EXPECT_TRUE(rows.send());
  rows.add(DrawRow{day, 7, 6, {1, 2, 3, 4, 5}});
  rows.add(DrawRow{day + 7, 8, 1, {1, 2, 3, 4, 5}});
  EXPECT_TRUE(rows.send());
  const std::string first = "values of storico 7 '2026-01-02' 'BA' 1 2 3 4 5";
  const std::string next = "values of storico 7 '2026-01-02' 'NA' 1 2 3 4 5 8 '2026-01-09' 'BA' 1 2 3 4 5";
  EXPECT_EQ(connector->calls, (Calls{first, next, first, next}));
}

TEST(HistoryBatch, AConnectorOfAHostGetsTheText) {
  const auto recorder = make<testing_support::RecordingConnector>(make<testing_support::ScriptedConnector>());
  HistoryBatch batch(*recorder);
  batch.add(record("007", "02/01/2026", "BA"));
  batch.add(record("8", "x", "NA"));
  EXPECT_TRUE(batch.send());
  EXPECT_EQ(recorder->calls,
            Calls{"ExecuteSql INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES"
                  "(007,'2026-01-02','BA',1,2,3,4,5),(8,NULL,'NA',1,2,3,4,5)"});
}

TEST(HistoryBatch, SaysWhatTheConnectorRefused) {
  const auto connector = make<InsertingConnector>();
  connector->takes = false;
  HistoryBatch batch(*connector);
  batch.add(record("7", "x", "BA"));
  EXPECT_FALSE(batch.send());
  batch.add(record("", "x", "BA"));
  EXPECT_FALSE(batch.send());
}

}  // namespace
}  // namespace vestara
