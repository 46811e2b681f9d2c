#include "vestara/files/system_file.h"

#include <gtest/gtest.h>

#include "vestara/foundation/combination_lines.h"
#include "vestara/foundation/failure.h"

namespace vestara {
namespace {

/// The combinations with "|" between them, or what is wrong behind the rule.
std::string outcome(std::string_view text) {
  try {
    std::string all;
    const SystemFile file = parse_system_file(text, "f");
    for (const std::string_view line : combination_lines(file.combinations)) all.append(line).append("|");
    EXPECT_EQ(file.count, combination_lines(file.combinations).size());
    return all;
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.kind(), FailureKind::file);
    const std::string what = failure.what();
    const std::string rule = "; a line is a combination, different numbers of 1 to 90";
    const auto place = what.find(rule);
    EXPECT_NE(place, std::string::npos) << what;
    return what.substr(0, place) + what.substr(place + rule.size());
  }
}

TEST(SystemFile, Forms) {
  struct Row {
    std::string_view text;
    const char* outcome;
  };
  for (const Row& row :
       {Row{"1,2,3\n4,5,6\n", "1,2,3|4,5,6|"}, Row{"1,2,3\r\n4,5,6", "1,2,3|4,5,6|"}, Row{"90 1\t2 , 3\n", "90,1,2,3|"},
        Row{" 05,007, ,9,\n", "5,7,9|"}, Row{"\xEF\xBB\xBF# mine\n\n \t\r\n1,2 # first\n#3,4\n", "1,2|"},
        Row{"5", "5|"}, Row{"1,2\n1,2\n", "1,2|1,2|"}, Row{"", "f holds no combinations"},
        Row{"# nothing\n\n", "f holds no combinations"},
        Row{"1,91\n", "f has 1 problem\n  line 1: \"91\" is not one of 1 to 90"},
        Row{"1,2\n\n0,-3,x,2.5\n",
            "f has 4 problems\n  line 3: \"0\" is not one of 1 to 90\n"
            "  line 3: \"-3\" is not one of 1 to 90\n  line 3: \"x\" is not one of 1 to 90\n"
            "  line 3: \"2.5\" is not one of 1 to 90"},
        Row{"99999999999999999999999\n",
            "f has 1 problem\n  line 1: \"99999999999999999999999\" is not one of 1 to 90"},
        Row{"7,8,07,8,8\n",
            "f has 3 problems\n  line 1: 7 comes twice\n  line 1: 8 comes twice\n"
            "  line 1: 8 comes twice"},
        Row{"1\n,,\n", "f has 1 problem\n  line 2: separators without a number"},
        Row{"1,2;3\n", "f has 1 problem\n  line 1: \"2;3\" is not one of 1 to 90"}, Row{"1,2\r3,4\r", "1,2|3,4|"}})
    EXPECT_EQ(outcome(row.text), row.outcome) << row.text;
}

TEST(SystemFile, NamesTwentyProblems) {
  std::string text;
  for (int32_t line = 0; line < 25; ++line) text += "91\n";
  const std::string told = outcome(text);
  EXPECT_EQ(told.substr(0, told.find('\n')), "f has 25 problems");
  EXPECT_EQ(told.substr(told.find("line 20")), "line 20: \"91\" is not one of 1 to 90\n  and 5 more");
}

TEST(SystemFile, SaysWhichLinesAreOfAnotherLength) {
  const SystemFile file = parse_system_file("# two\n1,2\n3,4,5\n6,7\n8\n", "f");
  EXPECT_EQ(file.size, 3U);
  EXPECT_EQ(file.count, 4U);
  ASSERT_EQ(file.odd_lengths.size(), 2U);
  EXPECT_EQ(file.odd_lengths[0].line, 3U);
  EXPECT_EQ(file.odd_lengths[0].text, "3 numbers, line 2 has 2");
  EXPECT_EQ(file.odd_lengths[1].line, 5U);
  EXPECT_EQ(file.odd_lengths[1].text, "1 number, line 2 has 2");
}

}  // namespace
}  // namespace vestara
