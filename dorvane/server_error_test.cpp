#include "dorvane/server_error.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvane {
namespace {

TEST(ServerError, SaysWhatToDo) {
  using enum Refusal;
  const struct {
    Refusal refusal;
    int32_t number;
    const char* advice;
  } rows[] = {{statement, automation::unspecified_failure, "engine: why; in: SELECT 1"},
              {permission, 70, "engine: why; ask for the right"},
              {missing, automation::unspecified_failure, "engine: why; CreateSchema makes"},
              {busy, 70, "engine: why; another program is changing the archive"},
              {too_long, automation::unspecified_failure, "engine: why; statement_timeout in the URL"},
              {full, 61, "engine: why; free some space"},
              {connection, automation::unspecified_failure, "engine: why; what was not kept is lost"},
              {no_session, automation::unspecified_failure, "engine: why; look whether the server runs"}};
  for (const auto& row : rows) {
    const ServerError error(row.refusal, "engine", "why", "SELECT 1");
    EXPECT_EQ(error.refusal(), row.refusal);
    EXPECT_EQ(error.kind(), automation::FailureKind::database);
    EXPECT_EQ(error.context()->engine, "engine");
    EXPECT_EQ(error.context()->statement, "SELECT 1");
    EXPECT_EQ(error.number(), row.number) << row.advice;
    EXPECT_EQ(error.description().rfind(row.advice, 0), 0U) << error.description();
    EXPECT_TRUE(error.description().ends_with("; in: SELECT 1")) << error.description();
  }
}

TEST(ServerError, ReasonsAreOneLineAndStatementsAreCut) {
  const std::string longest(160, 's');
  const struct {
    std::string reason;
    std::string statement;
    std::string description;
  } rows[] = {{"a\nb\tc\n", "", "engine: a b c"},
              {"", "", "engine: "},
              {"\n \n", "x", "engine: ; in: x"},
              {"a", longest, "engine: a; in: " + longest},
              {"a", longest + "s", "engine: a; in: " + longest + "…"}};
  for (const auto& row : rows)
    EXPECT_EQ(ServerError(Refusal::statement, "engine", row.reason, row.statement).description(), row.description);
}

}  // namespace
}  // namespace dorvane
