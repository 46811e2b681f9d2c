#include "dorvane/sqlite/archive_file.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/sqlite_archive.h"

namespace dorvane::sqlite {
namespace {

TEST(ArchiveFile, SettingsAreTheUrlsOrTheUsualOnes) {
  const struct {
    const char* options;
    int timeout, reading_limit, changing_limit;
    const char* durability;
  } rows[] = {{"", 5000, 60000, 600000, "full"},
              {"?timeout=20000", 20000, 20000, 600000, "full"},
              {"?timeout=1001", 1001, 1001, 600000, "full"},
              {"?timeout=50", 50, 1000, 600000, "full"},
              {"?timeout=0", 0, 1000, 600000, "full"},
              {"?statement_timeout=7", 5000, 7, 7, "full"},
              {"?statement_timeout=0&timeout=50", 50, 0, 0, "full"},
              {"?durability=normal", 5000, 60000, 600000, "normal"}};
  for (const auto& row : rows) {
    const FileSettings settings = file_settings(parse_url(std::string("sqlite:a.sqlite") + row.options));
    EXPECT_EQ(settings.path, "a.sqlite");
    EXPECT_EQ(settings.timeout, row.timeout) << row.options;
    EXPECT_EQ(settings.reading_limit, row.reading_limit) << row.options;
    EXPECT_EQ(settings.changing_limit, row.changing_limit) << row.options;
    EXPECT_EQ(settings.durability, row.durability) << row.options;
  }
}

TEST(ArchiveFile, ModesAreWhatTheEngineIsAskedFor) {
  const struct {
    const char* options;
    int flags;
  } rows[] = {{"", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE},
              {"?mode=create", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE},
              {"?mode=rw", SQLITE_OPEN_READWRITE},
              {"?mode=ro", SQLITE_OPEN_READONLY}};
  for (const auto& row : rows)
    EXPECT_EQ(file_settings(parse_url(std::string("sqlite:a.sqlite") + row.options)).open_flags, row.flags)
        << row.options;
}

#if !defined(_WIN32)  // where no file may have such names

using FrozenArchive = testing_support::SqliteArchive;

TEST_F(FrozenArchive, IsReachedByItsPathWhateverCharactersItHas) {
  created();
  const std::string archive = testing_support::bytes_of(folder_.path_to("archive.sqlite"));
  for (const char* name : {"plain", "a?b", "a#b", "a%b", "a%41b", "a?mode=rw", "a b&c", "è"}) {
    const std::string path = folder_.file(name, archive);
    const Database frozen = open_frozen(path);
    EXPECT_STREQ(sqlite3_db_filename(frozen.get(), "main"), path.c_str());
    EXPECT_EQ(sqlite3_db_readonly(frozen.get(), "main"), 1) << name;
    EXPECT_EQ(sqlite3_exec(frozen.get(), "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr), SQLITE_OK)
        << name;
  }
}

#endif

}  // namespace
}  // namespace dorvane::sqlite
