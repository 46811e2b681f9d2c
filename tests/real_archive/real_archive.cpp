#include "tests/real_archive/real_archive.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/archive_file.h"

namespace real_archive {

namespace {

void load(dorvane::DbConnector& archive) {
  const auto draws = testing_support::archive_in_file(path());
  archive.BeginTrans();
  for (const auto& statement : testing_support::insert_statements(draws))
    EXPECT_TRUE(archive.ExecuteSql(statement)) << archive.LastError();
  archive.CommitTrans();
  EXPECT_GT(draws.size(), 100000U) << path();
}

}  // namespace

std::string path() {
  const char* given = std::getenv("VESTARA_REAL_ARCHIVE");
  return given ? given : "";
}

automation::Ref<dorvane::DbConnector> connector() {
  static const automation::Ref<dorvane::DbConnector> archive = [] {
    auto fresh = automation::make<dorvane::DbConnector>();
    EXPECT_TRUE(fresh->Open("sqlite::memory:") && fresh->CreateSchema()) << fresh->LastError();
    load(*fresh);
    return fresh;
  }();
  return archive;
}

}  // namespace real_archive
