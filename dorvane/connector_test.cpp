#include "dorvane/connector.h"

#include <gtest/gtest.h>

#include "automation/ref.h"

namespace dorvane {
namespace {

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

}  // namespace
}  // namespace dorvane
