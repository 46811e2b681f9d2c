#include "dorvane/sqlite/connection.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "automation/error.h"
#include "dorvane/sqlite/dialect.h"
#include "tests/support/changed_environment.h"
#include "tests/support/sqlite_archive.h"

namespace dorvane {
namespace {

using automation::Ref;
using vestara::RecordSet;

using SqliteTest = testing_support::SqliteArchive;

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
  // One that may not write leaves the archive as it is.
  const auto other = opened("?mode=ro");
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
  for (const vestara::ArchiveIndex& index : vestara::draw_indexes())
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
  EXPECT_EQ(connector->LastError(), "");
  EXPECT_THROW(set->move(200), automation::RunTimeError);
  EXPECT_NE(connector->LastError().find("integer overflow"), std::string::npos) << connector->LastError();
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
      {"sqlite:file:x.sqlite", "'file:' is not read here"},
      {"sqlite:file:x.sqlite?mode=ro", "'file:' is not read here"},
      {"sqlite:FILE:///x.sqlite", "'file:' is not read here"},
      {"sqlite:%66ile:x.sqlite", "'file:' is not read here"},
      {"sqlite:x%00y.sqlite", "holds a NUL byte"},
      {"sqlite:%00", "holds a NUL byte"},
      {"sqlite:" + folder_.path().string(), "is no file but a folder or a device"},
      {"sqlite:x?tls=require", "does not know the option 'tls'"},
      {"sqlite:x?statement_timeout=-1", "number of milliseconds"},
      {url(), "not a database"},
      {"sqlite:" + folder_.path_to("missing/a.sqlite"), "is the folder there"},
      {"sqlite:" + folder_.path_to("missing.sqlite") + "?mode=rw", "unable to open"},
      {"sqlite:x?mode=write", "mode is create, rw or ro"},
      {"sqlite:x?durability=some", "durability is full or normal"},
      {"sqlite:x?timeout=soon", "number of milliseconds"},
      {"sqlite:x?size=3", "the options are mode, durability, timeout, statement_timeout"},
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

#if !defined(_WIN32)  // where no file may have such a name
TEST_F(SqliteTest, AFileWhoseNameLooksLikeAUrlIsReachedByItsPath) {
  const std::string path = folder_.path_to("file:x.sqlite");
  DbConnector connector;
  ASSERT_TRUE(connector.Open("sqlite:" + path)) << connector.LastError();
  ASSERT_TRUE(connector.CreateSchema());
  EXPECT_TRUE(std::filesystem::exists(path));
}
#endif

#if !defined(_WIN32)  // the environment is changed as POSIX systems change it
TEST_F(SqliteTest, WithoutAUrlTheEnvironmentNamesTheArchive) {
  created();
  {
    const testing_support::ChangedEnvironment database("VESTARA_DB", url("?mode=rw"));
    DbConnector connector;
    EXPECT_TRUE(connector.Open("")) << connector.LastError();
    EXPECT_EQ(connector.CheckSchema(), "");
  }
  const testing_support::ChangedEnvironment nothing("VESTARA_DB", "");
  DbConnector connector;
  EXPECT_FALSE(connector.Open(""));
}
#endif

TEST_F(SqliteTest, OpenForgetsWhyAnEarlierOneFailed) {
  const auto connector = created();
  EXPECT_FALSE(connector->Open("nonsense"));
  EXPECT_NE(connector->LastError(), "");
  EXPECT_TRUE(connector->Open(url()));
  EXPECT_EQ(connector->LastError(), "");
}

/// The engine's handle of every connection that is opened while this lives.
class OpenedHandles {
 public:
  OpenedHandles() { sqlite3_auto_extension(entry()); }
  ~OpenedHandles() { sqlite3_cancel_auto_extension(entry()); }
  OpenedHandles(const OpenedHandles&) = delete;
  OpenedHandles& operator=(const OpenedHandles&) = delete;

  static sqlite3* last() { return handle; }

