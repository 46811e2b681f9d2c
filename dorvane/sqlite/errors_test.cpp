#include "dorvane/sqlite/errors.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "automation/error.h"
#include "dorvane/connection.h"
#include "tests/support/sqlite_archive.h"

namespace dorvane::sqlite {
namespace {

using automation::Refusal;
using automation::RunTimeError;
using SqliteErrors = testing_support::SqliteArchive;

/// The error that `body` raises.
RunTimeError raised(const std::function<void()>& body) {
  try {
    body();
  } catch (const RunTimeError& error) {
    return error;
  }
  return {0, "nothing was raised"};
}

TEST_F(SqliteErrors, HaveTheirNumberAndSayWhatToDo) {
  created();
  const std::string text = folder_.file("text", std::string(5000, 'x'));
  const auto open = [](const std::string& given) { return open_connection(parse_url(given)); };
  const auto reader = open(url("?mode=ro"));
  const auto writer = open(url());
  const auto other = open(url("?timeout=1"));
  writer->begin();
  const struct {
    std::function<void()> body;
    int32_t number;
    const char* advice;
    Refusal refusal;
    const char* statement;
  } rows[] = {
      {[&] { open("sqlite:" + folder_.path_to("missing/a")); }, 76, "is the folder there", Refusal::no_session, ""},
      {[&] { open("sqlite:" + text); }, 75, "another file was named", Refusal::no_session, nullptr},
      {[&] { reader->execute("DELETE FROM ruote"); }, 70, "the archive can be read only", Refusal::permission,
       "DELETE FROM ruote"},
      {[&] { other->begin(); }, 70, "another program is changing the archive", Refusal::busy, "BEGIN IMMEDIATE"},
      {[&] { reader->query("SELECT missing"); }, automation::unspecified_failure,
       "no such column: missing; in: SELECT missing", Refusal::statement, "SELECT missing"}};
  for (const auto& row : rows) {
    const RunTimeError error = raised(row.body);
    EXPECT_EQ(error.number(), row.number) << error.description();
    EXPECT_NE(error.description().find(row.advice), std::string::npos) << error.description();
    ASSERT_NE(error.context(), nullptr) << error.description();
    EXPECT_EQ(error.context()->engine, "sqlite");
    EXPECT_EQ(error.context()->refusal, row.refusal) << error.description();
    if (row.statement) {
      EXPECT_EQ(error.context()->statement, row.statement);
    }
  }
  const RunTimeError guarded = raised([&] { reader->query("WITH a AS (SELECT 1) DELETE FROM storico"); });
  EXPECT_EQ(guarded.number(), 5);
  EXPECT_NE(guarded.description().find("readers run one SELECT"), std::string::npos) << guarded.description();
}

TEST_F(SqliteErrors, StatementsAreShownUpToALength) {
  const auto connection = open_connection(parse_url(url()));
  const std::string longest = "SELECT " + std::string(153, 'n');
  for (const auto& [statement, shown] :
       {std::pair{longest, "; in: " + longest}, {longest + "n", "; in: " + longest + "…"}}) {
    const std::string error = raised([&, text = statement] { connection->query(text); }).description();
    EXPECT_TRUE(error.ends_with(shown)) << error;
  }
}

}  // namespace
}  // namespace dorvane::sqlite
