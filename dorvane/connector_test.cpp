#include "dorvane/connector.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "automation/error.h"
#include "automation/ref.h"
#include "dorvane/connection.h"

namespace dorvane {
namespace {

using automation::RunTimeError;

/// An engine that fails in whatever way a test asks for.
class Faulty final : public Connection {
 public:
  // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): of the test that runs
  static inline std::function<void()> fault;

  automation::Ref<records::StaticRecordSet> query(std::string_view) override {
    fault();
    return nullptr;
  }
  void execute(std::string_view) override { fault(); }
  void insert(const vestara::NewRows&) override { fault(); }
  int32_t max_id(std::string_view, std::string_view) override {
    fault();
    return 1;
  }
  void begin() override { fault(); }
  bool has_changes() const override { return false; }
  void commit() override { fault(); }
  void rollback() override { fault(); }
  void create_schema() override { fault(); }
  std::vector<vestara::SchemaGap> check_schema() override {
    fault();
    return {};
  }
  std::vector<std::string> check_file() override {
    fault();
    return {};
  }
  bool is_alive() const override { return true; }
  void leave() noexcept override {}
};

const Engine faulty("faulty",
                    "faulty:", [](const Url&) -> std::unique_ptr<Connection> { return std::make_unique<Faulty>(); });

/// The number of the error that a call raises; 0 for none.
int32_t raised(const std::function<void()>& call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    return error.number();
  }
  return 0;
}

TEST(Connector, WhateverIsRaisedInsideIsTheLastFailure) {
  struct Row {
    std::function<void()> fault;
    int32_t number;
    const char* text;
  };
  for (const Row& row :
       {Row{[] { throw automation::disk_full("no room"); }, 61, "no room"},
        Row{[] { throw std::bad_alloc(); }, 7, "there is not enough memory"},
        Row{[] { throw std::runtime_error("unforeseen"); }, automation::unspecified_failure, "unforeseen"}}) {
    DbConnector connector;
    ASSERT_TRUE(connector.Open("faulty:"));
    Faulty::fault = [] { throw automation::invalid_call("an older failure"); };
    EXPECT_FALSE(connector.ExecuteSql("DELETE FROM storico"));
    Faulty::fault = row.fault;
    automation::Ref<vestara::RecordSet> rows;
    const std::vector<std::function<void()>> calls{
        [&] { EXPECT_FALSE(connector.ExecuteSql("DELETE FROM storico")); },
        [&] { EXPECT_FALSE(connector.OpenRecordset(rows, "SELECT 1")); },
        [&] { EXPECT_FALSE(connector.row_inserter()->InsertRows({})); },
        [&] { EXPECT_EQ(connector.GetMaxId("storico", "id"), 0); },
        [&] { EXPECT_FALSE(connector.CreateSchema()); },
        [&] { EXPECT_FALSE(connector.SchemaGaps()); },
        [&] { EXPECT_EQ(connector.CheckSchema(), "the archive cannot be checked"); },
        [&] {
          EXPECT_EQ(connector.CheckFile().front(), "the archive's file cannot be checked: " + std::string(row.text));
        },
        [&] { EXPECT_EQ(raised([&] { connector.BeginTrans(); }), row.number); },
        [&] { EXPECT_EQ(raised([&] { connector.CommitTrans(); }), row.number); },
        [&] { EXPECT_EQ(raised([&] { connector.RollbackTrans(); }), row.number); }};
    for (const auto& call : calls) {
      call();
      EXPECT_EQ(connector.LastError(), row.text);
      ASSERT_TRUE(connector.LastFailure());
      EXPECT_EQ(connector.LastFailure()->number(), row.number);
    }
  }
}

TEST(Connector, NothingFailedAtFirst) {
  DbConnector connector;
  EXPECT_EQ(connector.LastError(), "");
  EXPECT_EQ(connector.LastFailure(), nullptr);
}

class ConnectorInMemory : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(connector_->Open("sqlite::memory:")) << connector_->LastError();
    ASSERT_TRUE(connector_->CreateSchema()) << connector_->LastError();
  }

  const automation::Ref<DbConnector> connector_ = automation::make<DbConnector>();
};

TEST_F(ConnectorInMemory, AMissingPieceHasItsSentence) {
  struct Row {
    const char* damage;
    const char* sentence;
  };
  std::string expected;
  for (const Row& row :
       {Row{"DELETE FROM ruote WHERE ruotaAlias='RN'", "wheel RN is missing from ruote; CreateSchema adds it"},
        Row{"DROP INDEX vestara_storico_rows",
            "index vestara_storico_rows is missing: answers are right but slow; CreateSchema makes it"},
        Row{"ALTER TABLE tSistemi DROP COLUMN sisTipo", "column tSistemi.sisTipo is missing"},
        Row{"DROP TABLE tRicerche", "table tRicerche is missing; CreateSchema makes it"}}) {
    EXPECT_EQ(connector_->CheckSchema(), expected);
    ASSERT_TRUE(connector_->ExecuteSql(row.damage)) << connector_->LastError();
    // Tables come first, then columns, indexes and wheels: each row's sentence stands before those of the rows above.
    expected = row.sentence + (expected.empty() ? "" : "\n" + expected);
    EXPECT_EQ(connector_->CheckSchema(), expected);
  }
}

TEST_F(ConnectorInMemory, GapsAreNothingWhereTheArchiveCannotBeChecked) {
  ASSERT_TRUE(connector_->ExecuteSql("DROP TABLE tRicerche"));
  const auto gaps = connector_->SchemaGaps();
  ASSERT_TRUE(gaps);
  EXPECT_EQ(*gaps, (std::vector<vestara::SchemaGap>{{vestara::SchemaGap::Kind::table, "tRicerche", "tRicerche"}}));
  connector_->Close();
  EXPECT_FALSE(connector_->SchemaGaps());
  EXPECT_EQ(connector_->LastError(), "no archive is open");
  EXPECT_EQ(connector_->CheckSchema(), "the archive cannot be checked");
}

TEST_F(ConnectorInMemory, AnEnginesFailureSaysWhatItWasAsked) {
  EXPECT_FALSE(connector_->ExecuteSql("DELETE FROM storico WHERE number=1"));
  const auto failure = connector_->LastFailure();
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->description(), connector_->LastError());
  EXPECT_EQ(failure->kind(), automation::FailureKind::database);
  ASSERT_NE(failure->context(), nullptr);
  EXPECT_EQ(failure->context()->engine, "sqlite");
  EXPECT_EQ(failure->context()->statement, "DELETE FROM storico WHERE number=1");
}

TEST_F(ConnectorInMemory, ARowThatCannotBeHadIsTheLastFailure) {
  automation::Ref<vestara::RecordSet> rows;
  // Beyond the rows that are there at once, one that overflows.
  ASSERT_TRUE(connector_->OpenRecordset(
      rows,
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<300) SELECT CASE WHEN i=200 THEN"
      " abs(-9223372036854775807-1) ELSE i END AS i FROM n"));
  EXPECT_EQ(connector_->LastError(), "");
  EXPECT_NE(raised([&] { rows->move_last(); }), 0);
  EXPECT_NE(connector_->LastError().find("integer overflow"), std::string::npos) << connector_->LastError();
}

}  // namespace
}  // namespace dorvane
