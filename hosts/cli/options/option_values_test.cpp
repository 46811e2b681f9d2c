#include "hosts/cli/options/option_values.h"

#include <gtest/gtest.h>

#include "hosts/cli/failure.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

/// The value, or "usage: " and the text before the ";".
template <class Read>
std::string outcome(Read&& read) {
  try {
    return read();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.kind(), FailureKind::argument);
    const std::string what = failure.what();
    EXPECT_NE(what.find("; "), std::string::npos) << what;
    return "usage: " + what.substr(0, what.find("; "));
  }
}

TEST(OptionValues, Numbers) {
  struct Row {
    std::vector<std::string> pieces;
    const char* outcome;
  };
  const std::vector<Row> rows{{{"53"}, "53"},
                              {{"5,12,33"}, "5,12,33"},
                              {{"5", "12", "33"}, "5,12,33"},
                              {{"5, 12", "33,"}, "5,12,33"},
                              {{"05"}, "5"},
                              {{"90", "1"}, "90,1"},
                              {{""}, "usage: NUMBERS: none given"},
                              {{}, "usage: NUMBERS: none given"},
                              {{"0"}, "usage: NUMBERS: \"0\" is not one of 1 to 90"},
                              {{"91"}, "usage: NUMBERS: \"91\" is not one of 1 to 90"},
                              {{"5,x"}, "usage: NUMBERS: \"x\" is not one of 1 to 90"},
                              {{"5;6"}, "usage: NUMBERS: \"5;6\" is not one of 1 to 90"},
                              {{"1) OR (1=1"}, "usage: NUMBERS: \"1) OR (1=1\" is not one of 1 to 90"},
                              {{"5,05"}, "usage: NUMBERS: 5 comes twice"}};
  for (const Row& row : rows) EXPECT_EQ(outcome([&] { return numbers_value(row.pieces).text; }), row.outcome);
  EXPECT_EQ(numbers_value({"5,12", "33"}).count, 3U);
}

TEST(OptionValues, Hits) {
  struct Row {
    const char* text;
    const char* outcome;
  };
  for (const Row& row : {Row{"1", "1"},
                         {"5", "5"},
                         {"ambata", "1"},
                         {"AMBO", "2"},
                         {"terno", "3"},
                         {"Quaterna", "4"},
                         {"cinquina", "5"},
                         {"0", "usage: --hits \"0\" is not known"},
                         {"6", "usage: --hits \"6\" is not known"},
                         {"", "usage: --hits \"\" is not known"}})
    EXPECT_EQ(outcome([&] { return std::to_string(hits_value(row.text)); }), row.outcome);
}

TEST(OptionValues, Wheels) {
  struct Row {
    const char* text;
    const char* outcome;
  };
  for (const Row& row : {Row{"all", "all"},
                         {"ALL", "all"},
                         {"cities", "BA,CA,FI,GE,MI,NA,PA,RM,TO,VE"},
                         {"BA", "BA"},
                         {"napoli,ro, nz", "NA,RM,RN"},
                         {"BA,ba", "BA"},
                         {"XX", "usage: --wheels \"XX\" is not known"},
                         {"BA,", "usage: --wheels \"\" is not known"},
                         {"", "usage: --wheels \"\" is not known"}})
    EXPECT_EQ(outcome([&] {
                const WheelSelection selection = wheels_value(row.text);
                return selection.all ? "all" : selection.codes;
              }),
              row.outcome);
}

TEST(OptionValues, Dates) {
  struct Row {
    const char* text;
    const char* outcome;
  };
  for (const Row& row : {Row{"1945-01-01", "1945-01-01"},
                         {"1/2/1945", "1945-02-01"},
                         {"1945-02-30", "usage: --to \"1945-02-30\" is no date"},
                         {"yesterday", "usage: --to \"yesterday\" is no date"},
                         {"45", "usage: --to \"45\" is no date"},
                         {"1945-01-01 12:00", "usage: --to \"1945-01-01 12:00\" is no date"}})
    EXPECT_EQ(outcome([&] { return shown_day(day_value("--to", row.text)); }), row.outcome);
  EXPECT_FALSE(day_bound("--to", ""));
  EXPECT_THROW(check_range(2, 1), Failure);
  EXPECT_NO_THROW(check_range(1, 1));
  EXPECT_NO_THROW(check_range(2, std::nullopt));
}

TEST(OptionValues, NumbersOfAWheel) {
  struct Row {
    const char* text;
    const char* outcome;
  };
  for (const Row& row : {Row{"53,31,88,28,77", "53 31 88 28 77 "},
                         {"01, 2 ,3,4,90", "1 2 3 4 90 "},
                         {"1,2,3,4", "usage: --VE \"1,2,3,4\": these are 4 numbers"},
                         {"1,2,3,4,5,6", "usage: --VE \"1,2,3,4,5,6\": these are 6 numbers"},
                         {"1 2 3 4 5", "usage: --VE \"1 2 3 4 5\": these are 1 number"},
                         {"1,2,3,4,", "usage: --VE \"1,2,3,4,\": \"\" is no number"},
                         {"1,2,3,4,x", "usage: --VE \"1,2,3,4,x\": \"x\" is no number"},
                         {"0,2,3,4,5", "usage: --VE \"0,2,3,4,5\": number 0 is not one of 1 to 90"},
                         {"1,2,3,4,91", "usage: --VE \"1,2,3,4,91\": number 91 is not one of 1 to 90"},
                         {"1,2,3,4,1", "usage: --VE \"1,2,3,4,1\": number 1 comes twice"}})
    EXPECT_EQ(outcome([&] {
                std::string numbers;
                for (const int8_t number : drawn_numbers_value("--VE", row.text))
                  numbers += std::to_string(number) + " ";
                return numbers;
              }),
              row.outcome);
}

TEST(OptionValues, WholeNumbers) {
  struct Row {
    const char* text;
    const char* outcome;
  };
  for (const Row& row : {Row{"1", "1"},
                         {"32767", "32767"},
                         {"0", "usage: --contest \"0\" cannot be"},
                         {"32768", "usage: --contest \"32768\" cannot be"},
                         {"99999999999999999999", "usage: --contest \"99999999999999999999\" cannot be"},
                         {"1.5", "usage: --contest \"1.5\" cannot be"},
                         {"", "usage: --contest \"\" cannot be"}})
    EXPECT_EQ(outcome([&] { return std::to_string(whole_value("--contest", row.text, 1, 32767)); }), row.outcome);
}

TEST(OptionValues, Choices) {
  EXPECT_EQ(output_format("JSONL"), OutputFormat::jsonl);
  EXPECT_EQ(colour_choice("never"), ColourChoice::never);
  EXPECT_EQ(draw_format("update"), DrawFormat::update);
  EXPECT_EQ(outcome([] { return output_format("xml"), ""; }), "usage: --format \"xml\" is not known");
  EXPECT_EQ(outcome([] { return colour_choice("yes"), ""; }), "usage: --color \"yes\" is not known");
  EXPECT_EQ(outcome([] { return draw_format("json"), ""; }), "usage: --as \"json\" is not known");
  EXPECT_EQ(count_value("--seed", "18446744073709551615"), 18446744073709551615ULL);
  EXPECT_EQ(outcome([] { return std::to_string(count_value("--seed", "-1")); }),
            "usage: --seed \"-1\" is no whole number");
}

}  // namespace
}  // namespace vestara::host
