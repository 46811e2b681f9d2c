#include "hosts/vestara/archive_session.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sstream>

#include "hosts/vestara/archive_copy.h"
#include "hosts/vestara/draw_insertion.h"
#include "hosts/vestara/failure.h"
#include "hosts/vestara/interruption.h"
#include "hosts/vestara/manual_marks.h"
#include "hosts/vestara/table_reader.h"
#include "tests/support/default_interrupts.h"
#include "tests/support/temporary_folder.h"

namespace vestara::host {
namespace {

class Sessions : public testing::Test {
 protected:
  ArchiveSession open(const std::string& name = "a") const {
    return ArchiveSession::for_import("sqlite:" + folder_.path_to(name) + "?timeout=0");
  }
  static int64_t draws(const ArchiveSession& session) { return row_count(session, archive_tables().front()); }

  testing_support::TemporaryFolder folder_;
};

const std::vector<DrawRow> one_draw{{7, 1, 1, {1, 2, 3, 4, 5}}};

TEST_F(Sessions, ATransactionWithoutCommitEndsWithItsObject) {
  const ArchiveSession first = open();
  const ArchiveSession second = open();
  {
    const Transaction transaction(first);
    insert_draws(first, one_draw);
    EXPECT_FALSE(second.connector()->ExecuteSql("DELETE FROM storico WHERE 1=0"));
  }
  EXPECT_EQ(draws(first), 0);
  EXPECT_TRUE(second.connector()->ExecuteSql("DELETE FROM storico WHERE 1=0")) << second.connector()->LastError();
}

TEST_F(Sessions, ACommitKeeps) {
  const ArchiveSession first = open();
  Transaction transaction(first);
  insert_draws(first, one_draw);
  transaction.commit();
  EXPECT_EQ(draws(first.another()), 1);
}

TEST_F(Sessions, ATableOfMarksThatCameMeanwhileIsSeen) {
  const ArchiveSession first = open();
  const ArchiveSession second = open();
  ManualMarks marks(first);
  ManualMarks others(second);
  others.make_table();
  others.add(7);
  const Transaction transaction(first);
  EXPECT_FALSE(marks.holds(7));
  marks.look_again();
  EXPECT_TRUE(marks.holds(7));
}

TEST_F(Sessions, ACopyHearsAnInterruptAfterItsLastRow) {
  const testing_support::DefaultInterrupts interrupts;
  const ArchiveSession from = open("a");
  const ArchiveSession to = open("b");
  // Without rows there is no row at which an interrupt could be heard.
  for (const ArchiveTable& table : archive_tables())
    ASSERT_TRUE(from.connector()->ExecuteSql("DELETE FROM " + std::string(table.name)));
  insert_draws(to, one_draw);
  const Interruption interruption;
  std::raise(SIGINT);
  std::ostringstream err;
  try {
    copy_archive(from, to, HeldRows::replace, err);
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.code(), ExitCode::interrupted);
  }
  EXPECT_EQ(draws(to), 1);
}

}  // namespace
}  // namespace vestara::host
