#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dorvane/connector.h"
#include "hosts/cli/in_process.h"
#include "tests/support/temporary_folder.h"

namespace vestara::host {
namespace {

/// A command behind `vestara system` over an archive without systems, and how its remark begins; "" for no remark.
struct Row {
  const char* words;
  const char* remark;
};

class SystemCommands : public testing::Test {
 protected:
  SystemCommands() {
    dorvane::DbConnector connector;
    EXPECT_TRUE(connector.Open("sqlite:" + folder_.path_to("a.sqlite")));
    EXPECT_TRUE(connector.CreateSchema());
  }

  void expect(const std::vector<Row>& rows) const {
    for (const Row& row : rows) {
      const Outcome outcome =
          run_in_process("--db sqlite:@/a.sqlite system " + std::string(row.words), folder_.path().string());
      const std::string expected = *row.remark == '\0' ? "" : "vestara: " + std::string(row.remark) + "; ";
      EXPECT_EQ(outcome.err.substr(0, expected.size()), expected) << row.words;
      EXPECT_EQ(outcome.err.empty(), expected.empty()) << row.words << outcome.err;
      EXPECT_NE(outcome.out.empty(), expected.empty()) << row.words << outcome.out;
    }
  }

  testing_support::TemporaryFolder folder_;
};

TEST_F(SystemCommands, Sets) {
  expect({{"generate twins", ""},
          {"generate Twins --strict", ""},
          {"generate twins 1", "twins takes no number"},
          {"generate ending", "ending needs a number"},
          {"generate ending 90", ""},
          {"generate ending 91", "N \"91\" cannot be"},
          {"generate ending 11 --strict", "ending 11 has no whole list in 1 to 90"},
          {"generate ending 0 --strict", ""},
          {"generate fibonacci 0", ""},
          {"generate fibonacci 0 --strict", "fibonacci 0 has no whole list in 1 to 90"},
          {"generate tens 81 --strict", ""},
          {"generate tens 90 --strict", ""},
          {"generate tens 82 --strict", "tens 82 has no whole list in 1 to 90"},
          {"generate tens 0 --strict", "tens 0 has no whole list in 1 to 90"},
          {"generate figure 9 --strict", ""},
          {"generate figure 10 --strict", "figure 10 has no whole list in 1 to 90"},
          {"generate pairs", "SET \"pairs\" is not known"}});
}

TEST_F(SystemCommands, RandomNumbers) {
  expect({{"random --count 90", ""},
          {"random --count 5 --from 3 --to 7", ""},
          {"random --count 91", "--count 91: from 1 to 90 there are 90 different numbers"},
          {"random --count 2 --from 7 --to 7", "--count 2: from 7 to 7 there are 1 different number"},
          {"random --count 91 --repeat", ""},
          {"random --count 1 --from 9 --to 8", "--from 9 is larger than --to 8"},
          {"random --count 0", "--count \"0\" cannot be"},
          {"random --count x", "--count \"x\" cannot be"},
          {"random --count 1000001 --repeat", "--count \"1000001\" cannot be"},
          {"random --count 1 --from=-1", "--from \"-1\" cannot be"},
          {"random --count 1 --from 0 --to 1073741823", ""},
          {"random --count 1 --from 0 --to 1073741824", "--to \"1073741824\" cannot be"}});
}

TEST_F(SystemCommands, Others) {
  expect({{"integral 1,2 3 --size 3", ""},
          {"integral 1,2 --size 3", "--size 3 cannot come of 2 numbers"},
          {"integral 1,2 --size 0", "--size \"0\" cannot be"},
          {"integral 1 --size 1 --output @/f --count-only", "--count-only and --output exclude each other"},
          {"save @/f --title t --bets 32768", "--bets \"32768\" cannot be"},
          {"save @/f --title t --guarantee -1", "--guarantee \"-1\" cannot be"},
          {"save @/f --title t --id 0", "--id \"0\" cannot be"},
          {"list --numbers 0", "--numbers \"0\" cannot be"},
          {"list --kind x'OR'a", "--kind \"x'OR'a\" cannot be"},
          {"list --kind U2", "no such system is saved"},
          {"show 0", "ID \"0\" cannot be"},
          {"show a", "ID \"a\" cannot be"},
          {"show 1 --numbers 1,1", "NUMBERS: 1 comes twice"},
          {"convert 0 --numbers 1", "ID \"0\" cannot be"},
          {"convert 1 --numbers ,", "NUMBERS: none given"},
          {"delete 2147483648", "ID \"2147483648\" cannot be"}});
}

}  // namespace
}  // namespace vestara::host
