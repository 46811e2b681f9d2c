#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "automation/error.h"
#include "tests/conformance/back_end.h"

namespace conformance {
namespace {

using automation::Ref;
using dorvane::DbConnector;
using vestara::RecordSet;
using Lines = std::vector<std::string>;

/// Runs a body in a process that is forked for it, as a worker is, and returns what it says is wrong; "" when nothing.
std::string in_a_worker(const std::function<std::string()>& body) {
  int ends[2] = {};
  if (pipe(ends) != 0) return "no pipe";
  const pid_t worker = fork();
  if (worker == 0) {
    std::string wrong;
    try {
      wrong = body();
    } catch (const std::exception& error) {
      wrong = error.what();
    }
    const bool is_told = write(ends[1], wrong.data(), wrong.size()) == static_cast<ssize_t>(wrong.size());
    _exit(is_told ? 0 : 1);
  }
  close(ends[1]);
  std::string answer;
  char bytes[4096];
  for (ssize_t count = 0; (count = read(ends[0], bytes, sizeof bytes)) > 0;)
    answer.append(bytes, static_cast<size_t>(count));
  close(ends[0]);
  int status = 0;
  waitpid(worker, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? answer : "the worker died; " + answer;
}

std::string unless(bool right, const std::string& what) { return right ? "" : what + "; "; }

class ForkTest : public BackEnd {
 protected:
  void save(int key) {
    ASSERT_TRUE(execute("INSERT INTO tRicerche(idRicerca)VALUES(" + std::to_string(key) + ")"))
        << connector_->LastError();
  }
  Lines saved() { return rows("SELECT idRicerca FROM tRicerche ORDER BY idRicerca"); }

  /// What a worker sees of the connector that its parent opened.
  std::string use_and_destroy() {
    std::string wrong = unless(connector_->ConnectionState() == 0, "the connection counts as open");
    wrong += unless(!execute("DELETE FROM tRicerche"), "a change was taken");
    wrong += unless(connector_->LastError().find("forked") != std::string::npos, "reason: " + connector_->LastError());
    wrong += unless(!connector_->GetRecordset("SELECT 1 AS n"), "a question was taken");
    for (const auto call : {&DbConnector::BeginTrans, &DbConnector::CommitTrans, &DbConnector::RollbackTrans}) {
      try {
        (connector_.get()->*call)();
        wrong += "a transaction's call was taken; ";
      } catch (const automation::RunTimeError&) {
        continue;
      }
    }
    connector_ = nullptr;
    return wrong;
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, ForkTest, engines(), engine_name);

TEST_P(ForkTest, AWorkersEndTouchesNothingOfItsParents) {
  connector_->BeginTrans();
  save(1);
  EXPECT_EQ(in_a_worker([&] { return use_and_destroy(); }), "");
  EXPECT_EQ(in_a_worker([&] {
              connector_->Close();
              return unless(connector_->LastError().empty(), connector_->LastError());
            }),
            "");
  EXPECT_EQ(in_a_worker([&] {
              connector_ = nullptr;
              return std::string();
            }),
            "");
  save(2);
  connector_->CommitTrans();
  connector_ = another();
  EXPECT_EQ(saved(), (Lines{"1", "2"}));
}

TEST_P(ForkTest, AWorkerOpensTheArchiveForItself) {
  connector_->BeginTrans();
  save(1);
  EXPECT_EQ(in_a_worker([&] {
              std::string wrong = unless(connector_->Open(url_), "not opened: " + connector_->LastError());
              wrong += unless(saved().empty(), "what is not kept was seen");
              return wrong;
            }),
            "");
  connector_->CommitTrans();
  EXPECT_EQ(in_a_worker([&] {
              std::string wrong = unless(connector_->Open(url_), "not opened: " + connector_->LastError());
              wrong += unless(saved() == Lines{"1"}, "what was kept is not seen");
              wrong += unless(execute("INSERT INTO tRicerche(idRicerca)VALUES(2)"), connector_->LastError());
              // And a worker's worker.
              wrong += in_a_worker([&] {
                std::string inner = use_and_destroy();
                connector_ = another();
                return inner + unless(execute("INSERT INTO tRicerche(idRicerca)VALUES(3)"), connector_->LastError());
              });
              wrong += unless(execute("INSERT INTO tRicerche(idRicerca)VALUES(4)"), connector_->LastError());
              return wrong;
            }),
            "");
  EXPECT_EQ(saved(), (Lines{"1", "2", "3", "4"}));
}

TEST_P(ForkTest, AWorkersChangesOutliveItsParentsConnection) {
  save(1);
  EXPECT_EQ(saved(), Lines{"1"});
  int gate[2] = {};
  ASSERT_EQ(pipe(gate), 0);
  const pid_t worker = fork();
  if (worker == 0) {
    close(gate[1]);
    const bool is_open = connector_->Open(url_) && execute("INSERT INTO tRicerche(idRicerca)VALUES(2)");
    char byte = 0;
    while (read(gate[0], &byte, 1) > 0) continue;  // until the parent has closed its archive and another opened it
    _exit(is_open && execute("INSERT INTO tRicerche(idRicerca)VALUES(3)") && saved() == Lines{"1", "2", "3", "4"} ? 0
                                                                                                                  : 1);
  }
  close(gate[0]);
  for (int i = 0; i < 10000 && saved().size() < 2; ++i) usleep(1000);
  connector_->Close();
  connector_ = another();
  save(4);
  connector_->Close();
  close(gate[1]);
  int status = 0;
  waitpid(worker, &status, 0);
  EXPECT_EQ(status, 0);
  connector_ = another();
  EXPECT_EQ(saved(), (Lines{"1", "2", "3", "4"}));
  EXPECT_TRUE(connector_->CheckFile().empty());
}

TEST_P(ForkTest, RecordSetsThatAreCompleteStayReadable) {
  std::string insert = "INSERT INTO tRicerche(idRicerca)VALUES(1)";
  for (int key = 2; key <= 300; ++key) insert += ",(" + std::to_string(key) + ")";
  ASSERT_TRUE(execute(insert)) << connector_->LastError();
  Ref<RecordSet> few;
  Ref<RecordSet> many;
  ASSERT_TRUE(connector_->OpenRecordset(few, "SELECT idRicerca FROM tRicerche WHERE idRicerca<9 ORDER BY idRicerca"));
  ASSERT_TRUE(connector_->OpenRecordset(many, "SELECT idRicerca FROM tRicerche ORDER BY idRicerca"));
  EXPECT_EQ(in_a_worker([&] {
              std::string wrong = unless(few->record_count() == 8, "rows of the small set are missing");
              many->move(50);
              wrong += unless(many->whole_number({0}) == 51, "a row that was read is missing");
              try {
                const bool is_whole = many->record_count() == 300;
                wrong += unless(is_whole && GetParam() != Engine::sqlite, "rows were read in the parent's name");
              } catch (const automation::RunTimeError& error) {
                wrong += unless(GetParam() == Engine::sqlite && error.description().find("forked") != std::string::npos,
                                error.description());
              }
              many = nullptr;
              connector_ = nullptr;
              return wrong;
            }),
            "");
  EXPECT_EQ(many->record_count(), 300);
  EXPECT_EQ(connector_->GetMaxId("tRicerche", "idRicerca"), 300);
}

/// The same on a file with a rollback journal, where a connection's end would take its parent's transaction back.
class ForkedJournal : public ForkTest {};
INSTANTIATE_TEST_SUITE_P(Engines, ForkedJournal, testing::Values(Engine::sqlite), engine_name);

TEST_P(ForkedJournal, AWorkersEndTouchesNothingOfItsParents) {
  url_ = "sqlite:" + folder_.path_to("journal.sqlite");
  connector_ = another();
  ASSERT_TRUE(execute("CREATE TABLE tRicerche(idRicerca INTEGER PRIMARY KEY, descRicerca TEXT)"));
  // Large enough to be written before the transaction ends.
  const std::string text(2000, 'x');
  connector_->BeginTrans();
  for (int key = 1; key <= 3000; ++key)
    ASSERT_TRUE(
        execute("INSERT INTO tRicerche(idRicerca,descRicerca)VALUES(" + std::to_string(key) + ",'" + text + "')"));
  ASSERT_TRUE(std::filesystem::exists(folder_.path_to("journal.sqlite-journal")));
  EXPECT_EQ(in_a_worker([&] { return use_and_destroy(); }), "");
  EXPECT_EQ(in_a_worker([&] {
              // The parent's lock is the file's, and a worker's own connection respects it.
              const bool changed = connector_->Open(url_ + "?timeout=1") && execute("DELETE FROM tRicerche");
              return unless(!changed, "a change went past the parent's lock");
            }),
            "");
  connector_->CommitTrans();
  connector_ = another();
  EXPECT_EQ(one("SELECT count(*) FROM tRicerche"), "3000");
  EXPECT_TRUE(connector_->CheckFile().empty());
}

}  // namespace
}  // namespace conformance
