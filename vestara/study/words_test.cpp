#include "vestara/study/words.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/values.h"
#include "vestara/study/set_families.h"

namespace vestara::study {
namespace {

using automation::Empty;
using automation::Missing;
using automation::Null;
using automation::Variant;
using testing_support::day;

/// What a reader makes of its words, or the sentence of its error 5.
template <class Read>
std::string read(Read reader) {
  try {
    return reader();
  } catch (const automation::RunTimeError& error) {
    EXPECT_EQ(error.number(), 5) << error.description();
    return error.description();
  }
}

constexpr const char* wheels_that_are =
    " is no wheel; wheels are BA, CA, FI, GE, MI, NA, PA, RM, TO, VE, RN, or alone cities, tutte or all";

TEST(Words, Wheels) {
  const struct {
    const char* text;
    std::string wheels;
  } rows[] = {{"VE", "VE"},
              {" na , ba", "BA+NA"},
              {"rn", "RN"},
              {"", "all"},
              {"  ", "all"},
              {"ALL", "all"},
              {"tutte", "tutte"},
              {" Cities ", "tutte"},
              {"BA,CA,FI,GE,MI,NA,PA,RM,TO,VE", "tutte"},
              {"RN,BA,CA,FI,GE,MI,NA,PA,RM,TO,VE", "all"},
              {"XX", std::string("\"XX\"") + wheels_that_are},
              {"BA,", std::string("\"\"") + wheels_that_are},
              {"BA;CA", std::string("\"BA;CA\"") + wheels_that_are},
              {"Roma", std::string("\"Roma\"") + wheels_that_are},
              {"tutte,RN", std::string("\"tutte\"") + wheels_that_are},
              {"BA,all", std::string("\"all\"") + wheels_that_are},
              {"BA,ba", "wheel ba stands twice in \"BA,ba\"; each stands once"}};
  for (const auto& row : rows) EXPECT_EQ(read([&] { return wheels_in(row.text).name(); }), row.wheels) << row.text;
}

TEST(Words, Numbers) {
  constexpr const char* list = " is no list of numbers; numbers are 1 to 90, written like 5,12,33 or 1..16";
  const struct {
    const char* text;
    std::string numbers;
  } rows[] = {{"5,12,33", "5,12,33"},
              {"5-12-33", "5,12,33"},
              {"5.12.33", "5,12,33"},
              {"5 12 33", "5,12,33"},
              {" 33 , 5,12 ", "5,12,33"},
              {"05 9", "5,9"},
              {"1..4", "1,2,3,4"},
              {"90,1..3,10..11", "1,2,3,10,11,90"},
              {"7..7", "7"},
              {"90", "90"},
              {"0", "0 in \"0\" is no number of the game; numbers are 1 to 90"},
              {"5,91", "91 in \"5,91\" is no number of the game; numbers are 1 to 90"},
              {"99999999999", "99999999999 in \"99999999999\" is no number of the game; numbers are 1 to 90"},
              {"1..91", "91 in \"1..91\" is no number of the game; numbers are 1 to 90"},
              {"5,12,5", "number 5 stands twice in \"5,12,5\"; each number of a list stands once"},
              {"1..4,3", "number 3 stands twice in \"1..4,3\"; each number of a list stands once"},
              {"9..5", "the range 9..5 in \"9..5\" goes backwards; a range is written like 1..16"},
              {"", std::string("\"\"") + list},
              {" ", std::string("\" \"") + list},
              {"5,", std::string("\"5,\"") + list},
              {",5", std::string("\",5\"") + list},
              {"5,,6", std::string("\"5,,6\"") + list},
              {"-5", std::string("\"-5\"") + list},
              {"5;6", std::string("\"5;6\"") + list},
              {"1...4", std::string("\"1...4\"") + list},
              {"cinque", std::string("\"cinque\"") + list}};
  for (const auto& row : rows)
    EXPECT_EQ(read([&] { return number_text(numbers_in(row.text)); }), row.numbers) << row.text;
}

TEST(Words, Sets) {
  const auto names = [](const char* text) {
    std::string joined;
    for (const NamedNumbers& set : sets_in(text)) joined += (joined.empty() ? "" : "|") + set.name;
    return joined;
  };
  const struct {
    const char* text;
    std::string sets;
  } rows[] = {
      {"3,2,1;6 5 4", "1,2,3|4,5,6"},
      {"1..3", "1,2,3"},
      {" gemelli ", "11,22,33,44,55,66,77,88"},
      {"CADENZE", "1|2|3|4|5|6|7|8|9|0"},
      {"1,2;", "\"\" is no list of numbers; numbers are 1 to 90, written like 5,12,33 or 1..16"},
      {"1,2;decine", "\"decine\" is no list of numbers; numbers are 1 to 90, written like 5,12,33 or 1..16"},
      {"decina",
       "\"decina\" is no set; sets are lists of numbers joined by \";\" like 1,2,3;4,5,6, or one of the families "
       "decine, "
       "decine-popolari, cadenze, figure, gemelli, vertibili, diametrali"},
      {"",
       "\"\" is no set; sets are lists of numbers joined by \";\" like 1,2,3;4,5,6, or one of the families decine, "
       "decine-popolari, cadenze, figure, gemelli, vertibili, diametrali"}};
  for (const auto& row : rows) EXPECT_EQ(read([&] { return names(row.text); }), row.sets) << row.text;
}

TEST(Words, Periods) {
  const auto shown = [](const std::optional<int32_t>& bound) {
    return bound ? automation::iso_day(automation::Date::from_day(*bound)) : std::string("none");
  };
  const struct {
    Variant since, until;
    std::string period;
  } rows[] = {{Missing{}, Missing{}, "none none"},
              {Null{}, Empty{}, "none none"},
              {day(2005, 2, 9), Missing{}, "2005-02-09 none"},
              {"9/2/2005", "2005-02-09", "2005-02-09 2005-02-09"},
              {Missing{}, testing_support::moment({2005, 2, 9, 21, 30, 0}), "none 2005-02-09"},
              {"x", Missing{}, "Since is \"x\", which is no date; 2005-02-09 and 9/2/2005 are dates"},
              {Missing{}, "2005-02-30", "Until is \"2005-02-30\", which is no date; 2005-02-09 and 9/2/2005 are dates"},
              {38392, Missing{}, "Since is \"38392\", which is no date; 2005-02-09 and 9/2/2005 are dates"},
              {"2005-02-10", "2005-02-09",
               "Since 2005-02-10 lies after Until 2005-02-09; the first day of a period comes first"}};
  for (const auto& row : rows)
    EXPECT_EQ(read([&] {
                const DrawPeriod period = period_in(row.since, row.until);
                return shown(period.since) + " " + shown(period.until);
              }),
              row.period);
}

TEST(Words, Rankings) {
  const struct {
    const char* word;
    std::string by;
  } rows[] = {{"delay", "0"},
              {"Times", "1"},
              {" record ", "2"},
              {"Z", "3"},
              {"", "By is \"\"; groups are ranked by delay, times, record or z"},
              {"expected", "By is \"expected\"; groups are ranked by delay, times, record or z"}};
  for (const auto& row : rows)
    EXPECT_EQ(read([&] { return std::to_string(static_cast<int>(ranked_by(row.word))); }), row.by);
}

TEST(Words, WheelsPlayed) {
  const std::string whole =
      "; a whole number of wheels is 1 to 11, and otherwise wheels are BA, CA, FI, GE, MI, NA, PA, RM, TO, VE, RN, or "
      "alone cities, tutte or all";
  const struct {
    Variant wheels;
    std::string count;
  } rows[] = {{Missing{}, "1"},
              {1, "1"},
              {11.0, "11"},
              {"10", "10"},
              {"tutte", "10"},
              {"", "11"},
              {"VE,BA", "2"},
              {0, "Wheels is 0" + whole},
              {12, "Wheels is 12" + whole},
              {1.5, "Wheels is 1.5" + whole},
              {"X", std::string("\"X\"") + wheels_that_are}};
  for (const auto& row : rows) EXPECT_EQ(read([&] { return std::to_string(wheels_played(row.wheels)); }), row.count);
}

TEST(Words, NumbersWithinBounds) {
  constexpr int32_t endless = std::numeric_limits<int32_t>::max();
  const struct {
    int32_t value, least, most;
    std::string result;
  } rows[] = {{2, 2, 5, "2"},
              {5, 2, 5, "5"},
              {1, 2, 5, "Size is 1; it is 2 to 5"},
              {6, 2, 5, "Size is 6; it is 2 to 5"},
              {0, 1, endless, "Size is 0; it is 1 or more"}};
  for (const auto& row : rows)
    EXPECT_EQ(read([&] { return std::to_string(within("Size", row.value, row.least, row.most)); }), row.result);
  EXPECT_EQ(most_hits(3), 3);
  EXPECT_EQ(most_hits(10), 5);
}

}  // namespace
}  // namespace vestara::study
