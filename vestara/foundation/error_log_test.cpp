#include "vestara/foundation/error_log.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "automation/date.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"

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
  const TemporaryFolder chosen;
  set_log_folder(chosen.path().string());
  EXPECT_EQ(log_path(), (chosen.path() / "ErrVestara.log").string());
  set_log_folder({});
  ::unsetenv("VESTARA_LOG_DIR");
  EXPECT_EQ(log_path(), usual.string());
}

std::string entry_of(std::string_view label, std::string_view description) {
  return log_entry(label, RunTimeError(6, std::string(description)), testing_support::moment({2005, 2, 9, 10, 5, 1}));
}

TEST(ErrorLog, EveryMomentHasATime) {
  const struct {
    automation::Date moment;
    const char* text;
  } rows[] = {{testing_support::day(2005, 2, 9), "09/02/2005 00:00:00"},
              {testing_support::moment({2005, 2, 9, 0, 0, 1}), "09/02/2005 00:00:01"},
              {testing_support::moment({2026, 12, 31, 23, 59, 59}), "31/12/2026 23:59:59"}};
  for (const auto& row : rows)
    EXPECT_EQ(log_entry("a()", RunTimeError(6), row.moment),
              std::string(row.text) + "- Procedura: a()\r\nDesc.: Overflow\r\nErrore N.: 6");
}

TEST(ErrorLog, NoTextForgesAnEntryOrGivesOrders) {
  const struct {
    const char *what, *text, *shown;
  } rows[] = {{"an entry in an entry", "x\r\nErrore N.: 6\r\n\r\n09/02/2005- Procedura: y()",
               "x??Errore N.: 6????09/02/2005- Procedura: y()"},
              {"line feed", "a\nb", "a?b"},
              {"a terminal's sequence", "\033]0;t\a", "?]0;t?"},
              {"in C1", "a\u009B2Jb", "a?2Jb"},
              {"direction", "\u202Egol.\u2066", "?gol.?"},
              {"no UTF-8", "a\xFF\xC3", "a??"},
              {"ordinary letters", "perch\u00E9 \u03A9", "perch\u00E9 \u03A9"}};
  for (const auto& row : rows) {
    const std::string plain = "09/02/2005 10:05:01- Procedura: ";
    EXPECT_EQ(entry_of("a()", row.text), plain + "a()\r\nDesc.: " + row.shown + "\r\nErrore N.: 6") << row.what;
    EXPECT_EQ(entry_of(row.text, ""), plain + row.shown + "\r\nDesc.: \r\nErrore N.: 6") << row.what;
  }
}

TEST(ErrorLog, EntriesAreBounded) {
  const LogCapture log;
  log_error(std::string(100000, 'l'), RunTimeError(6, std::string(100000, 'd')));
  EXPECT_EQ(log.entries().at(0).label, std::string(200, 'l') + "\x85");
  EXPECT_EQ(log.entries().at(0).description, std::string(2000, 'd') + "\x85");
}

TEST(ErrorLog, IsRotatedAtFourMebibytesAndKeepsOnePredecessor) {
  const LogCapture log;
  constexpr size_t largest = size_t{4} << 20U;
  const std::string full(largest - 10, 'x');
  const TemporaryFolder folder;
  set_log_folder(folder.path().string());
  folder.file("ErrVestara.log", full);
  folder.file("ErrVestara.log.1", "older");
  log_error("a()", RunTimeError(6));
  EXPECT_TRUE(bytes_of(folder.path() / "ErrVestara.log.1") == full);
  EXPECT_LT(bytes_of(folder.path() / "ErrVestara.log").size(), 100U);
  log_error("b()", RunTimeError(6));
  EXPECT_LT(bytes_of(folder.path() / "ErrVestara.log").size(), 200U);
}

TEST(ErrorLog, LiesInTheStateFolderWhereTheUsualOneCannotBeWritten) {
  const struct {
    const char *state_home, *home, *expected;
  } rows[] = {{"/s", "/h", "/s/vestara"},
              {"", "/h", "/h/.local/state/vestara"},
              {"s", "/h", "/h/.local/state/vestara"},
              {"", "", ""},
              {"s", "h", ""},
              {"./s", "~", ""}};
  const TemporaryFolder usable;
  const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
  for (const auto& row : rows) {
    ::setenv("XDG_STATE_HOME", row.state_home, 1);
    ::setenv("HOME", row.home, 1);
    EXPECT_EQ(state_folder(), row.expected) << row.state_home << ' ' << row.home;
    const std::string fallback =
        row.expected[0] ? std::string(row.expected) + "/ErrVestara.log" : "/no/such/ErrVestara.log";
    EXPECT_EQ(writable_log("/no/such"), fallback);
    EXPECT_EQ(writable_log(usable.path().string()), usable.path_to("ErrVestara.log"));
  }
  ::unsetenv("XDG_STATE_HOME");
  ::setenv("HOME", home.c_str(), 1);
}

TEST(ErrorLog, TheStateFolderIsMadeWithItsFirstEntry) {
  const TemporaryFolder folder;
  ::setenv("XDG_STATE_HOME", folder.path_to("state").c_str(), 1);
  set_log_folder(state_folder());
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "state"));
  log_error("a()", RunTimeError(6));
  EXPECT_FALSE(bytes_of(folder.path() / "state" / "vestara" / "ErrVestara.log").empty());
  set_log_folder({});
  ::unsetenv("XDG_STATE_HOME");
}

}  // namespace
}  // namespace vestara
