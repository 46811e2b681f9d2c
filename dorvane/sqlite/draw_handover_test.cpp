#include "dorvane/sqlite/draw_handover.h"

#include <gtest/gtest.h>

#include <new>

#include "tests/support/sqlite_archive.h"

namespace dorvane::sqlite {
namespace {

using vestara::StoredDraw;

/// Draws while the engine walks them, without a record set.
class DrawHandoverTest : public testing_support::SqliteArchive {
 protected:
  void insert(const std::string& values) {
    EXPECT_TRUE(
        archive_->ExecuteSql("INSERT INTO storico(dtEstr,ruota,concorsoNumero,estr1,estr2,estr3,estr4,estr5)"
                             "VALUES" +
                             values))
        << archive_->LastError();
  }
  /// What was handed over, a line each; "not all" behind what was not.
  std::vector<std::string> handed_over() {
    std::vector<std::string> lines;
    const bool were_all = archive_->hand_over_draws([&](const StoredDraw& draw) {
      std::string line = std::string(draw.date) + " " + std::string(draw.wheel);
      line += " " + (draw.contest ? std::to_string(*draw.contest) : "none");
      for (const int32_t number : draw.numbers) line += " " + std::to_string(number);
      lines.push_back(line);
      return true;
    });
    if (!were_all) lines.emplace_back("not all");
    return lines;
  }
  using Lines = std::vector<std::string>;

  automation::Ref<DbConnector> archive_ = created();
};

TEST_F(DrawHandoverTest, RowsOfTheirTypes) {
  EXPECT_EQ(handed_over(), Lines{});
  insert("('2001-01-06','BA',7,90,4,3,2,1),('2001-01-13','VE',NULL,NULL,0,3,2,-1)");
  EXPECT_EQ(handed_over(), (Lines{"2001-01-06 BA 7 90 4 3 2 1", "2001-01-13 VE none 0 0 3 2 -1"}));
  archive_->BeginTrans();
  insert("('2001-01-20','RN',8,1,2,3,4,5)");
  EXPECT_EQ(handed_over().size(), 3U) << "what this connection changed and did not keep yet";
  archive_->RollbackTrans();
  EXPECT_EQ(handed_over().size(), 2U);
}

TEST_F(DrawHandoverTest, AnotherTypeIsNotHandedOver) {
  // Archives of other programs hold what the columns of ours refuse.
  for (const char* statement :
       {"DROP TABLE storico",
        "CREATE TABLE storico(id INTEGER PRIMARY KEY,dtEstr,ruota,concorsoNumero,estr1,estr2,estr3,estr4,estr5)"})
    ASSERT_TRUE(archive_->ExecuteSql(statement)) << archive_->LastError();
  for (const char* row :
       {"('2001-01-06','BA',7,'x',4,3,2,1)", "('2001-01-06','BA',7,1.5,4,3,2,1)",
        "('2001-01-06','BA',3000000000,5,4,3,2,1)", "(NULL,'BA',7,5,4,3,2,1)", "('2001-01-06',NULL,7,5,4,3,2,1)"}) {
    ASSERT_TRUE(archive_->ExecuteSql("DELETE FROM storico"));
    insert(row);
    EXPECT_EQ(handed_over(), Lines{"not all"}) << row;
  }
}

TEST_F(DrawHandoverTest, WhoTakesMayEndIt) {
  insert("('2001-01-06','BA',7,5,4,3,2,1),('2001-01-13','BA',8,5,4,3,2,1)");
  int calls = 0;
  EXPECT_FALSE(archive_->hand_over_draws([&](const StoredDraw&) { return ++calls > 1; }));
  EXPECT_EQ(calls, 1);
  EXPECT_FALSE(archive_->hand_over_draws([](const StoredDraw&) -> bool { throw std::bad_alloc(); }));
  EXPECT_EQ(handed_over().size(), 2U) << "the next walk is whole";
}

TEST_F(DrawHandoverTest, NeedsAnArchiveWithDraws) {
  const auto closed = automation::make<DbConnector>();
  EXPECT_FALSE(closed->hand_over_draws([](const StoredDraw&) { return true; }));
  const auto empty = automation::make<DbConnector>();
  ASSERT_TRUE(empty->Open("sqlite::memory:"));
  EXPECT_FALSE(empty->hand_over_draws([](const StoredDraw&) { return true; }));
  EXPECT_EQ(empty->LastError(), "") << "a record set says why";
}

TEST_F(DrawHandoverTest, NoStatementOfAHostCallsIt) {
  insert("('2001-01-06','BA',7,5,4,3,2,1)");
  const auto refused = rows(*archive_, handover_statement);
  ASSERT_EQ(refused.size(), 1U);
  EXPECT_TRUE(refused[0].starts_with("refused: ")) << refused[0];
}

}  // namespace
}  // namespace dorvane::sqlite
