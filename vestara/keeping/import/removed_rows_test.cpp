#include "vestara/keeping/import/removed_rows.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/temporary_folder.h"
#include "vestara/files/draw_file.h"
#include "vestara/foundation/failure.h"

namespace vestara {
namespace {

using testing_support::bytes_of;
using testing_support::TemporaryFolder;

std::vector<std::string> names_in(const TemporaryFolder& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

TEST(RemovedRows, TheirFileCanBeImported) {
  const std::vector<DrawRow> rows{
      {7, 3, 1, {1, 2, 3, 4, 5}}, {7, 4, 1, {6, 7, 8, 9, 10}}, {14, 5, 11, {1, 2, 3, 4, 5}}};
  const Removal removal = removal_of(rows, {"9,,BA,,,,,,"});
  const DrawFile file = parse_draw_file(removal.draws, "x");
  ASSERT_EQ(file.draws.rows.size(), 2U);
  EXPECT_TRUE(file.draws.rejected.empty());
  EXPECT_EQ(file.draws.rows[1].contest, 5);
  EXPECT_EQ(removal.rest, "1900-01-06,4,BA,6,7,8,9,10\n9,,BA,,,,,,\n");
}

TEST(RemovedRows, AreKeptThreeTimes) {
  const TemporaryFolder folder;
  const RemovalPlace place{folder.path(), "a.sqlite"};
  const std::string other = "a.sqlite.removed-1.csv";
  const std::string of_another = "b.sqlite.removed-20000101T000000.000000.csv";
  folder.file(other, "mine");
  folder.file(of_another, "of another archive");
  folder.file("a.sqlite.removed-20000101T000000.000000.csv", "oldest");
  folder.file("a.sqlite.removed-20000101T000000.000000.rest.csv", "oldest");
  std::vector<std::string> expected{other, of_another};
  for (int i = 0; i < 5; ++i) {
    RemovedRows removed(place, {"draws " + std::to_string(i), i == 3 ? "rest" : ""});
    removed.keep();
    EXPECT_EQ(bytes_of(removed.path().string()), "draws " + std::to_string(i));
    EXPECT_EQ(std::filesystem::status(removed.path()).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    if (i >= 2) expected.push_back(removed.path().filename().string());
    if (i == 3) expected.push_back(expected.back().substr(0, expected.back().size() - 4) + ".rest.csv");
  }
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(names_in(folder), expected);
}

TEST(RemovedRows, GoAwayUnlessTheyAreKept) {
  const TemporaryFolder folder;
  { const RemovedRows removed({folder.path(), "a"}, {"draws", "rest"}); }
  EXPECT_TRUE(names_in(folder).empty());
}

TEST(RemovedRows, SayWhatCannotBeWritten) {
  const TemporaryFolder folder;
  const std::string file = folder.file("file", "");
  try {
    const RemovedRows removed({file, "a", "try another"}, {"draws", ""});
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.kind(), FailureKind::file);
    EXPECT_NE(std::string(failure.what()).find("nothing was changed; try another"), std::string::npos)
        << failure.what();
  }
}

}  // namespace
}  // namespace vestara
