#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "hosts/vestara/failure.h"
#include "hosts/vestara/file_source.h"
#include "hosts/vestara/output_file.h"
#include "hosts/vestara/temporary_file.h"
#include "hosts/vestara/zip_source.h"
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
    return failure.code();
  }
}

TEST(FileSource, ReadsAllBytes) {
  const TemporaryFolder folder;
  const std::string bytes("a\0b\r\n", 5);
  EXPECT_EQ(read_source(folder.file("x", bytes)), bytes);
  EXPECT_EQ(read_source(folder.file("empty", "")), "");
  EXPECT_EQ(code_of([&] { read_source(folder.path_to("missing")); }), ExitCode::file);
  EXPECT_EQ(code_of([&] { read_source(folder.path().string()); }), ExitCode::file);
}

TEST(ZipSource, RefusesWhatIsDamaged) {
  EXPECT_TRUE(is_zip(std::string_view("PK\x03\x04rest")));
  EXPECT_FALSE(is_zip("PK"));
  EXPECT_FALSE(is_zip("date,wheel"));
  EXPECT_EQ(code_of([] { only_file_of_zip("PK\x03\x04rest", "x.zip"); }), ExitCode::file);
  const std::string empty = std::string("PK\x05\x06") + std::string(18, '\0');
  EXPECT_EQ(code_of([&] { only_file_of_zip(empty, "x.zip"); }), ExitCode::file);
}

TEST(TemporaryFile, CanBeReadAgainAndAgainAndGoesAway) {
  std::string path;
  {
    const TemporaryFile file("some bytes");
    path = file.path();
    for (int i = 0; i < 2; ++i) EXPECT_EQ(bytes_of(path), "some bytes");
  }
  EXPECT_FALSE(std::filesystem::exists(path));
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

TEST(OutputFile, DevicesAreWrittenInPlace) {
  std::ostringstream unused;
  OutputFile file("/dev/null", unused);
  file.write("x");
  file.finish();
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
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
