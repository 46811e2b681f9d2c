#include "dorvane/sqlite/like.h"

#include <gtest/gtest.h>

namespace dorvane::sqlite {
namespace {

TEST(Like, Cases) {
  struct Row {
    const char* text;
    const char* pattern;
    bool matches;
  };
  for (const Row& row : {Row{"ambo", "ambo", true},
                         Row{"ambo", "AMBO", true},
                         Row{"ambo", "amb", false},
                         Row{"ambo", "ambos", false},
                         Row{"", "", true},
                         Row{"", "%", true},
                         Row{"", "%%", true},
                         Row{"", "_", false},
                         Row{"ambo", "%", true},
                         Row{"ambo", "%m%", true},
                         Row{"ambo", "%o", true},
                         Row{"ambo", "a%", true},
                         Row{"ambo", "%x%", false},
                         Row{"ambo", "a__o", true},
                         Row{"ambo", "a_o", false},
                         Row{"aab", "%ab", true},
                         Row{"abab", "%ab", true},
                         Row{"abcabd", "%ab%d", true},
                         Row{"perché", "PERCHÉ", true},
                         Row{"perché", "perch_", true},
                         Row{"perche", "perché", false},
                         Row{"ÀÈÌÒÙ", "%àèìòù%", true},
                         Row{"Łódź", "łÓDŹ", true},
                         Row{"Ÿ", "ÿ", true},
                         Row{"×", "÷", false},
                         Row{"ΣΑΒ", "σαβ", true},
                         Row{"Жук", "ЖУК", true},
                         Row{"C:\\lotto", "%:\\l%", true},
                         Row{"ends \\", "%\\", true},
                         Row{"50% off", "50\\%%", false},
                         Row{"\xC3(", "\xC3(", true},
                         Row{"\xC3", "_", true},
                         Row{"a\xC3", "A%", true}})
    EXPECT_EQ(is_like(row.text, row.pattern), row.matches) << row.text << " like " << row.pattern;
}

}  // namespace
}  // namespace dorvane::sqlite
