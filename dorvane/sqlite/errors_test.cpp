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

using SqliteErrors = testing_support::SqliteArchive;

/// The error that `body` raises, as "number description".
std::string raised(const std::function<void()>& body) {
  try {
    body();
    return "nothing";
  } catch (const automation::RunTimeError& error) {
    return std::to_string(error.number()) + " " + error.description();
  }
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
    const char* number;
    const char* advice;
  } rows[] = {
      {[&] { open("sqlite:" + folder_.path_to("missing/a")); }, "76 ", "is the folder there"},
      {[&] { open("sqlite:" + text); }, "75 ", "another file was named"},
      {[&] { reader->execute("DELETE FROM storico"); }, "70 ", "the archive can be read only"},
      {[&] { other->begin(); }, "70 ", "another program is changing the archive"},
      {[&] { reader->query("WITH a AS (SELECT 1) DELETE FROM storico"); }, "5 ", "readers run one SELECT"},
      {[&] { reader->query("SELECT missing"); }, "-2147467259 ", "no such column: missing; in: SELECT missing"}};
  for (const auto& row : rows) {
    const std::string error = raised(row.body);
    EXPECT_EQ(error.rfind(row.number, 0), 0U) << error;
    EXPECT_NE(error.find(row.advice), std::string::npos) << error;
  }
}

TEST_F(SqliteErrors, StatementsAreShownUpToALength) {
  const auto connection = open_connection(parse_url(url()));
  const std::string longest = "SELECT " + std::string(153, 'n');
  for (const auto& [statement, shown] :
       {std::pair{longest, "; in: " + longest}, {longest + "n", "; in: " + longest + "…"}}) {
    const std::string error = raised([&, text = statement] { connection->query(text); });
    EXPECT_TRUE(error.ends_with(shown)) << error;
  }
}

}  // namespace
}  // namespace dorvane::sqlite
