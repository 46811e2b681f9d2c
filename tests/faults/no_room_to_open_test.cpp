#include <fcntl.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "dorvane/connector.h"
#include "tests/support/temporary_folder.h"

namespace faults {
namespace {

using dorvane::DbConnector;

/// Takes every file descriptor that the process may have, as long as it lives.
class NoDescriptors {
 public:
  NoDescriptors() {
    getrlimit(RLIMIT_NOFILE, &before_);
    const rlimit few{64, before_.rlim_max};
    setrlimit(RLIMIT_NOFILE, &few);
    for (int file = 0; (file = open("/dev/null", O_RDONLY)) >= 0;) files_.push_back(file);
  }
  ~NoDescriptors() {
    for (const int file : files_) close(file);
    setrlimit(RLIMIT_NOFILE, &before_);
  }
  NoDescriptors(const NoDescriptors&) = delete;
  NoDescriptors& operator=(const NoDescriptors&) = delete;

 private:
  rlimit before_{};
  std::vector<int> files_;
};

TEST(NoRoomToOpen, IsSaidAsWhatItIs) {
  const testing_support::TemporaryFolder folder;
  const std::string url = "sqlite:" + folder.path_to("archive.sqlite");
  DbConnector archive;
  ASSERT_TRUE(archive.Open(url) && archive.CreateSchema()) << archive.LastError();
  for (const char* file : {"archive.sqlite", "new.sqlite"}) {
    EXPECT_FALSE(archive.Open("nonsense"));
    const NoDescriptors none;
    EXPECT_FALSE(archive.Open("sqlite:" + folder.path_to(file)));
    EXPECT_NE(archive.LastError().find("too many files are open"), std::string::npos) << archive.LastError();
  }
  EXPECT_FALSE(archive.Open("nonsense"));
  sqlite3_hard_heap_limit64(2000);
  EXPECT_FALSE(archive.Open(url));
  const std::string reason = archive.LastError();
  sqlite3_hard_heap_limit64(0);
  EXPECT_NE(reason.find("out of memory"), std::string::npos) << reason;
  EXPECT_TRUE(archive.Open(url)) << archive.LastError();
}

}  // namespace
}  // namespace faults
