#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/conformance/back_end.h"
#include "tests/support/values.h"

namespace conformance {
namespace {

/// What a session tells its server to hold to, by the server's own word.
class ServerSessionsTest : public BackEnd {
 protected:
  /// The session's value of a setting of each server.
  std::string setting(const char* postgresql, const char* mariadb) {
    return one(GetParam() == Engine::postgresql
                   ? std::string("SELECT setting FROM pg_settings WHERE name='") + postgresql + "'"
                   : std::string("SELECT variable_value FROM information_schema.session_variables WHERE"
                                 " variable_name='") +
                         mariadb + "'");
  }
  void open(const std::string& options) { ASSERT_TRUE(connector_->Open(url_ + options)) << connector_->LastError(); }
};

INSTANTIATE_TEST_SUITE_P(Engines, ServerSessionsTest, testing::Values(Engine::postgresql, Engine::mariadb),
                         engine_name);

TEST_P(ServerSessionsTest, LocksAreWaitedForAsLongAsTheUrlSays) {
  const struct {
    const char* options;
    const char* milliseconds;
    const char* seconds;  ///< of the server that knows whole ones: rounded up, never none
  } rows[] = {{"", "5000", "5"},
              {"&timeout=1500", "1500", "2"},
              {"&timeout=2000", "2000", "2"},
              {"&timeout=2001", "2001", "3"},
              {"&timeout=1", "1", "1"}};
  for (const auto& row : rows) {
    open(row.options);
    const char* const expected = GetParam() == Engine::postgresql ? row.milliseconds : row.seconds;
    EXPECT_EQ(setting("lock_timeout", "LOCK_WAIT_TIMEOUT"), expected) << row.options;
    EXPECT_EQ(setting("lock_timeout", "INNODB_LOCK_WAIT_TIMEOUT"), expected) << row.options;
  }
}

TEST_P(ServerSessionsTest, StatementsRunAsLongAsTheUrlSays) {
  const struct {
    const char* options;
    const char* milliseconds;
    const char* seconds;
  } rows[] = {{"", "600000", "600.000000"},
              {"&statement_timeout=1500", "1500", "1.500000"},
              {"&statement_timeout=1005", "1005", "1.005000"},
              {"&statement_timeout=900", "900", "0.900000"},
              {"&statement_timeout=0", "0", "0.000000"}};
  for (const auto& row : rows) {
    open(row.options);
    EXPECT_EQ(setting("statement_timeout", "MAX_STATEMENT_TIME"),
              GetParam() == Engine::postgresql ? row.milliseconds : row.seconds)
        << row.options;
  }
}

TEST_P(ServerSessionsTest, BehindEveryDefinitionTheSessionReadsOnlyAgain) {
  const auto reads_only = [&] {
    const std::string value = setting("default_transaction_read_only", "TX_READ_ONLY");
    return value == "on" || value == "ON";
  };
  ASSERT_TRUE(execute("DROP TABLE IF EXISTS another")) << connector_->LastError();
  EXPECT_TRUE(reads_only());
  const struct {
    const char* statement;
    bool works;
  } rows[] = {{"CREATE TABLE storico(id INT)", false},
              {"CREATE TABLE another(id INT)", true},
              {"CREATE INDEX another_id ON another(id)", true},
              {"DROP TABLE nowhere", false},
              {"DROP TABLE another", true},
              {"DELETE FROM storico", true},
              {"DELETE FROM nowhere", false}};
  for (const auto& row : rows) {
    EXPECT_EQ(execute(row.statement), row.works) << connector_->LastError();
    EXPECT_TRUE(reads_only()) << row.statement;
  }
}

TEST_P(ServerSessionsTest, AnArchiveThatIsReadOnlyTakesNoChange) {
  const auto writer = another();
  open("&mode=ro");
  EXPECT_EQ(one("SELECT count(*) FROM ruote"), "11");
  for (const char* statement : {"DELETE FROM ruote", "CREATE TABLE another(id INT)", "DROP TABLE ruote"}) {
    EXPECT_FALSE(execute(statement));
    EXPECT_NE(connector_->LastError().find("mode=ro"), std::string::npos) << connector_->LastError();
  }
  EXPECT_EQ(testing_support::error_of([&] { connector_->BeginTrans(); }), 70);
  connector_->RollbackTrans();
  ASSERT_TRUE(writer->ExecuteSql("DELETE FROM ruote WHERE ruotaAlias='RN'")) << writer->LastError();
  EXPECT_FALSE(connector_->CreateSchema());
  EXPECT_EQ(one("SELECT count(*) FROM ruote"), "10");
}

/// Of the one server that looks for tables along a path.
class SearchPathTest : public BackEnd {};

INSTANTIATE_TEST_SUITE_P(Engines, SearchPathTest, testing::Values(Engine::postgresql), engine_name);

TEST_P(SearchPathTest, ATableOfTheSessionStandsBehindThatOfTheArchive) {
  ASSERT_TRUE(execute("CREATE TEMPORARY TABLE ruote(enumeratore INT)")) << connector_->LastError();
  EXPECT_EQ(one("SELECT count(*) FROM ruote"), "11");
  EXPECT_EQ(one("SELECT count(*) FROM pg_temp.ruote"), "0");
}

}  // namespace
}  // namespace conformance
