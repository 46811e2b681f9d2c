#include "vestara/study/study.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/coercion.h"
#include "tests/support/connectors.h"
#include "tests/support/values.h"

// The class as a script calls it: members by name, arguments left out, named or of another type.

namespace vestara {
namespace {

using automation::InvokeKind;
using automation::make;
using automation::Missing;
using automation::Null;
using automation::Object;
using automation::Ref;
using automation::Variant;
using testing_support::day;
using Arguments = std::vector<Variant>;
using Names = std::vector<std::string_view>;
using Lines = std::vector<std::string>;

testing_support::Table two_wheels() {
  return {{"dtEstr", "ruota", "concorsoNumero", "estr1", "estr2", "estr3", "estr4", "estr5"},
          {{day(2001, 1, 6), "BA", 1, 5, 4, 3, 2, 1},
           {day(2001, 1, 13), "BA", 2, 9, 1, 6, 7, 8},
           {day(2001, 1, 13), "RN", Null{}, 90, 1, 2, 3, 4}}};
}

std::string shown(const Variant& value) {
  if (value.is_null()) return "Null";
  if (const auto* date = value.get_if<automation::Date>()) return automation::iso_day(*date);
  if (const auto* real = value.get_if<double>()) {
    std::array<char, 32> text{};
    return {text.data(), static_cast<size_t>(std::snprintf(text.data(), text.size(), "%.6g", *real))};
  }
  return automation::to_text(value);
}

/// A row of an answer, values joined by blanks.
std::string line_of(records::RecordSet& rows) {
  std::string line;
  for (int32_t i = 0; i < rows.column_count(); ++i) line += (i == 0 ? "" : " ") + shown(rows.value({i}));
  return line;
}

class StudyTest : public testing::Test {
 protected:
  StudyTest() {
    scripted_->default_answer = two_wheels();
    Arguments connector{Variant(Ref<Object>(scripted_))};
    object().call("ActiveConnection", InvokeKind::putref, connector);
  }
  Object& object() { return study_; }

  /// The first rows of what a member answers, or its error with number and sentence.
  Lines ask(std::string_view member, Arguments arguments = {}, const Names& names = {}, size_t most = 3) {
    try {
      const Variant answer = object().call(member, InvokeKind::method, arguments, names);
      const auto rows = automation::cast<records::RecordSet>(*answer.get_if<Ref<Object>>());
      Lines lines;
      for (; !rows->at_end() && lines.size() < most; rows->move_next()) lines.push_back(line_of(*rows));
      return lines;
    } catch (const automation::RunTimeError& error) {
      return {std::to_string(error.number()) + " " + error.description()};
    }
  }

  std::string columns(std::string_view member, Arguments arguments) {
    const Variant answer = object().call(member, InvokeKind::method, arguments);
    const auto rows = automation::cast<records::RecordSet>(*answer.get_if<Ref<Object>>());
    std::string line;
    for (int32_t i = 0; i < rows->column_count(); ++i) line += (i == 0 ? "" : " ") + rows->column_name({i});
    return line;
  }

