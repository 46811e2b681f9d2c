#include <gtest/gtest.h>

#include "automation/error.h"
#include "automation/registry.h"
#include "tests/study/study_archive.h"
#include "tests/support/study_oracle.h"
#include "tests/support/values.h"

// Questions that have no answer: the error's number, and a sentence that names the value and what would be right.

namespace study_test {
namespace {

using testing_support::day;
using Words = std::vector<std::string>;

struct BadQuestion {
  Question question;
  Words words;  ///< that the sentence holds: the value, and what would be right
};

Words and_every_wheel(Words words) {
  const Words& codes = testing_support::all_aliases();
  words.insert(words.end(), codes.begin(), codes.end());
  return words;
}

const BadQuestion bad_questions[] = {
    {{"Draws", {{"Wheels", "XX"}}}, and_every_wheel({"XX"})},
    {{"Draws", {{"Wheels", "BA,XX"}}}, and_every_wheel({"XX"})},
    {{"Draws", {{"Wheels", "BA,CA,ba"}}}, {"BA"}},
    {{"Draws", {{"Wheels", "all,BA"}}}, {"all"}},
    {{"Draws", {{"Wheels", "BA,tutte"}}}, {"tutte"}},
    {{"Draws", {{"Since", day(2000, 1, 2)}, {"Until", day(2000, 1, 1)}}}, {}},
    {{"Search", {{"Numbers", "91"}}}, {"91", "1", "90"}},
    {{"Search", {{"Numbers", 0}}}, {"0", "1", "90"}},
    {{"Search", {{"Numbers", "5,5"}}}, {"5"}},
    {{"Search", {{"Numbers", "5,x"}}}, {"x"}},
    {{"Search", {{"Numbers", "5,12"}, {"Hits", 3}}}, {"3", "2"}},
    {{"Search", {{"Numbers", "5,12"}, {"Hits", 0}}}, {"0", "2"}},
    {{"Search", {{"Numbers", "5,12"}, {"Wheels", "ROMA"}}}, and_every_wheel({"ROMA"})},
    {{"Numbers", {{"Wheels", "Q"}}}, and_every_wheel({"Q"})},
    {{"Numbers", {{"Since", "02/01/2000"}, {"Until", "01/01/2000"}}}, {}},
    {{"Groups", {{"Size", 1}}}, {"1", "2", "5"}},
    {{"Groups", {{"Size", 6}}}, {"6", "2", "5"}},
    {{"Groups", {{"Size", 2}, {"By", "delays"}}}, {"delays", "delay", "times", "record", "z"}},
    {{"Groups", {{"Size", 2}, {"By", "expected"}}}, {"expected", "delay", "times", "record", "z"}},
    {{"Groups", {{"Size", 2}, {"Top", 0}}}, {"0", "1"}},
    {{"Groups", {{"Size", 5}, {"Top", -3}}}, {"-3", "1"}},
    {{"Groups", {{"Size", 2}, {"Wheels", "ZZ"}}}, and_every_wheel({"ZZ"})},
    {{"Sets", {{"Sets", "1,2;3,91"}}}, {"91", "1", "90"}},
    {{"Sets", {{"Sets", "1,2;3,3"}}}, {"3"}},
    {{"Sets", {{"Sets", "1,2,3;4,5"}, {"Hits", 3}}}, {"3", "2"}},
    {{"Sets", {{"Sets", "decine"}, {"Hits", 6}}}, {"6", "5"}},
    {{"Sets", {{"Sets", "decine"}, {"Hits", 0}}}, {"0", "5"}},
    {{"Sets", {{"Sets", "dozzine"}}}, {"dozzine"}},
    {{"Sets", {{"Sets", "vertibili"}, {"Hits", 3}}}, {"3", "2"}},
    {{"Gaps", {{"Numbers", "1,2"}, {"Hits", 3}}}, {"3", "2"}},
    {{"Gaps", {{"Numbers", "1,2"}, {"Hits", 0}}}, {"0", "2"}},
    {{"Gaps", {{"Numbers", "1,2,3,4,5,91"}}}, {"91", "1", "90"}},
    {{"Gaps", {{"Numbers", "7"}, {"Wheels", "XX"}}}, and_every_wheel({"XX"})},
    {{"Fairness", {{"Wheels", "XX"}}}, and_every_wheel({"XX"})},
    {{"Odds", {{"Count", 0}}}, {"0", "1", "90"}},
    {{"Odds", {{"Count", 91}}}, {"91", "1", "90"}},
    {{"Odds", {{"Count", 5}, {"Wheels", 0}}}, {"0", "1", "11"}},
    {{"Odds", {{"Count", 5}, {"Wheels", 12}}}, {"12", "1", "11"}},
    {{"Odds", {{"Count", 5}, {"Wheels", "XX"}}}, and_every_wheel({"XX"})}};

/// "error 5: …"; "answered" when nothing was raised.
std::string error_told(automation::Object& study, const Question& question) {
  try {
    ask(study, question);
    return "answered";
  } catch (const automation::RunTimeError& error) {
    return "error " + std::to_string(error.number()) + ": " + error.description();
  }
}

TEST_F(StudyArchive, BadQuestions) {
  for (const bool filled : {false, true}) {
    if (filled) store({{day(2000, 1, 1), 1, "BA", {5, 4, 3, 2, 1}}});
    for (const auto& [question, words] : bad_questions) {
      const std::string told = error_told(*study_, question);
      EXPECT_TRUE(told.starts_with("error 5: ")) << shown(question) << ": " << told;
      for (const auto& word : words)
        EXPECT_NE(told.find(word, 9), std::string::npos) << shown(question) << " says no " << word << ": " << told;
    }
  }
}

TEST_F(StudyArchive, WithoutAnArchive) {
  const auto study = automation::create_object("Vestara.Study");
  const Question questions[] = {{"Draws", {}},
                                {"Search", {{"Numbers", "5"}}},
                                {"Numbers", {}},
                                {"Groups", {{"Size", 2}}},
                                {"Sets", {{"Sets", "figure"}}},
                                {"Gaps", {{"Numbers", "5"}}},
                                {"Fairness", {}}};
  for (const auto& question : questions)
    EXPECT_TRUE(error_told(*study, question).starts_with("error 91: ")) << shown(question);
  EXPECT_EQ(disagreement(*study, {"Odds", {{"Count", 3}}}, testing_support::study::odds(3, 1), Walk::by_name), "");
}

}  // namespace
}  // namespace study_test
