#include "hosts/cli/archive/archive_session.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <sstream>
#include <thread>

#include "hosts/cli/failure.h"
#include "hosts/cli/in_process.h"
#include "hosts/cli/terminal/copy_progress.h"
#include "hosts/cli/terminal/interruption.h"
#include "tests/support/default_interrupts.h"
#include "tests/support/temporary_folder.h"
#include "vestara/keeping/copy/table_reader.h"
#include "vestara/keeping/import/archive_import.h"
#include "vestara/keeping/import/draw_insertion.h"
#include "vestara/keeping/import/manual_marks.h"

namespace vestara::host {
namespace {

class Sessions : public testing::Test {
 protected:
  ArchiveSession open(const std::string& name = "a") const {
    return ArchiveSession::for_import("sqlite:" + folder_.path_to(name) + "?timeout=0");
  }
  static int64_t draws(const Archive& session) { return row_count(session, archive_tables().front()); }

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

/// Another program that has changed something and commits it a little later, when somebody else waits for it.
class LateCommit {
 public:
  LateCommit(const ArchiveSession& session, const std::function<void()>& change) : transaction_(session) {
    change();
    thread_ = std::thread([this] {
      std::this_thread::sleep_for(std::chrono::milliseconds(300));
      transaction_.commit();
    });
  }
  LateCommit(const LateCommit&) = delete;
  LateCommit& operator=(const LateCommit&) = delete;
  ~LateCommit() { thread_.join(); }

 private:
  Transaction transaction_;
  std::thread thread_;
};

class Waiting : public Sessions {
 protected:
  std::string patient_url() const { return "sqlite:" + folder_.path_to("a") + "?timeout=60000"; }
  /// The day of one_draw is entered by hand.
  static void mark(const ArchiveSession& session) {
    ManualMarks marks(session);
    marks.make_table();
    marks.add(7);
  }
};

TEST_F(Waiting, ACopyLooksAgainWhetherItsTargetIsEmpty) {
  const ArchiveSession from = open("b");
  const ArchiveSession other = open();
  const ArchiveSession to = ArchiveSession::for_import(patient_url());
  std::ostringstream err;
  try {
    const LateCommit writer(other, [&] { insert_draws(other, one_draw); });
    copy_archive(from, to, HeldRows::refuse, err);
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.kind(), FailureKind::argument) << failure.what();
  }
  EXPECT_EQ(draws(to), 1);
}

TEST_F(Waiting, AnImportSeesMarksThatCame) {
  const ArchiveSession other = open();
  insert_draws(other, one_draw);
  const ArchiveSession session = ArchiveSession::for_import(patient_url());
  const LateCommit writer(other, [&] { mark(other); });
  const ImportOutcome outcome =
      import_draws(session, {{14, 1, 1, {1, 2, 3, 4, 5}}}, {ImportMode::replace, MissingManual::keep, {}}, {});
  EXPECT_EQ(outcome.plan.manual.size(), 1U);
  EXPECT_EQ(draws(session), 2);
}

TEST_F(Waiting, ADrawThatGoesTakesAMarkAlongThatCame) {
  const ArchiveSession other = open();
  insert_draws(other, one_draw);
  Outcome done{};
  {
    const LateCommit writer(other, [&] { mark(other); });
    done = run_in_process("draw delete 1900-01-06 --yes --db " + patient_url(), "");
  }
  EXPECT_EQ(done.code, 0) << done.err;
  EXPECT_TRUE(ManualMarks(other).days().empty());
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
    EXPECT_EQ(failure.kind(), FailureKind::interrupted);
  }
  EXPECT_EQ(draws(to), 1);
}

}  // namespace
}  // namespace vestara::host
