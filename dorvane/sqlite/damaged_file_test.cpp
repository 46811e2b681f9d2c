#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "dorvane/connector.h"
#include "tests/support/temporary_folder.h"

namespace dorvane {
namespace {

using automation::Ref;

class DamagedFile : public testing::Test {
 protected:
  std::string path() const { return folder_.path_to("archive.sqlite"); }

  static constexpr int64_t page_size = 4096;

  /// An archive of 500 draws in which 200 bytes of the first page of a table or an index are overwritten; "" damages
  /// nothing.
  void make(const std::string& damaged, int64_t offset = 0) const {
    int64_t page = 0;
    {
      DbConnector archive;
      ASSERT_TRUE(archive.Open("sqlite:" + path())) << archive.LastError();
      ASSERT_TRUE(archive.CreateSchema()) << archive.LastError();
      std::string insert = "INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1)VALUES";
      for (int i = 0; i < 500; ++i) insert += std::string(i == 0 ? "" : ",") + "(1,'2001-01-01','BA',1)";
      ASSERT_TRUE(archive.ExecuteSql(insert)) << archive.LastError();
      page = number(archive, "SELECT rootpage FROM sqlite_master WHERE name='" + damaged + "'");
    }
    if (damaged.empty()) return;
    std::fstream file(path(), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp((page - 1) * page_size + offset);
    file << std::string(200, '\x7F');
  }

  static int64_t number(DbConnector& archive, const std::string& statement) {
    const Ref<vestara::RecordSet> rows = archive.GetRecordset(statement);
    return rows && !rows->at_end() ? rows->whole_number({0}) : 0;
  }

  Ref<DbConnector> opened() const {
    auto archive = automation::make<DbConnector>();
    EXPECT_TRUE(archive->Open("sqlite:" + path())) << archive->LastError();
    return archive;
  }

 private:
  testing_support::TemporaryFolder folder_;
};

TEST_F(DamagedFile, TheSchemaCannotBeCheckedWhereTheWheelsCannotBeRead) {
  make("ruote");
  const auto archive = opened();
  EXPECT_EQ(archive->CheckSchema(), "the archive cannot be checked");
  EXPECT_NE(archive->LastError().find("malformed"), std::string::npos) << archive->LastError();
}

TEST_F(DamagedFile, TheEnginesOwnCheckFindsWhatNoAnswerShows) {
  struct Row {
    const char* damaged;
    int64_t offset;
    const char* finding;  ///< a piece of one
  };
  constexpr int64_t cells = page_size - 200;
  for (const Row& row : {Row{"", 0, ""}, Row{"ruote", 0, "malformed"}, Row{"storico", 0, "malformed"},
                         Row{"tSistemaDetail", 0, "malformed"}, Row{"ruote", cells, "page"},
                         Row{"vestara_storico_wheel", cells, "page"}}) {
    make(row.damaged, row.offset);
    const std::vector<std::string> findings = opened()->CheckFile();
    std::string all;
    for (const std::string& line : findings) {
      EXPECT_EQ(line.find('\n'), std::string::npos) << line;
      all += line + "\n";
    }
    EXPECT_EQ(findings.empty(), *row.finding == '\0') << row.damaged << ": " << all;
    EXPECT_NE(all.find(row.finding), std::string::npos) << row.damaged << ": " << all;
    ASSERT_EQ(std::remove(path().c_str()), 0);
  }
}

TEST_F(DamagedFile, ACheckThatFailsIsAFinding) {
  DbConnector closed;
  EXPECT_EQ(closed.CheckFile(), std::vector<std::string>{"the archive's file cannot be checked: no archive is open"});
}

TEST_F(DamagedFile, AViewOfAnotherProgramThatCannotBeReadIsNoneOfTheSchemasBusiness) {
  make("");
  const auto archive = opened();
  ASSERT_TRUE(archive->ExecuteSql("CREATE VIEW aaa AS SELECT * FROM nowhere")) << archive->LastError();
  EXPECT_EQ(archive->CheckSchema(), "");
}

}  // namespace
}  // namespace dorvane
