#include "dorvane/sqlite/connection.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "automation/coercion.h"
#include "automation/error.h"
#include "dorvane/connector.h"
#include "dorvane/sqlite/dialect.h"
#include "tests/support/temporary_folder.h"

namespace dorvane {
namespace {

using automation::Ref;
using automation::Variant;
using vestara::RecordSet;

class SqliteTest : public testing::Test {
 protected:
  std::string url(const std::string& options = {}) const {
    return "sqlite:" + folder_.path_to("archive.sqlite") + options;
  }

  Ref<DbConnector> opened(const std::string& options = {}) const {
    auto connector = automation::make<DbConnector>();
    EXPECT_TRUE(connector->Open(url(options))) << connector->LastError();
    return connector;
  }

  Ref<DbConnector> created() const {
    auto connector = opened();
    EXPECT_TRUE(connector->CreateSchema()) << connector->LastError();
    return connector;
  }

  /// The rows of a statement, values as text, joined by blanks.
  static std::vector<std::string> rows(DbConnector& connector, const std::string& statement) {
    Ref<RecordSet> set;
    std::vector<std::string> result;
    if (!connector.OpenRecordset(set, statement)) return {"refused: " + connector.LastError()};
    for (; !set->at_end(); set->move_next()) {
      std::string line;
      for (int32_t i = 0; i < set->column_count(); ++i) {
        const Variant value = set->value({i});
        line += (i == 0 ? "" : " ") + (value.is_null() ? std::string("Null") : automation::to_text(value));
      }
      result.push_back(line);
    }
    return result;
  }

  static std::string one(DbConnector& connector, const std::string& statement) {
    return rows(connector, statement).at(0);
  }

  static std::string index_count(DbConnector& connector) {
    return one(connector, "SELECT count(*) FROM sqlite_master WHERE type='index' AND name LIKE 'vestara%'");
  }

  static void fill(DbConnector& connector, int count) {
    std::string text = "INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES";
    for (int i = 0; i < count; ++i)
      text += std::string(i == 0 ? "" : ",") + "(" + std::to_string(i % 200 + 1) + ",'2001-01-01','BA',1,2,3,4,5)";
    ASSERT_TRUE(connector.ExecuteSql(text)) << connector.LastError();
  }

