#include "vestara/foundation/error_log.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "automation/date.h"
#include "tests/support/log_capture.h"

namespace vestara {
namespace {

using automation::RunTimeError;
using testing_support::bytes_of;
using testing_support::LogCapture;
using testing_support::TemporaryFolder;

/// Logs and returns what became of the label.
std::string log_error(std::string label, const RunTimeError& error) {
  WriteErrLog(label, error);
  return label;
}

TEST(ErrorLog, FirstErrorCreatesTheFileAndItsFirstBytesAreCrLf) {
  const LogCapture log;
  EXPECT_FALSE(std::filesystem::exists(log_path()));
  log_error("cLotto.SalvaEstrazione()", RunTimeError(3021, "No current record."));
  std::string bytes = log.bytes();
  for (size_t i = 2; i < std::min<size_t>(21, bytes.size()); ++i)
    if (bytes[i] >= '0' && bytes[i] <= '9') bytes[i] = '9';
  EXPECT_EQ(bytes,
            "\r\n99/99/9999 99:99:99- Procedura: cLotto.SalvaEstrazione()\r\n"
            "Desc.: No current record.\r\nErrore N.: 3021\r\n");
}

TEST(ErrorLog, TimeIsTheLocalTimeOfTheEntry) {
  const LogCapture log;
  const auto before = automation::now();
  log_error("a()", RunTimeError(6));
  const auto time = automation::parse_date(log.entries().at(0).time);
  ASSERT_TRUE(time);
  EXPECT_LE(before, *time);
  EXPECT_LE(*time, automation::now());
  EXPECT_EQ(log.entries().at(0).time.size(), 19U);
}

TEST(ErrorLog, TwoErrorsInARowKeepTheirOrderAndTheEarlierText) {
  const LogCapture log;
  log_error("first()", RunTimeError(6));
  const std::string earlier = log.bytes();
  log_error("second()", RunTimeError(9));
  EXPECT_EQ(log.bytes().substr(0, earlier.size() + 2), earlier + "\r\n");
  const auto entries = log.entries();
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0].label, "first()");
  EXPECT_EQ(entries[0].description, "Overflow");
  EXPECT_EQ(entries[1].label, "second()");
  EXPECT_EQ(entries[1].number, 9);
}

TEST(ErrorLog, AppendsToWhatLiesThere) {
  const LogCapture log;
  const TemporaryFolder other;
  other.file("ErrVestara.log", "old text");
  set_log_folder(other.path().string());
  log_error("a()", RunTimeError(6));
  EXPECT_EQ(bytes_of(log_path()).substr(0, 10), "old text\r\n");
  EXPECT_EQ(log.bytes(), "");
}

TEST(ErrorLog, DescriptionsAndNumbers) {
  const struct {
    const char* what;
    RunTimeError error;
    const char* expected;
  } rows[] = {{"empty description", {5, ""}, "\r\nDesc.: \r\nErrore N.: 5\r\n"},
              {"negative number", {-2147217900, "Syntax"}, "\r\nDesc.: Syntax\r\nErrore N.: -2147217900\r\n"},
              {"no current error", {0, ""}, "\r\nDesc.: \r\nErrore N.: 0\r\n"},
              {"code page 1252", {1, "perch\u00E9 \u20AC"}, "\r\nDesc.: perch\xE9 \x80\r\nErrore N.: 1\r\n"},
              {"unknown character", {1, "\u03A9m"}, "\r\nDesc.: ?m\r\nErrore N.: 1\r\n"}};
  for (const auto& row : rows) {
    const LogCapture log;
    log_error("a()", row.error);
    const std::string bytes = log.bytes(), expected = "- Procedura: a()" + std::string(row.expected);
    ASSERT_GE(bytes.size(), expected.size()) << row.what;
    EXPECT_EQ(bytes.substr(bytes.size() - expected.size()), expected) << row.what;
  }
}

TEST(ErrorLog, LabelComesBackAsTheEntry) {
  const LogCapture log;
  const std::string label = log_error("cLotto.X()", RunTimeError(13));
  EXPECT_EQ("\r\n" + label + "\r\n", log.bytes());
  EXPECT_TRUE(label.ends_with("- Procedura: cLotto.X()\r\nDesc.: Type mismatch\r\nErrore N.: 13")) << label;
}

TEST(ErrorLog, EntryThatCannotBeWrittenIsLostAndNothingElse) {
  const LogCapture log;
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "ErrVestara.log");
  for (const auto& where : {folder.path(), folder.path() / "missing", folder.path() / "ErrVestara.log" / "deep"}) {
    set_log_folder(where.string());
    EXPECT_TRUE(log_error("a()", RunTimeError(6)).ends_with("Errore N.: 6"));
  }
  set_log_folder(log.folder());
  log_error("b()", RunTimeError(6));
  EXPECT_EQ(log.entries().size(), 1U);
}

TEST(ErrorLog, FolderComesFromTheEnvironment) {
  const TemporaryFolder folder;
  set_log_folder({});
  const std::filesystem::path usual = log_path();
  EXPECT_EQ(usual.filename(), "ErrVestara.log");
  EXPECT_TRUE(std::filesystem::is_directory(usual.parent_path())) << usual;
  ::setenv("VESTARA_LOG_DIR", folder.path().c_str(), 1);
  EXPECT_EQ(log_path(), (folder.path() / "ErrVestara.log").string());
  log_error("a()", RunTimeError(6));
  EXPECT_FALSE(bytes_of(folder.path() / "ErrVestara.log").empty());
  ::unsetenv("VESTARA_LOG_DIR");
  EXPECT_EQ(log_path(), usual.string());
}

}  // namespace
}  // namespace vestara
