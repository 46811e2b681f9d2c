#include "hosts/cli/programming/member_path.h"

#include <gtest/gtest.h>

#include "dorvane/connector.h"
#include "hosts/cli/failure.h"
#include "tests/support/values.h"

namespace vestara::host {
namespace {

std::string outcome(const char* path) {
  dorvane::DbConnector connector;
  connector.Open("sqlite::memory:");
  std::string refusal;
  const std::string result = testing_support::outcome([&]() -> automation::Variant {
    try {
      return follow(connector, path);
    } catch (const Failure& failure) {
      refusal = std::string("usage: ") + failure.what();
      return automation::Empty{};
    }
  });
  return refusal.empty() ? result : refusal;
}

TEST(MemberPath, LeadsFromMemberToMember) {
  struct Row {
    const char* path;
    const char* outcome;
  };
  const std::string hint = " is no way to an object; write it as Fields.Item(0)";
  for (const Row& row : {Row{"ConnectionState", "Long 1"},
                         {"GetRecordset('SELECT 1 AS n').Fields.Item(0).Name", "text n"},
                         {" GetRecordset( \"SELECT 'a.b)' AS t\" ) . Fields( T ) . Value ", "text a.b)"},
                         {"GetRecordset('SELECT max(1) AS n').Fields().Count", "Long 1"},
                         {"GetRecordset(SELECT max(7) AS n).Fields(n).Value", "Long 7"},
                         {"GetRecordset('SELECT 1').Fields( ).Count", "Long 1"},
                         {"GetRecordset('SELECT 1').Fields(,).Count", "error 450"},
                         {"GetRecordset('SELECT 1').Fields(3).Name", "error 3265"},
                         {"GetRecordset", "error 449"},
                         {"GetRecordset('nonsense').Fields", "error 91"},
                         {"ConnectionState.Value", "error 91"},
                         {"Nonsense", "error 438"},
                         {"", "usage: \"\""},
                         {"a..b", "usage: \"\""},
                         {"Fields(0", "usage: \"Fields(0\""},
                         {"Fields)0(", "usage: \"Fields)0(\""},
                         {"Fields(0)x", "usage: \"Fields(0)x\""},
                         {"Fields('0)", "usage: \"Fields('0)\""},
                         {"Fields(0)(1)", "usage: \"0)(1\""},
                         {"Fie lds", "usage: \"Fie lds\""}}) {
    const bool is_refused = std::string_view(row.outcome).starts_with("usage");
    EXPECT_EQ(outcome(row.path), row.outcome + (is_refused ? hint : "")) << row.path;
  }
}

}  // namespace
}  // namespace vestara::host