 private:
  using Entry = void (*)();
  static int note(sqlite3* opened, char**, const sqlite3_api_routines*) {
    handle = opened;
    return SQLITE_OK;
  }
  static Entry entry() { return reinterpret_cast<Entry>(&OpenedHandles::note); }
  static inline sqlite3* handle = nullptr;
};

TEST_F(SqliteTest, DurabilityReachesTheEngine) {
  created();
  const OpenedHandles handles;
  for (const auto& [options, expected] : {std::pair{"", "2"}, {"?durability=full", "2"}, {"?durability=normal", "1"}}) {
    const auto connector = opened(options);
    std::string level;
    const auto take = [](void* to, int, char** values, char**) {
      *static_cast<std::string*>(to) = values[0];
      return 0;
    };
    sqlite3_set_authorizer(OpenedHandles::last(), nullptr, nullptr);  // no statement may ask this
    ASSERT_EQ(sqlite3_exec(OpenedHandles::last(), "PRAGMA synchronous", take, &level, nullptr), SQLITE_OK);
    EXPECT_EQ(level, expected) << options;
  }
}

TEST_F(SqliteTest, AnExistingArchiveKeepsItsJournal) {
  const auto connector = opened();
  ASSERT_TRUE(connector->ExecuteSql("CREATE TABLE other(x)"));
  ASSERT_TRUE(connector->CreateSchema());
  // Byte 18 of the file says how it is written: 1 with a rollback journal, 2 with a log that is written ahead.
  EXPECT_EQ(testing_support::bytes_of(folder_.path_to("archive.sqlite")).at(18), '\1');
}

TEST_F(SqliteTest, WhatTheEngineRolledBackByItselfIsNoticed) {
  const auto connector = created();
  ASSERT_TRUE(connector->ExecuteSql("INSERT INTO tRicerche(idRicerca)VALUES(1)"));
  connector->BeginTrans();
  ASSERT_TRUE(connector->ExecuteSql("INSERT INTO tRicerche(idRicerca)VALUES(2)"));
  EXPECT_FALSE(connector->ExecuteSql("INSERT OR ROLLBACK INTO tRicerche(idRicerca)VALUES(1)"));
  EXPECT_FALSE(connector->ExecuteSql("INSERT INTO tRicerche(idRicerca)VALUES(3)")) << "it would be kept alone";
  EXPECT_NE(connector->LastError().find("the transaction is lost"), std::string::npos) << connector->LastError();
  EXPECT_THROW(connector->CommitTrans(), automation::RunTimeError);
  EXPECT_EQ(rows(*connector, "SELECT idRicerca FROM tRicerche"), std::vector<std::string>{"1"});
}

TEST_F(SqliteTest, ARollbackOwesTheIndexesAgain) {
  const auto connector = created();
  fill(*connector, 10);
  ASSERT_TRUE(connector->ExecuteSql("DELETE FROM storico"));
  connector->BeginTrans();
  ASSERT_TRUE(connector->CreateSchema());
  connector->RollbackTrans();
  EXPECT_EQ(connector->CheckSchema(), "");
}

TEST_F(SqliteTest, ClosingInsideATransactionOwesTheIndexesAgain) {
  {
    const auto connector = created();
    fill(*connector, 10);
    ASSERT_TRUE(connector->ExecuteSql("DELETE FROM storico"));
    connector->BeginTrans();
    ASSERT_TRUE(connector->CreateSchema());
  }
  // One that may not write makes none by itself.
  EXPECT_EQ(index_count(*opened("?mode=ro")), "9");
}

TEST_F(SqliteTest, ARecordSetOfATransactionIsCompleteBeforeItIsRolledBack) {
  const auto connector = created();
  fill(*connector, 300);
  connector->BeginTrans();
  fill(*connector, 300);
  Ref<RecordSet> set;
  ASSERT_TRUE(connector->OpenRecordset(set, "SELECT id FROM storico ORDER BY id"));
  connector->RollbackTrans();
  EXPECT_EQ(set->record_count(), 600);
  set->move(599);
  EXPECT_EQ(set->whole_number({0}), 600);
}

TEST_F(SqliteTest, AKeyBeyond32BitsIsNoKey) {
  const auto connector = created();
  ASSERT_TRUE(connector->ExecuteSql("INSERT INTO tRicerche(idRicerca)VALUES(2147483648)"));
  EXPECT_EQ(connector->GetMaxId("tRicerche", "idRicerca"), 0);
  EXPECT_NE(connector->LastError(), "");
}

TEST_F(SqliteTest, AnArchiveThatWasLeftWithoutIndexesGetsThemWhenItIsOpenedNext) {
  const auto connector = created();
  fill(*connector, 10);
  const auto drop = [&](size_t count) {
    for (size_t i = 0; i < count; ++i)
      ASSERT_TRUE(connector->ExecuteSql("DROP INDEX " + std::string(vestara::draw_indexes()[i].name)));
  };
  drop(vestara::draw_indexes().size());
  EXPECT_EQ(index_count(*opened("?mode=ro")), "1");
  EXPECT_EQ(index_count(*opened()), "9");
  // One that somebody took away is not ours to make again.
  drop(1);
  EXPECT_EQ(index_count(*opened()), "8");
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