  testing_support::TemporaryFolder folder_;
};

TEST_F(SqliteTest, CreateSchemaFillsTheWheelsAndCanBeRepeated) {
  const auto connector = created();
  EXPECT_TRUE(connector->CreateSchema());
  const auto wheels = rows(*connector, "SELECT enumeratore,enumeratoreBit,ruotaAlias FROM ruote ORDER BY enumeratore");
  const std::vector<std::string> expected{"1 1 BA",  "2 2 CA",   "3 4 FI",   "4 8 GE",    "5 16 MI",   "6 32 NA",
                                          "7 64 PA", "8 128 RM", "9 256 TO", "10 512 VE", "11 1024 RN"};
  EXPECT_EQ(wheels, expected);
  EXPECT_EQ(index_count(*connector), "9");
}

TEST_F(SqliteTest, OpenChangesNothingInAnExistingFile) {
  {
    const auto connector = opened();
    ASSERT_TRUE(
        connector->ExecuteSql("CREATE TABLE storico(id INTEGER PRIMARY KEY, dtEstr VARCHAR(10), ruota CHAR(2),"
                              " estr1 INT, estr2 INT, estr3 INT, estr4 INT, estr5 INT, concorsoNumero INT)"));
    ASSERT_TRUE(connector->ExecuteSql("INSERT INTO storico VALUES(1,'2001-01-06','BA',1,2,3,4,5,1)"));
  }
  const auto bytes = [&] {
    std::ifstream file(folder_.path_to("archive.sqlite"), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  const std::string before = bytes();
  {
    const auto connector = opened();
    EXPECT_EQ(one(*connector, "SELECT dtEstr FROM storico"), "06/01/2001");
    EXPECT_EQ(one(*connector, "SELECT max(dtEstr)as dmax FROM Storico"), "06/01/2001");
  }
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path()), {}), 1);
}

TEST_F(SqliteTest, AnArchiveOfAnotherToolKeepsItsIndexesWhenItIsEmptied) {
  const auto connector = opened();
  ASSERT_TRUE(connector->ExecuteSql("CREATE TABLE storico(id INTEGER PRIMARY KEY, dtEstr TEXT)"));
  ASSERT_TRUE(connector->ExecuteSql("CREATE INDEX mine ON storico(dtEstr)"));
  ASSERT_TRUE(connector->ExecuteSql("DELETE FROM storico"));
  EXPECT_EQ(one(*connector, "SELECT count(*) FROM sqlite_master WHERE name='mine'"), "1");
  EXPECT_EQ(index_count(*connector), "0");
}

TEST_F(SqliteTest, IndexesGoWithTheRowsAndComeBackBeforeTheNextRead) {
  const auto connector = created();
  fill(*connector, 100);
  ASSERT_TRUE(connector->ExecuteSql("DELETE FROM storico"));
  const auto other = opened();
  EXPECT_EQ(index_count(*other), "1");
  fill(*connector, 100);
  EXPECT_EQ(one(*connector, "SELECT count(*) FROM storico"), "100");
  EXPECT_EQ(index_count(*other), "9");
}

TEST_F(SqliteTest, IndexesComeBackWithTheCommitAndWithTheRollback) {
  const auto connector = created();
  fill(*connector, 10);
  const auto other = opened();
  for (const bool keep : {true, false}) {
    connector->BeginTrans();
    ASSERT_TRUE(connector->ExecuteSql("DELETE FROM storico"));
    fill(*connector, 20);
    EXPECT_EQ(index_count(*other), "9");
    keep ? connector->CommitTrans() : connector->RollbackTrans();
    EXPECT_EQ(index_count(*other), "9");
    EXPECT_EQ(one(*other, "SELECT count(*) FROM storico"), "20");
  }
}

TEST_F(SqliteTest, ClosingPaysForTheIndexesToo) {
  {
    const auto connector = created();
    ASSERT_TRUE(connector->ExecuteSql("DELETE FROM storico"));
    fill(*connector, 10);
  }
  EXPECT_EQ(index_count(*opened()), "9");
}

TEST_F(SqliteTest, AnArchiveThatLostItsIndexesGetsThemBackWithTheNextImport) {
  const auto connector = created();
  for (const Creation& index : sqlite::draw_indexes())
    ASSERT_TRUE(connector->ExecuteSql("DROP INDEX " + std::string(index.name)));
  EXPECT_EQ(index_count(*connector), "1");
  ASSERT_TRUE(connector->ExecuteSql("DELETE FROM storico"));
  EXPECT_EQ(index_count(*connector), "9");
}

TEST_F(SqliteTest, RecordSetsAreCompleteBeforeAnythingChangesUnderThem) {
  const auto connector = created();
  fill(*connector, 500);
  const char* const all = "SELECT id FROM storico ORDER BY id";
  const auto change = [&](int which) {
    switch (which) {
      case 0:
        EXPECT_TRUE(connector->ExecuteSql("DELETE FROM storico WHERE id>10"));
        break;
      case 1:
        EXPECT_TRUE(connector->ExecuteSql("DELETE FROM storico"));
        break;
      case 2:
        connector->RollbackTrans();
        break;
      case 3:
        connector->CommitTrans();
        break;
      default:
        connector->Close();
    }
  };
  for (int which = 0; which < 5; ++which) {
    connector->BeginTrans();
    Ref<RecordSet> set;
    ASSERT_TRUE(connector->OpenRecordset(set, all));
    change(which);
    set->move(450);
    EXPECT_EQ(set->whole_number({0}), 451) << which;
    EXPECT_EQ(set->record_count(), 500) << which;
    if (which < 2) connector->RollbackTrans();
  }
}

TEST_F(SqliteTest, ALongRecordSetIsNotReadToItsEndForItsFirstRows) {
  const auto connector = created();
  fill(*connector, 1000);
  Ref<RecordSet> set;
  // The value of row 900 is an error: it shows only when the cursor gets there.
  ASSERT_TRUE(connector->OpenRecordset(
      set, "SELECT CASE WHEN id=900 THEN abs(-9223372036854775808) ELSE id END AS n FROM storico ORDER BY id"));
  set->move(800);
  EXPECT_EQ(set->whole_number(set->column("n")), 801);
  EXPECT_THROW(set->move(200), automation::RunTimeError);
  EXPECT_THROW(set->record_count(), automation::RunTimeError);
}

TEST_F(SqliteTest, AnErrorInTheFirstRowRefusesTheStatement) {
  const auto connector = created();
  Ref<RecordSet> set;
  EXPECT_FALSE(connector->OpenRecordset(set, "SELECT abs(-9223372036854775808)"));
  EXPECT_FALSE(set);
  EXPECT_NE(connector->LastError().find("integer overflow"), std::string::npos) << connector->LastError();
}

TEST_F(SqliteTest, SaysWhyAnArchiveDoesNotOpen) {
  std::ofstream(folder_.path_to("archive.sqlite")) << std::string(5000, 'x');
  struct Row {
    std::string url;
    const char* reason;
  };
  const std::vector<Row> table{
      {"nonsense", "begins with the engine"},
      {"oracle:x", "unknown database 'oracle'"},
      {"sqlite:", "names no file"},
      {url(), "not a database"},
      {"sqlite:" + folder_.path_to("missing/a.sqlite"), "is the folder there"},
      {"sqlite:" + folder_.path_to("missing.sqlite") + "?mode=rw", "unable to open"},
      {"sqlite:x?mode=write", "mode is create, rw or ro"},
      {"sqlite:x?durability=some", "durability is full or normal"},
      {"sqlite:x?timeout=soon", "number of milliseconds"},
      {"sqlite:x?size=3", "the options are mode, durability, timeout"},
  };
  for (const Row& row : table) {
    DbConnector connector;
    EXPECT_FALSE(connector.Open(row.url)) << row.url;
    EXPECT_EQ(connector.ConnectionState(), 0) << row.url;
    EXPECT_NE(connector.LastError().find(row.reason), std::string::npos) << connector.LastError();
    EXPECT_FALSE(connector.ExecuteSql("DELETE FROM storico"));
    EXPECT_EQ(connector.LastError(), "no archive is open");
  }
  EXPECT_FALSE(std::filesystem::exists(folder_.path_to("missing.sqlite")));
}

TEST_F(SqliteTest, AReadOnlyArchiveRefusesChanges) {
  created();
  const auto connector = opened("?mode=ro");
  EXPECT_FALSE(connector->ExecuteSql("INSERT INTO storico(estr1)VALUES(1)"));
  EXPECT_NE(connector->LastError().find("can be read only"), std::string::npos) << connector->LastError();
  EXPECT_EQ(one(*connector, "SELECT count(*) FROM storico"), "0");
}

TEST_F(SqliteTest, AnotherWritersTransactionIsWaitedForAndThenReported) {
  const auto first = created();
  const auto second = opened("?timeout=50");
  first->BeginTrans();
  fill(*first, 1);
  EXPECT_FALSE(second->ExecuteSql("DELETE FROM ruote"));
  EXPECT_NE(second->LastError().find("another program is changing the archive"), std::string::npos);
  EXPECT_THROW(second->BeginTrans(), automation::RunTimeError);
  // The transaction never began: what would have been part of it must not slip in alone.
  first->CommitTrans();
  EXPECT_FALSE(second->ExecuteSql("DELETE FROM storico"));
  second->RollbackTrans();
  EXPECT_EQ(one(*second, "SELECT count(*) FROM storico"), "1");
  EXPECT_TRUE(second->ExecuteSql("DELETE FROM storico"));
}

TEST_F(SqliteTest, NumbersBeyondTheColumnsOfAServerAreRefusedHereToo) {
  const auto connector = created();
  EXPECT_FALSE(connector->ExecuteSql("INSERT INTO storico(estr1)VALUES(32768)"));
  EXPECT_TRUE(connector->ExecuteSql("INSERT INTO storico(estr1)VALUES(0)"));
  EXPECT_TRUE(connector->ExecuteSql("INSERT INTO storico(estr1)VALUES(NULL)"));
}

}  // namespace
}  // namespace dorvane
