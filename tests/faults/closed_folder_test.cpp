#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>

#include "dorvane/connector.h"
#include "tests/support/temporary_folder.h"

namespace faults {
namespace {

using dorvane::DbConnector;

constexpr uid_t nobody = 65534;

/// Two processes take turns.
class Turns {
 public:
  Turns() { EXPECT_TRUE(pipe(ends_.data()) == 0 && pipe(ends_.data() + 2) == 0); }
  void give(bool to_reader) const { EXPECT_EQ(write(ends_[to_reader ? 1 : 3], "x", 1), 1); }
  void wait(bool for_reader) const {
    char byte = 0;
    EXPECT_EQ(read(ends_[for_reader ? 2 : 0], &byte, 1), 1);
  }

 private:
  std::array<int, 4> ends_{};
};

/// An archive in a folder in which its reader can make nothing.
class ClosedFolder : public testing::Test {
 protected:
  ClosedFolder() { std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755)); }
  ~ClosedFolder() override { std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755)); }

  std::string path() const { return folder_.path_to("archive.sqlite"); }
  std::string url(const std::string& options = "") const { return "sqlite:" + path() + options; }

  void save(DbConnector& archive, int key) {
    ASSERT_TRUE(archive.ExecuteSql("INSERT INTO tRicerche(idRicerca)VALUES(" + std::to_string(key) + ")"))
        << archive.LastError();
  }
  void make() {
    DbConnector archive;
    ASSERT_TRUE(archive.Open(url()) && archive.CreateSchema()) << archive.LastError();
    save(archive, 1);
  }

  static std::string searches(DbConnector& archive) {
    const auto rows = archive.GetRecordset("SELECT count(*) AS n FROM tRicerche");
    return rows ? std::to_string(rows->whole_number({0})) : archive.LastError();
  }

  /// Begins a body as a user who may read the folder and not write to it.
  pid_t begin_reader(const std::function<bool()>& body) const {
    std::filesystem::permissions(folder_.path(), std::filesystem::perms(0555));
    const pid_t reader = fork();
    if (reader != 0) return reader;
    const bool is_plain = geteuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0);
    EXPECT_TRUE(is_plain);
    _exit(is_plain && body() && !testing::Test::HasFailure() ? 0 : 1);
  }
  static void end_reader(pid_t reader) {
    int status = 0;
    waitpid(reader, &status, 0);
    EXPECT_EQ(status, 0);
  }
  void as_reader(const std::function<bool()>& body) const { end_reader(begin_reader(body)); }

  testing_support::TemporaryFolder folder_;
};

TEST_F(ClosedFolder, IsReadInEveryModeAndChangedInNone) {
  make();
  for (const char* options : {"", "?mode=ro", "?mode=rw"})
    as_reader([&] {
      DbConnector archive;
      EXPECT_TRUE(archive.Open(url(options))) << archive.LastError();
      EXPECT_EQ(searches(archive), "1") << options;
      EXPECT_EQ(archive.GetMaxId("tRicerche", "idRicerca"), 1) << archive.LastError();
      EXPECT_EQ(archive.CheckSchema(), "") << archive.LastError();
      EXPECT_TRUE(archive.CheckFile().empty());
      EXPECT_FALSE(archive.ExecuteSql("DELETE FROM tRicerche"));
      EXPECT_NE(archive.LastError().find("can be read only"), std::string::npos) << archive.LastError();
      return true;
    });
}

TEST_F(ClosedFolder, WithARollbackJournalIsReadToo) {
  {
    DbConnector archive;
    ASSERT_TRUE(archive.Open(url()) && archive.ExecuteSql("CREATE TABLE tRicerche(idRicerca INTEGER PRIMARY KEY)"));
    save(archive, 1);
  }
  as_reader([&] {
    DbConnector archive;
    EXPECT_TRUE(archive.Open(url())) << archive.LastError();
    EXPECT_EQ(searches(archive), "1");
    return true;
  });
}

TEST_F(ClosedFolder, WithAWriterThatIsOpenShowsWhatIsKept) {
  make();
  DbConnector writer;
  ASSERT_TRUE(writer.Open(url()));
  save(writer, 2);
  as_reader([&] {
    DbConnector archive;
    EXPECT_TRUE(archive.Open(url())) << archive.LastError();
    EXPECT_EQ(searches(archive), "2");
    return true;
  });
}

TEST_F(ClosedFolder, WithChangesThatWaitBesideTheFileSaysSo) {
  make();
  DbConnector writer;
  ASSERT_TRUE(writer.Open(url()));
  save(writer, 2);
  // As a power cut leaves it: the changes are there, what finds them is not.
  const std::string copy = folder_.path_to("copy.sqlite");
  for (const char* piece : {"", "-wal"}) std::filesystem::copy(path() + piece, copy + piece);
  as_reader([&] {
    DbConnector archive;
    EXPECT_FALSE(archive.Open("sqlite:" + copy));
    EXPECT_NE(archive.LastError().find("changes wait beside it"), std::string::npos) << archive.LastError();
    return true;
  });
}

TEST_F(ClosedFolder, WhatOthersChangeIsSeenByTheNextQuestion) {
  make();
  const Turns turns;
  const pid_t reader = begin_reader([&] {
    DbConnector archive;
    EXPECT_TRUE(archive.Open(url())) << archive.LastError();
    for (const char* expected : {"1", "2", "3"}) {
      EXPECT_EQ(searches(archive), expected);
      turns.give(false);
      turns.wait(false);
    }
    return true;
  });
  for (int key = 2; key <= 4; ++key) {
    turns.wait(true);
    std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755));
    {
      DbConnector writer;
      EXPECT_TRUE(writer.Open(url())) << writer.LastError();
      save(writer, key);
    }
    std::filesystem::permissions(folder_.path(), std::filesystem::perms(0555));
    turns.give(true);
  }
  end_reader(reader);
}

}  // namespace
}  // namespace faults
