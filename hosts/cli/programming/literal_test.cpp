#include "hosts/cli/programming/literal.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"

namespace vestara::host {
namespace {

TEST(Literal, TheWayItIsWrittenIsTheType) {
  struct Row {
    const char* word;
    const char* value;
  };
  for (const Row& row : {Row{"12", "Long 12"},
                         {"0", "Long 0"},
                         {"-7", "Long -7"},
                         {"2147483647", "Long 2147483647"},
                         {"2147483648", "Double 2147483648"},
                         {"1.5", "Double 1.5"},
                         {"1e3", "Double 1000"},
                         {"-2.5E-1", "Double -0.25"},
                         {"1e999", "text 1e999"},
                         {"05", "text 05"},
                         {"+5", "text +5"},
                         {".5", "text .5"},
                         {"5.", "text 5."},
                         {"5,12,33", "text 5,12,33"},
                         {"true", "True"},
                         {"FALSE", "False"},
                         {"null", "Null"},
                         {"Empty", "Empty"},
                         {"missing", "Missing"},
                         {"nothing", "Nothing"},
                         {"nulls", "text nulls"},
                         {"2005-02-09", "Date 38392"},
                         {"2005-02-09T10:30:00", "Date 38392.4375"},
                         {"2005-02-30", "text 2005-02-30"},
                         {"9/2/2005", "text 9/2/2005"},
                         {"\"12\"", "text 12"},
                         {"'true'", "text true"},
                         {"'it''s'", "text it's"},
                         {"\"a\"\"b\"", "text a\"b"},
                         {"'\"'", "text \""},
                         {"''", "text "},
                         {"'", "text '"},
                         {"'a", "text 'a"},
                         {"'a\"", "text 'a\""},
                         {"'a'b'", "text 'a'b'"},
                         {"'''", "text '''"},
                         {"", "text "},
                         {"BA,NA", "text BA,NA"}})
    EXPECT_EQ(testing_support::describe(literal(row.word)), row.value) << row.word;
}

}  // namespace
}  // namespace vestara::host
