#include "vestara/foundation/selection.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"

namespace vestara {
namespace {

using automation::Date;
using automation::Missing;
using automation::Null;
using automation::Variant;
using testing_support::day;

TEST(WheelFilter, SplitsAListOnce) {
  const struct {
    const char *what, *wheels;
    size_t count;
    const char *quoted, *plain;
  } rows[] = {{"nothing", "", 0, "", ""},
              {"blanks", "  ", 0, "", ""},
              {"one", "BA", 1, "'BA'", "BA"},
              {"two", "BA,NA", 2, "'BA','NA'", "BA,NA"},
              {"pieces are not trimmed", " BA, NA", 2, "' BA',' NA'", " BA, NA"},
              {"a trailing comma is an empty alias", "BA,", 2, "'BA',''", "BA,"},
              {"quotes go from the plain list", "B'A,'NA'", 2, "'B'A',''NA''", "BA,NA"}};
  for (const auto& row : rows) {
    const WheelFilter filter = WheelFilter::listed(row.wheels);
    EXPECT_EQ(filter.count(), row.count) << row.what;
    EXPECT_EQ(filter.quoted(), row.quoted) << row.what;
    EXPECT_EQ(filter.plain(), row.plain) << row.what;
  }
}

TEST(WheelFilter, OwnsItsAliases) {
  WheelFilter filter;
  {
    const std::string list = "a long alias,and a second one that does not fit in place";
    filter = WheelFilter::listed(list);
  }
  EXPECT_EQ(filter.plain(), "a long alias,and a second one that does not fit in place");
}

TEST(WheelFilter, HasATermForEveryAliasThatIsNotBlank) {
  const struct {
    const char *what, *prefix;
    std::vector<std::string> quoted;
    const char *suffix, *expected;
  } rows[] = {{"none", "ruota=", {}, "", ""},
              {"one", "ruota=", {"'BA'"}, "", "ruota='BA'"},
              {"two", "s.ruota=", {"'BA'", "' CA'"}, "", "s.ruota='BA' OR s.ruota=' CA'"},
              {"an empty wheel is a wheel", "ruota=", {"'BA'", "''"}, "", "ruota='BA' OR ruota=''"},
              {"blank items are none", "ruota=", {"", "  ", "'BA'", " "}, "", "ruota='BA'"},
              {"a suffix", "(ruota=", {"'BA'", "'CA'"}, " AND x)", "(ruota='BA' AND x) OR (ruota='CA' AND x)"}};
  for (const auto& row : rows)
    EXPECT_EQ(WheelFilter(row.quoted).terms(row.prefix, row.suffix), row.expected) << row.what;
}

TEST(DateBound, IsNoneADayOrNoDate) {
  const struct {
    const char* what;
    Variant value;
    bool is_set;
    std::optional<Date> expected;
  } rows[] = {{"missing", Missing{}, false, {}},
              {"Null", Null{}, false, {}},
              {"a date", day(2026, 11, 15), true, day(2026, 11, 15)},
              {"a text that reads as one", "15/11/2026", true, day(2026, 11, 15)},
              {"another text", "x", true, {}},
              {"an empty text", "", true, {}},
              {"Empty", automation::Empty{}, true, {}},
              {"a number", 46341, true, {}}};
  for (const auto& row : rows) {
    const DateBound bound = DateBound::given(row.value);
    EXPECT_EQ(bound.is_set(), row.is_set) << row.what;
    EXPECT_EQ(bound.day(), row.expected) << row.what;
  }
  EXPECT_FALSE(DateBound(std::optional<Date>()).is_set());
  EXPECT_EQ(DateBound(std::optional(day(2026, 1, 2))).day(), day(2026, 1, 2));
}

}  // namespace
}  // namespace vestara
