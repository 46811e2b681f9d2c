#include "automation/system/append_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "tests/support/temporary_folder.h"

namespace automation {
namespace {

namespace fs = std::filesystem;
using testing_support::bytes_of;
using testing_support::TemporaryFolder;

constexpr int64_t largest = 10;

TEST(AppendToFile, MakesAppendsAndPutsAside) {
  const struct {
    const char *what, *before, *bytes, *after, *aside;
  } rows[] = {{"missing", nullptr, "abc", "abc", ""},
              {"empty", "", "abc", "abc", ""},
              {"appended", "abc", "def", "abcdef", ""},
              {"full to the byte", "1234567", "890", "1234567890", ""},
              {"one byte more", "1234567", "8901", "8901", "1234567"},
              {"full already", "1234567890", "a", "a", "1234567890"},
              {"larger than allowed, alone", "", "12345678901", "12345678901", ""},
              {"larger than allowed", "a", "12345678901", "12345678901", "a"}};
  for (const auto& row : rows) {
    const TemporaryFolder folder;
    if (row.before) folder.file("log", row.before);
    EXPECT_TRUE(can_append(folder.path_to("log"))) << row.what;
    EXPECT_TRUE(append_to_file(folder.path_to("log"), row.bytes, largest)) << row.what;
    EXPECT_EQ(bytes_of(folder.path() / "log"), row.after) << row.what;
    EXPECT_EQ(bytes_of(folder.path() / "log.1"), row.aside) << row.what;
  }
}

TEST(AppendToFile, KeepsOnePredecessor) {
  const TemporaryFolder folder;
  for (const char* bytes : {"11111111", "22222222", "33333333"})
    EXPECT_TRUE(append_to_file(folder.path_to("log"), bytes, largest));
  EXPECT_EQ(bytes_of(folder.path() / "log"), "33333333");
  EXPECT_EQ(bytes_of(folder.path() / "log.1"), "22222222");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 2);
}

TEST(AppendToFile, IsEmptiedWhereItCannotBeRenamed) {
  const TemporaryFolder folder;
  folder.file("log", "1234567890");
  fs::create_directories(folder.path() / "log.1" / "in the way");
  EXPECT_TRUE(append_to_file(folder.path_to("log"), "new", largest));
  EXPECT_EQ(bytes_of(folder.path() / "log"), "new");
}

#ifndef _WIN32  // FIFOs and links are made as POSIX systems make them

TEST(AppendToFile, WritesRegularFilesOnlyAndNeverWaits) {
  const TemporaryFolder folder;
  const std::string victim = folder.file("victim", "kept");
  const struct {
    const char* name;
    std::function<void(const std::string&)> make;
  } rows[] = {{"fifo", [](const std::string& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0); }},
              {"link", [&](const std::string& path) { fs::create_symlink(victim, path); }},
              {"dangling link", [&](const std::string& path) { fs::create_symlink(victim + "2", path); }},
              {"folder", [](const std::string& path) { fs::create_directory(path); }}};
  for (const auto& row : rows) {
    row.make(folder.path_to(row.name));
    EXPECT_FALSE(can_append(folder.path_to(row.name))) << row.name;
    EXPECT_FALSE(append_to_file(folder.path_to(row.name), "entry", largest)) << row.name;
  }
  for (const std::string& path : {folder.path_to("missing/log"), victim + "/log"}) {
    EXPECT_FALSE(can_append(path)) << path;
    EXPECT_FALSE(append_to_file(path, "entry", largest)) << path;
  }
  EXPECT_EQ(bytes_of(victim), "kept");
  EXPECT_FALSE(fs::exists(victim + "2"));
}

TEST(AppendToFile, LeavesNoDescriptorOpen) {
  const TemporaryFolder folder;
  const auto next_descriptor = [] {
    const int descriptor = ::open("/dev/null", O_RDONLY);
    ::close(descriptor);
    return descriptor;
  };
  const int before = next_descriptor();
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(append_to_file(folder.path_to("log"), "entry", 100));
  EXPECT_TRUE(can_append(folder.path_to("log")));
  EXPECT_EQ(next_descriptor(), before);
}

TEST(AppendToFile, AFifoThatSomebodyReadsTakesNothing) {
  const TemporaryFolder folder;
  const std::string path = folder.path_to("fifo");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  const int reader = ::open(path.c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  EXPECT_FALSE(append_to_file(path, "entry", largest));
  char byte = 0;
  EXPECT_LE(::read(reader, &byte, 1), 0);
  ::close(reader);
}

TEST(AppendToFile, ALinkInThePlaceOfThePredecessorIsReplaced) {
  const TemporaryFolder folder;
  const std::string victim = folder.file("victim", "kept");
  folder.file("log", "1234567890");
  fs::create_symlink(victim, folder.path() / "log.1");
  EXPECT_TRUE(append_to_file(folder.path_to("log"), "new", largest));
  EXPECT_EQ(bytes_of(victim), "kept");
  EXPECT_FALSE(fs::is_symlink(folder.path() / "log.1"));
  EXPECT_EQ(bytes_of(folder.path() / "log.1"), "1234567890");
}

#endif

}  // namespace
}  // namespace automation
