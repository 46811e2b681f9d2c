#include "hosts/cli/options/system_values.h"

#include <gtest/gtest.h>

#include "hosts/cli/failure.h"

namespace vestara::host {
namespace {

/// What is wrong with the arguments, up to what would be right; "" when nothing is.
std::string refusal(const std::string& command, const SystemArguments& given) {
  try {
    system_options(command, given);
    return {};
  } catch (const vestara::Failure& failure) {
    EXPECT_EQ(failure.kind(), FailureKind::argument);
    const std::string what = failure.what();
    return what.substr(0, what.find("; "));
  }
}

TEST(SystemValues, Generate) {
  struct Row {
    const char* set;
    const char* number;
    bool strict;
    const char* refusal;
  };
  for (const Row& row :
       {Row{"twins", "", false, ""}, Row{"Twins", "", true, ""}, Row{"twins", "1", false, "twins takes no number"},
        Row{"ending", "", false, "ending needs a number"}, Row{"ending", "90", false, ""},
        Row{"ending", "91", false, "N \"91\" cannot be"},
        Row{"ending", "11", true, "ending 11 has no whole list in 1 to 90"}, Row{"ending", "0", true, ""},
        Row{"fibonacci", "0", false, ""}, Row{"fibonacci", "0", true, "fibonacci 0 has no whole list in 1 to 90"},
        Row{"tens", "81", true, ""}, Row{"tens", "90", true, ""},
        Row{"tens", "82", true, "tens 82 has no whole list in 1 to 90"},
        Row{"tens", "0", true, "tens 0 has no whole list in 1 to 90"}, Row{"figure", "9", true, ""},
        Row{"figure", "10", true, "figure 10 has no whole list in 1 to 90"},
        Row{"pairs", "", false, "SET \"pairs\" is not known"}}) {
    SystemArguments given;
    given.set = row.set;
    given.set_number = row.number;
    given.strict = row.strict;
    EXPECT_EQ(refusal("generate", given), row.refusal) << row.set << row.number;
  }
}

TEST(SystemValues, Random) {
  struct Row {
    const char* count;
    const char* from;
    const char* to;
    bool repeat;
    const char* refusal;
  };
  for (const Row& row :
       {Row{"90", "1", "90", false, ""}, Row{"5", "3", "7", false, ""},
        Row{"91", "1", "90", false, "--count 91: from 1 to 90 there are 90 different numbers"},
        Row{"2", "7", "7", false, "--count 2: from 7 to 7 there are 1 different number"},
        Row{"91", "1", "90", true, ""}, Row{"1", "9", "8", false, "--from 9 is larger than --to 8"},
        Row{"0", "1", "90", false, "--count \"0\" cannot be"}, Row{"x", "1", "90", false, "--count \"x\" cannot be"},
        Row{"1000001", "1", "90", true, "--count \"1000001\" cannot be"},
        Row{"1", "-1", "90", false, "--from \"-1\" cannot be"}, Row{"1", "0", "1073741823", false, ""},
        Row{"1", "0", "1073741824", false, "--to \"1073741824\" cannot be"}}) {
    SystemArguments given;
    given.count = row.count;
    given.from = row.from;
    given.to = row.to;
    given.repeat = row.repeat;
    EXPECT_EQ(refusal("random", given), row.refusal) << row.count;
  }
}

TEST(SystemValues, Others) {
  struct Row {
    const char* command;
    SystemArguments given;
    const char* refusal;
  };
  for (const Row& row :
       {Row{"integral", {.numbers = {"1,2", "3"}, .size = "3"}, ""},
        Row{"integral", {.numbers = {"1,2"}, .size = "3"}, "--size 3 cannot come of 2 numbers"},
        Row{"integral", {.numbers = {"1,2"}, .size = "0"}, "--size \"0\" cannot be"},
        Row{"integral",
            {.numbers = {"1"}, .size = "1", .output = "f", .count_only = true},
            "--count-only and --output exclude each other"},
        Row{"save", {.source = "f", .bets = "32768"}, "--bets \"32768\" cannot be"},
        Row{"save", {.source = "f", .guarantee = "-1"}, "--guarantee \"-1\" cannot be"},
        Row{"save", {.source = "f", .replacing = "0"}, "--id \"0\" cannot be"}, Row{"list", {}, ""},
        Row{"list", {.chosen = "0"}, "--numbers \"0\" cannot be"},
        Row{"list", {.kind = "x' OR 'a"}, "--kind \"x' OR 'a\" cannot be"}, Row{"list", {.kind = "U2"}, ""},
        Row{"show", {.id = "0"}, "ID \"0\" cannot be"}, Row{"show", {.id = "a"}, "ID \"a\" cannot be"},
        Row{"show", {.id = "1", .chosen = "1,1"}, "NUMBERS: 1 comes twice"},
        Row{"convert", {.source = "0", .chosen = "1"}, "ID \"0\" cannot be"},
        Row{"convert", {.source = "./0", .chosen = "1"}, ""}, Row{"convert", {.source = "1"}, "NUMBERS: none given"},
        Row{"delete", {.id = "2147483648"}, "ID \"2147483648\" cannot be"}})
    EXPECT_EQ(refusal(row.command, row.given), row.refusal) << row.command;
}

}  // namespace
}  // namespace vestara::host
