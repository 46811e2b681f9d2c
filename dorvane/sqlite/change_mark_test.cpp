#include <gtest/gtest.h>

#include <functional>

#include "tests/support/sqlite_archive.h"

namespace dorvane {
namespace {

using vestara::ChangeMark;

/// The mark of an archive's changes, by which what was read of it is known to be what it still holds.
class ChangeMarkTest : public testing_support::SqliteArchive {
 protected:
  static constexpr const char* insert =
      "INSERT INTO storico(dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES('2001-01-01','BA',1,2,3,4,5)";
  static std::string count(DbConnector& connector) { return one(connector, "SELECT count(*) FROM storico"); }
};

TEST_F(ChangeMarkTest, MovesWithWhateverChangesTheRows) {
  const auto mine = created();
  const auto other = opened();
  const struct {
    const char* what;
    std::function<void()> work;
    bool moves;
  } rows[] = {{"nothing", [] {}, false},
              {"a question", [&] { count(*mine); }, false},
              {"a question of another", [&] { count(*other); }, false},
              {"an insert", [&] { mine->ExecuteSql(insert); }, true},
              {"an insert of another", [&] { other->ExecuteSql(insert); }, true},
              {"a begin", [&] { mine->BeginTrans(); }, false},
              {"an insert that is not kept yet", [&] { mine->ExecuteSql(insert); }, true},
              {"its rollback", [&] { mine->RollbackTrans(); }, true},
              {"a transaction of another", [&] { other->BeginTrans(), other->ExecuteSql(insert); }, false},
              {"its rollback", [&] { other->RollbackTrans(); }, false},
              {"an emptied table", [&] { mine->ExecuteSql("DELETE FROM storico"); }, true},
              {"a schema", [&] { mine->CreateSchema(); }, true},
              {"another archive", [&] { mine->Open("sqlite::memory:"); }, true},
              {"the first again", [&] { mine->Open(url()); }, true}};
  auto before = mine->change_mark();
  for (const auto& row : rows) {
    ASSERT_TRUE(before) << row.what;
    row.work();
    const auto after = mine->change_mark();
    EXPECT_EQ(before != after, row.moves) << row.what;
    before = after;
  }
  mine->Close();
  EXPECT_EQ(mine->change_mark(), std::nullopt);
}

TEST_F(ChangeMarkTest, OfTwoArchivesAreNeverEqual) {
  const auto first = created();
  const auto second = automation::make<DbConnector>();
  ASSERT_TRUE(second->Open("sqlite::memory:"));
  EXPECT_NE(first->change_mark(), second->change_mark());
}

}  // namespace
}  // namespace dorvane