  Ref<testing_support::ScriptedConnector> scripted_ = make<testing_support::ScriptedConnector>();
  Study study_;
};

TEST_F(StudyTest, AnswersHaveTheirColumns) {
  constexpr const char* figures = " draws times expected z delay last record record_from record_to";
  const struct {
    const char* member;
    Arguments arguments;
    std::string columns;
  } rows[] = {{"Draws", {}, "date contest wheel n1 n2 n3 n4 n5"},
              {"Search", {"1"}, "date contest wheel hits numbers drawn"},
              {"Numbers", {}, std::string("wheel number") + figures},
              {"Groups", {2}, std::string("rank wheel numbers") + figures},
              {"Sets", {"1,2"}, std::string("wheel set numbers") + figures},
              {"Gaps", {"1"}, "wheel from to draws days"},
              {"Fairness", {}, "wheel test statistic degrees p p_holm"},
              {"Odds", {1}, "bet chance one_in median_draws"}};
  for (const auto& row : rows) {
    EXPECT_EQ(columns(row.member, row.arguments), row.columns);
    scripted_->default_answer->rows.clear();
    study_.Refresh();
    EXPECT_EQ(columns(row.member, row.arguments), row.columns) << "no rows, the same columns";
    if (row.member != std::string("Odds")) {
      EXPECT_EQ(ask(row.member, row.arguments), Lines{});
    }
    scripted_->default_answer = two_wheels();
    study_.Refresh();
  }
}

TEST_F(StudyTest, EveryMember) {
  const struct {
    const char* member;
    Arguments arguments;
    Names names;
    Lines lines;
  } rows[] = {
      {"draws", {}, {}, {"2001-01-06 1 BA 5 4 3 2 1", "2001-01-13 2 BA 9 1 6 7 8", "2001-01-13 Null RN 90 1 2 3 4"}},
      {"Draws", {"rn", "13/1/2001", day(2001, 1, 13)}, {}, {"2001-01-13 Null RN 90 1 2 3 4"}},
      {"Draws", {day(2001, 1, 6), "tutte"}, {"Until", "Wheels"}, {"2001-01-06 1 BA 5 4 3 2 1"}},
      {"Search", {"1-90", 2}, {}, {"2001-01-13 Null RN 2 1,90 90,1,2,3,4"}},
      {"Search", {7}, {}, {"2001-01-13 2 BA 1 7 9,1,6,7,8"}},
      {"Numbers",
       {"BA"},
       {},
       {"BA 1 2 2 0.111111 5.83095 0 2001-01-13 0 Null Null",
        "BA 2 2 1 0.111111 2.74398 1 2001-01-06 1 2001-01-13 2001-01-13",
        "BA 3 2 1 0.111111 2.74398 1 2001-01-06 1 2001-01-13 2001-01-13"}},
      {"Groups",
       {2, "all", Missing{}, Missing{}, true, "times", 1},
       {},
       {"1 all 1,2 2 2 0.0074844 23.0796 0 2001-01-13 0 Null Null"}},
      {"Groups",
       {5, "RN", 1},
       {"Wheels", "Top"},
       {"1 RN 1,2,3,4,90 1 1 2.27535e-08 6629.42 0 "
        "2001-01-13 0 Null Null"}},
      {"Sets",
       {"1,2,3", 3, "BA"},
       {},
       {"BA 1,2,3 1,2,3 2 1 0.000170242 76.6322 1 2001-01-06 1 "
        "2001-01-13 2001-01-13"}},
      {"Gaps", {"1", Missing{}, "BA"}, {}, {"BA 2001-01-13 Null 0 Null", "BA 2001-01-06 2001-01-13 1 7"}},
      {"Gaps", {"1..9"}, {}, {"BA 2001-01-13 Null 0 Null", "BA 2001-01-06 2001-01-13 1 7"}},
      {"Gaps",
       {"1..9", "4", true},
       {"Hits", "Together"},
       {"all 2001-01-13 Null 0 Null", "all 2001-01-06 2001-01-13 1 7"}},
      {"Fairness",
       {"RN"},
       {},
       {"RN numbers Null Null Null Null", "RN pairs Null Null Null Null", "RN first Null Null Null Null"}},
      {"Odds", {1, 10}, {}, {"ambata 0.43537 2.2969 2"}},
      {"Odds", {1}, {}, {"ambata 0.0555556 18 13"}},
  };
  for (const auto& row : rows) EXPECT_EQ(ask(row.member, row.arguments, row.names), row.lines) << row.member;
}

TEST_F(StudyTest, WordsThatCannotBeReadAreErrors) {
  const struct {
    const char* member;
    Arguments arguments;
    Names names;
    const char* error;
  } rows[] = {
      {"Numbers",
       {"XX"},
       {},
       "5 \"XX\" is no wheel; wheels are BA, CA, FI, GE, MI, NA, PA, RM, TO, VE, RN, or alone cities, tutte or all"},
      {"Numbers", {"", "x"}, {}, "5 Since is \"x\", which is no date; 2005-02-09 and 9/2/2005 are dates"},
      {"Search", {"1,2", 3}, {}, "5 Hits is 3; it is 1 to 2"},
      {"Search", {"1..9", 6}, {}, "5 Hits is 6; it is 1 to 5"},
      {"Search", {"1,2", 0}, {}, "5 Hits is 0; it is 1 to 2"},
      {"Search", {"91"}, {}, "5 91 in \"91\" is no number of the game; numbers are 1 to 90"},
      {"Search", {}, {}, "449 Argument not optional"},
      {"Gaps", {"1,2", 3}, {}, "5 Hits is 3; it is 1 to 2"},
      {"Sets", {"1,2,3;4,5", 3}, {}, "5 Hits is 3; it is 1 to 2"},
      {"Sets", {"decine", 6}, {}, "5 Hits is 6; it is 1 to 5"},
      {"Groups", {1}, {}, "5 Size is 1; it is 2 to 5"},
      {"Groups", {6}, {}, "5 Size is 6; it is 2 to 5"},
      {"Groups", {2, 0}, {"Top"}, "5 Top is 0; it is 1 or more"},
      {"Groups", {2, "hits"}, {"By"}, "5 By is \"hits\"; groups are ranked by delay, times, record or z"},
      {"Odds", {0}, {}, "5 Count is 0; it is 1 to 90"},
      {"Odds", {91}, {}, "5 Count is 91; it is 1 to 90"},
      {"Numbers", {"", "", "", false, 1}, {}, "450 Wrong number of arguments or invalid property assignment"},
  };
  for (const auto& row : rows) EXPECT_EQ(ask(row.member, row.arguments, row.names), Lines{row.error}) << row.member;
}

TEST_F(StudyTest, WithoutAnArchiveThereIsNothingToAsk) {
  const struct {
    const char* member;
    Arguments arguments;
  } rows[] = {{"Draws", {}},        {"Search", {"1"}}, {"Numbers", {}}, {"Groups", {2}},
              {"Sets", {"decine"}}, {"Gaps", {"1"}},   {"Fairness", {}}};
  Arguments nothing{Variant(Ref<Object>())};
  object().call("ActiveConnection", InvokeKind::putref, nothing);
  for (const auto& row : rows)
    EXPECT_EQ(ask(row.member, row.arguments), Lines{"91 Object variable or With block variable not set"}) << row.member;
  EXPECT_EQ(ask("Odds", {1}), Lines{"ambata 0.0555556 18 13"});
  EXPECT_EQ(ask("Numbers", {"XX"})[0].substr(0, 2), "5 ");
  study_.Refresh();
}

TEST_F(StudyTest, TheConnectorComesBackAsItWasGiven) {
  Arguments none;
  EXPECT_TRUE(object().call("ActiveConnection", InvokeKind::get, none) == Variant(Ref<Object>(scripted_)));
}

TEST_F(StudyTest, ARefusedReadingIsRaised) {
  scripted_->default_answer.reset();
  EXPECT_EQ(ask("Numbers"), Lines{"-2147467259 the draws cannot be read: the connector refused to"});
  scripted_->default_answer = two_wheels();
  EXPECT_EQ(ask("Draws", {}, {}, 1), Lines{"2001-01-06 1 BA 5 4 3 2 1"});
}

}  // namespace
}  // namespace vestara
