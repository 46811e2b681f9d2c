#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <sstream>

#include "tests/support/temporary_folder.h"
#include "vestara/files/file_source.h"
#include "vestara/files/gzip_source.h"
#include "vestara/files/system_reason.h"
#include "vestara/files/zip_source.h"
#include "vestara/foundation/failure.h"

namespace vestara {
namespace {

using testing_support::bytes_of;
using testing_support::TemporaryFolder;

/// What the failure of a body is about; "worked" when there is none.
std::string outcome_of(const std::function<void()>& body) {
  try {
    body();
    return "worked";
  } catch (const Failure& failure) {
    return failure.kind() == FailureKind::file ? "file" : "another kind";
  }
}

TEST(FileSource, ReadsAllBytes) {
  const TemporaryFolder folder;
  const std::string bytes("a\0b\r\n", 5);
  EXPECT_EQ(read_source(folder.file("x", bytes)), bytes);
  EXPECT_EQ(read_source(folder.file("empty", "")), "");
  EXPECT_EQ(outcome_of([&] { read_source(folder.path_to("missing")); }), "file");
  EXPECT_EQ(outcome_of([&] { read_source(folder.path().string()); }), "file");
}

TEST(FileSource, HasALimit) {
  const TemporaryFolder folder;
  const std::string path = folder.file("x", "");
  std::filesystem::resize_file(path, largest_input + 1);
  try {
    read_source(path);
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.kind(), FailureKind::file);
    EXPECT_EQ(std::string(failure.what()).substr(0, path.size() + 28), path + " holds more than 256 MiB, wh");
  }
}

TEST(FileSource, SaysWhatTheProcessRanOutOf) {
  struct Row {
    int code;
    const char* text;
  };
  for (const Row& row : {Row{EACCES, "Permission denied; do this"},
                         {EMFILE, "Too many open files; this process may open more when ulimit -n is raised"},
                         {ENFILE, "Too many open files in system; other programs have too many files open"},
                         {ENOMEM, "Cannot allocate memory; other programs have to end first"}})
    EXPECT_EQ(system_reason(row.code, "do this"), row.text);
}

/// "draws" as gzip writes it.
const std::string packed_draws(
    "\x1f\x8b\x08\x00\x00\x00\x00\x00\x00\x03\x4b\x29\x4a\x2c\x2f\x06\x00\x27\x20\xc1\x8b\x05\x00\x00\x00", 25);

TEST(GzipSource, ReadsAllMembers) {
  const TemporaryFolder folder;
  EXPECT_EQ(read_source(folder.file("x.gz", packed_draws)), "draws");
  EXPECT_EQ(unpacked_gzip(packed_draws + packed_draws, "x"), "drawsdraws");
  EXPECT_EQ(unpacked_gzip(packed_draws + "rest", "x"), "draws");
}

TEST(GzipSource, RefusesWhatIsDamaged) {
  for (size_t length = 3; length < packed_draws.size(); ++length)
    EXPECT_EQ(outcome_of([&] { unpacked_gzip(packed_draws.substr(0, length), "x"); }), "file") << length;
  std::string changed = packed_draws;
  changed[12] = static_cast<char>(changed[12] ^ 1);
  EXPECT_EQ(outcome_of([&] { unpacked_gzip(changed, "x"); }), "file");
}

TEST(ZipSource, RefusesWhatIsDamaged) {
  EXPECT_TRUE(is_zip(std::string_view("PK\x03\x04rest")));
  EXPECT_FALSE(is_zip("PK"));
  EXPECT_FALSE(is_zip("date,wheel"));
  EXPECT_EQ(outcome_of([] { only_file_of_zip("PK\x03\x04rest", "x.zip"); }), "file");
  const std::string empty = std::string("PK\x05\x06") + std::string(18, '\0');
  EXPECT_EQ(outcome_of([&] { only_file_of_zip(empty, "x.zip"); }), "file");
}

}  // namespace
}  // namespace vestara
