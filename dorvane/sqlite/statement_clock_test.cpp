#include "dorvane/sqlite/statement_clock.h"

#include <cstdint>

#include "automation/error.h"
#include "dorvane/sqlite/dialect.h"
#include "tests/support/sqlite_archive.h"

namespace dorvane {
namespace {

using automation::Ref;

/// Statements that never end by themselves.
class EndlessStatements : public testing_support::SqliteArchive {
 protected:
  static constexpr const char* endless =
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n) SELECT i FROM n";

  void make_views() const {
    const auto connector = created();
    ASSERT_TRUE(connector->ExecuteSql(std::string("CREATE VIEW endless AS ") + endless)) << connector->LastError();
    ASSERT_TRUE(connector->ExecuteSql("CREATE TABLE wanted(i)"));
  }
  static void expect_too_long(const DbConnector& connector) {
    EXPECT_NE(connector.LastError().find("statement_timeout in the URL"), std::string::npos) << connector.LastError();
  }
};

TEST_F(EndlessStatements, EndWithTheTimeThatTheUrlGives) {
  make_views();
  for (const char* options : {"?statement_timeout=50", "?timeout=1", "?timeout=600000&statement_timeout=50"}) {
    const auto connector = opened(options);
    Ref<vestara::RecordSet> set;
    EXPECT_FALSE(connector->OpenRecordset(set, "SELECT max(i) FROM endless")) << options;
    expect_too_long(*connector);
    EXPECT_EQ(connector->GetMaxId("endless", "i"), 0) << options;
    expect_too_long(*connector);
    EXPECT_EQ(one(*connector, "SELECT count(*) FROM ruote"), "11") << "the next statement has its own time";
  }
}

TEST_F(EndlessStatements, EndWhileTheirRowsAreWalked) {
  make_views();
  const auto connector = opened("?statement_timeout=1000");
  Ref<vestara::RecordSet> set;
  ASSERT_TRUE(connector->OpenRecordset(set, "SELECT i FROM endless WHERE i%50=0"));
  EXPECT_THROW(set->record_count(), automation::RunTimeError);
  expect_too_long(*connector);
  EXPECT_EQ(set->whole_number({0}), 50) << "what came stays";
}

TEST_F(EndlessStatements, ChangeNothing) {
  make_views();
  const auto connector = opened("?statement_timeout=50");
  EXPECT_FALSE(connector->ExecuteSql("INSERT INTO wanted SELECT i FROM endless"));
  expect_too_long(*connector);
  EXPECT_EQ(one(*connector, "SELECT count(*) FROM wanted"), "0");
}

TEST_F(EndlessStatements, InPlaceOfATableAreSaidByTheSchemasCheck) {
  make_views();
  const auto connector = opened("?statement_timeout=50");
  ASSERT_TRUE(connector->ExecuteSql("DROP TABLE ruote"));
  ASSERT_TRUE(
      connector->ExecuteSql("CREATE VIEW ruote AS SELECT i AS enumeratore,i AS enumeratoreBit,i AS ruotaAlias"
                            " FROM endless"));
  EXPECT_EQ(connector->CheckSchema(), "the archive cannot be checked");
  expect_too_long(*connector);
}

TEST_F(EndlessStatements, TheConnectorsOwnWorkHasNoLimit) {
  {
    const auto connector = created();
    for (int i = 0; i < 20; ++i) fill(*connector, 1000);
    for (const vestara::ArchiveIndex& index : vestara::draw_indexes())
      ASSERT_TRUE(connector->ExecuteSql("DROP INDEX " + std::string(index.name)));
  }
  EXPECT_EQ(index_count(*opened("?statement_timeout=1")), "9");
  EXPECT_TRUE(opened("?statement_timeout=1")->CheckFile().empty());
}

TEST(StatementClock, CountsTheEnginesTimeAndNoneWithoutALimit) {
  sqlite::StatementClock unlimited(0);
  sqlite::StatementClock limited(1);
  EXPECT_TRUE(unlimited.may_go_on());
  bool goes_on = true;
  for (int64_t ticks = 0; goes_on && ticks < (int64_t{1} << 40); ++ticks) goes_on = limited.may_go_on();
  EXPECT_FALSE(goes_on);
  EXPECT_TRUE(unlimited.may_go_on());
}

}  // namespace
}  // namespace dorvane
