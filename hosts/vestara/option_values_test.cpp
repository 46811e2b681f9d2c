#include "hosts/vestara/option_values.h"

#include <gtest/gtest.h>

#include "hosts/vestara/failure.h"
#include "hosts/vestara/shown_text.h"

namespace vestara::host {
namespace {

/// The value, or "usage: " and the text before the ";".
template <class Read>
std::string outcome(Read&& read) {
  try {
    return read();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.code(), ExitCode::usage);
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
