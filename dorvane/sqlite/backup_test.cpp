#include "dorvane/backup.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/sqlite_archive.h"
#include "tests/support/values.h"

namespace dorvane {
namespace {

using BackupTest = testing_support::SqliteArchive;

TEST_F(BackupTest, OnlyAFileIsCopied) {
  created();
  const std::string target = folder_.file("target", "");
  const struct {
    std::string url;
    int32_t error;
  } rows[] = {{"sqlite::memory:", 5}, {"mariadb://ada@host/lotto", 5}, {"postgresql:///lotto", 5},
              {"nonsense", 5},        {url("?timeout=soon"), 5},       {"sqlite:" + folder_.path_to("missing"), 76}};
  for (const auto& row : rows)
    EXPECT_EQ(testing_support::error_of([&] { back_up(row.url, target); }), row.error) << row.url;
  EXPECT_EQ(testing_support::bytes_of(target), "");
}

TEST_F(BackupTest, TheCopyIsOneFileWithAllRows) {
  const auto connector = created();
  fill(*connector, 10);
  for (const char* options : {"", "?mode=ro", "?mode=rw"}) {
    const std::string target = folder_.file("target", "");
    back_up(url(options), target);
    EXPECT_EQ(testing_support::bytes_of(target).at(18), '\1') << "no log beside it";
    DbConnector copy;
    ASSERT_TRUE(copy.Open("sqlite:" + target + "?mode=ro")) << copy.LastError();
    EXPECT_EQ(one(copy, "SELECT count(*) FROM storico"), "10") << options;
  }
}

}  // namespace
}  // namespace dorvane
