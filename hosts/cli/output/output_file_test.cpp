#include "hosts/cli/output/output_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <sstream>

#include "hosts/cli/failure.h"
#include "tests/support/temporary_folder.h"

namespace vestara::host {
namespace {

using testing_support::bytes_of;
using testing_support::TemporaryFolder;

size_t files_in(const TemporaryFolder& folder) {
  return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(folder.path()), {}));
}

ExitCode code_of(const std::function<void()>& body) {
  try {
    body();
    return ExitCode::ok;
  } catch (const Failure& failure) {
    return exit_code(failure.kind());
  }
}

TEST(OutputFile, TakesItsNameWhenItIsWhole) {
  const TemporaryFolder folder;
  const std::string path = folder.file("x", "before");
  std::ostringstream unused;
  {
    OutputFile file(path, unused);
    file.write("half");
    EXPECT_EQ(bytes_of(path), "before");
  }
  EXPECT_EQ(bytes_of(path), "before");
  EXPECT_EQ(files_in(folder), 1U);
  OutputFile file(path, unused);
  file.write("one ");
  file.write("two");
  file.finish();
  EXPECT_EQ(bytes_of(path), "one two");
  EXPECT_EQ(files_in(folder), 1U);
  EXPECT_EQ(unused.str(), "");
}

TEST(OutputFile, ALinkStaysALink) {
  const TemporaryFolder folder;
  const std::string target = folder.file("target", "before");
  std::filesystem::create_symlink(target, folder.path() / "link");
  std::ostringstream unused;
  OutputFile file(folder.path_to("link"), unused);
  file.write("after");
  file.finish();
  EXPECT_EQ(bytes_of(target), "after");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link"));
}

TEST(OutputFile, ALinkToNothingYetStaysALink) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink("target", folder.path() / "link");
  std::ostringstream unused;
  OutputFile file(folder.path_to("link"), unused);
  file.write("after");
  file.finish();
  EXPECT_EQ(bytes_of(folder.path() / "target"), "after");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link"));
}

TEST(OutputFile, EveryHardLinkHasTheNewContents) {
  const TemporaryFolder folder;
  const std::string path = folder.file("x", "before, and longer");
  std::filesystem::create_hard_link(path, folder.path() / "y");
  std::ostringstream unused;
  {
    OutputFile file(path, unused);
    file.write("half");
  }
  EXPECT_EQ(bytes_of(folder.path() / "y"), "before, and longer");
  OutputFile file(path, unused);
  file.write("after");
  EXPECT_EQ(bytes_of(path), "before, and longer");
  file.finish();
  for (const char* name : {"x", "y"}) EXPECT_EQ(bytes_of(folder.path() / name), "after");
  EXPECT_EQ(std::filesystem::hard_link_count(path), 2U);
  EXPECT_EQ(files_in(folder), 2U);
}

mode_t mode_of(const std::filesystem::path& path) {
  struct stat status {};
  EXPECT_EQ(::lstat(path.c_str(), &status), 0);
  return status.st_mode & 07777;
}

TEST(OutputFile, ModesAreThoseOfTheFileThatWasThereOrTheUsersOwn) {
  const TemporaryFolder folder;
  const mode_t before = ::umask(027);
  for (const mode_t mode : {0600, 0640, 0777, 0444}) {
    const std::string path = folder.file("x", "before");
    ::chmod(path.c_str(), mode);
    std::ostringstream unused;
    OutputFile file(path, unused);
    file.finish();
    EXPECT_EQ(mode_of(path), mode);
    std::filesystem::remove(path);
  }
  std::ostringstream unused;
  OutputFile file(folder.path_to("new"), unused);
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) EXPECT_EQ(mode_of(entry.path()), 0600U);
  file.finish();
  EXPECT_EQ(mode_of(folder.path() / "new"), 0640U);
  ::umask(before);
}

TEST(OutputFile, RemovesWhatKilledProcessesLeftAndNothingElse) {
  const TemporaryFolder folder;
  folder.file(".vestara-part-killed", "half");
  folder.file("vestara-part-other", "mine");
  const std::string target = folder.file("target", "mine");
  std::filesystem::create_symlink(target, folder.path() / ".vestara-part-link");
  std::ostringstream unused;
  OutputFile first(folder.path_to("x"), unused);
  first.write("1");
  OutputFile second(folder.path_to("y"), unused);
  second.write("2");
  first.finish();
  second.finish();
  EXPECT_EQ(bytes_of(folder.path() / "x"), "1");
  EXPECT_EQ(bytes_of(folder.path() / "y"), "2");
  EXPECT_FALSE(std::filesystem::exists(folder.path() / ".vestara-part-killed"));
  EXPECT_EQ(bytes_of(target), "mine");
  EXPECT_EQ(files_in(folder), 5U);
}

TEST(OutputFile, PipesAreWrittenInPlace) {
  const TemporaryFolder folder;
  const std::string pipe = folder.path_to("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(reader, 0);
  std::ostringstream unused;
  OutputFile file(pipe, unused);
  file.write("x");
  file.finish();
  char byte = 0;
  EXPECT_EQ(::read(reader, &byte, 1), 1);
  EXPECT_EQ(byte, 'x');
  ::close(reader);
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
  EXPECT_EQ(files_in(folder), 1U);
}

TEST(OutputFile, SaysWhatCannotBeWritten) {
  const TemporaryFolder folder;
  std::ostringstream unused;
  EXPECT_EQ(code_of([&] { OutputFile(folder.path_to("no/x"), unused); }), ExitCode::file);
  EXPECT_EQ(code_of([&] { OutputFile(folder.path().string(), unused); }), ExitCode::file);
}

TEST(OutputFile, NoPathIsTheStream) {
  for (const char* path : {"", "-"}) {
    std::ostringstream out;
    OutputFile file(path, out);
    file.write("x");
    EXPECT_TRUE(file.is_open());
    file.finish();
    EXPECT_EQ(out.str(), "x");
    out.setstate(std::ios::badbit);
    EXPECT_FALSE(file.is_open());
  }
}

}  // namespace
}  // namespace vestara::host
