#include "vestara/distances/hit_distances.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "tests/support/connectors.h"
#include "tests/support/gap_reader.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "vestara/distances/gap_text.h"

namespace vestara {
namespace {

using automation::make;
using automation::Missing;
using automation::Null;
using automation::Ref;
using automation::Variant;
using testing_support::error_of;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::figures_of;
using testing_support::GapFigures;
using testing_support::GapItem;
using testing_support::items_of;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using testing_support::Table;

using Calls = std::vector<std::string>;
using Items = std::vector<GapItem>;
using Row = std::vector<Variant>;
constexpr const char* open_date = "########";
const Variant missing(Missing{});
const Variant null(Null{});

automation::Date january(int32_t day) { return testing_support::day(2026, 1, day); }
Row hit(int32_t day, const Variant& wheel = "BA", const Variant& contest = 7, int32_t hits = 2) {
  return {january(day), january(day), wheel, contest, hits};
}
Row no_hit(int32_t day) { return {january(day), null, null, null, null}; }
GapItem trailing(int32_t draws, const Variant& earlier, const Variant& later) {
  return {draws, earlier, later, "##", "##", "##", "##"};
}

class HitDistancesTest : public testing::Test {
 protected:
  HitDistancesTest() { gaps_.ActiveConnection(recorder_); }
  void answer(std::vector<Row> rows) {
    scripted_->default_answer =
        Table{{"R1.dtEstr", "R2.dtEstr", "R2.ruota", "R2.concorsoNumero", "R2.numeriTrovati"}, std::move(rows)};
  }
  void load(bool ascending) { gaps_.LoadDistanze("5,12", 2, "BA", missing, missing, false, false, ascending); }
  /// Four items, the second gap of two draws and five days, two wheels on one date.
  void load_four() {
    answer({no_hit(16), hit(14), no_hit(12), no_hit(11), hit(9, "CA", 5), hit(9, "NA", 5, 3), no_hit(5), no_hit(2)});
    load(false);
  }
  const GapFigures figures_of_four_{1.25F, 2.5F, 0, 2, 0, 5};

  testing_support::LogCapture log_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  cDistanze gaps_;
};

TEST_F(HitDistancesTest, NewObject) {
  const cDistanze gaps;
  EXPECT_FALSE(gaps.ISSortASC());
  EXPECT_EQ(gaps.ItemCount(), 0);
  EXPECT_EQ(figures_of(gaps), GapFigures{});
  EXPECT_FALSE(gaps.ActiveConnection());
  EXPECT_EQ(gaps_.ActiveConnection().get(), recorder_.get());
  EXPECT_TRUE(recorder_->calls.empty()) << "an assignment asks the connector nothing";
}

TEST_F(HitDistancesTest, WalksInBothDirections) {
  const struct {
    const char* what;
    bool ascending;
    std::vector<Row> rows;
    Items items;
    GapFigures figures;
  } rows[] = {{"newest first: the current delay, two wheels on one date, the open end",
               false,
               {no_hit(16), hit(14), no_hit(12), no_hit(11), hit(9, "CA", 5), hit(9, "NA", 5, 3), no_hit(5), no_hit(2)},
               {{1, january(14), open_date, "##", "BA", 2, 7},
                {2, january(9), "14/01/2026", 5, "CA", 2, 5},
                {0, january(9), "09/01/2026", 0, "NA", 3, 5},
                trailing(2, open_date, "09/01/2026")},
               figures_of_four_},
              {"the same, oldest first",
               true,
               {no_hit(2), no_hit(5), hit(9, "CA", 5), hit(9, "NA", 5, 3), no_hit(11), no_hit(12), hit(14), no_hit(16)},
               {{2, open_date, january(9), "##", "CA", 2, 5},
                {0, "09/01/2026", january(9), 0, "NA", 3, 5},
                {2, "09/01/2026", january(14), 5, "BA", 2, 7},
                trailing(1, "14/01/2026", open_date)},
               figures_of_four_},
              {"ends on a hit: no trailing item",
               false,
               {hit(9), no_hit(5), hit(2)},
               {{0, january(9), open_date, "##", "BA", 2, 7}, {1, january(2), "09/01/2026", 7, "BA", 2, 7}},
               {0.5F, 7, 0, 1, 7, 7}},
              {"one hit and nothing else", true, {hit(9)}, {{0, open_date, january(9), "##", "BA", 2, 7}}, {}},
              {"no hits, newest first",
               false,
               {no_hit(9), no_hit(5), no_hit(2)},
               {trailing(3, open_date, open_date)},
               {3, 0, 3, 3, 0, 0}},
              {"no hits, oldest first", true, {no_hit(2)}, {trailing(1, open_date, open_date)}, {1, 0, 1, 1, 0, 0}},
              {"two contests on a date without a hit are two draws, with a hit two items",
               false,
               {hit(9, "BA", 4), hit(9, "BA", 4), no_hit(5), no_hit(5)},
               {{0, january(9), open_date, "##", "BA", 2, 4},
                {0, january(9), "09/01/2026", 0, "BA", 2, 4},
                trailing(2, open_date, "09/01/2026")},
               {2.0F / 3, 0, 0, 2, 0, 0}},
              {"a hit without a wheel or a contest",
               true,
               {hit(2, null, null, 1), hit(5, "", 0, 5)},
               {{0, open_date, january(2), "##", "", 1, null}, {0, "02/01/2026", january(5), 3, "", 5, 0}},
               {0, 3, 0, 0, 3, 3}},
              {"rows in the wrong order: the most days are never below 0",
               false,
               {hit(2), hit(5), hit(9)},
               {{0, january(2), open_date, "##", "BA", 2, 7},
                {0, january(5), "02/01/2026", -3, "BA", 2, 7},
                {0, january(9), "05/01/2026", -4, "BA", 2, 7}},
               {0, -3.5F, 0, 0, -4, 0}},
              {"means are of single precision",
               true,
               {no_hit(1), hit(2), hit(3), hit(4), hit(6)},
               {{1, open_date, january(2), "##", "BA", 2, 7},
                {0, "02/01/2026", january(3), 1, "BA", 2, 7},
                {0, "03/01/2026", january(4), 1, "BA", 2, 7},
                {0, "04/01/2026", january(6), 2, "BA", 2, 7}},
               {0.25F, static_cast<float>(4.0 / 3), 0, 1, 1, 2}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    answer(row.rows);
    load(row.ascending);
    EXPECT_EQ(gaps_.ISSortASC(), row.ascending);
    EXPECT_EQ(items_of(gaps_), row.items);
    EXPECT_EQ(figures_of(gaps_), row.figures);
    EXPECT_EQ(recorder_->take().back(), "CloseRecordset");
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(HitDistancesTest, AnIndexOutsideIsError9) {
  const std::pair<const char*, std::function<void(int32_t)>> getters[] = {
      {"Distance", [&](int32_t i) { gaps_.Distance(i); }},
      {"DatePrec", [&](int32_t i) { gaps_.DatePrec(i); }},
      {"DateLast", [&](int32_t i) { gaps_.DateLast(i); }},
      {"DateDiff", [&](int32_t i) { gaps_.DateDiff(i); }},
      {"Ruota", [&](int32_t i) { gaps_.Ruota(i); }},
      {"combinazione", [&](int32_t i) { gaps_.combinazione(i); }},
      {"ConcorsoNumero", [&](int32_t i) { gaps_.ConcorsoNumero(i); }}};
  const auto check = [&](const char* what, std::vector<int32_t> outside) {
    for (const auto& [name, get] : getters)
      for (const int32_t index : outside) EXPECT_EQ(error_of([&] { get(index); }), 9) << what << name << index;
  };
  check("before any load ", {0, 1, -1});
  load_four();
  constexpr auto limits = std::numeric_limits<int32_t>();
  check("four items ", {0, -1, 5, limits.max(), limits.min()});
  for (const auto& [name, get] : getters) EXPECT_EQ(error_of([&] { get(4); }), 0) << name;
  answer({});
  load(false);
  check("none ", {0, 1, 4});
  EXPECT_EQ(log_.bytes(), "") << "getters trap nothing";
}

TEST_F(HitDistancesTest, ALoadWithoutItemsKeepsTheFiguresAndTakesTheDirection) {
  const struct {
    const char* what;
    std::function<void()> break_it;
    Calls log;
  } rows[] = {{"no rows", [&] { answer({}); }, {}},
              {"refused", [&] { scripted_->default_answer.reset(); }, {}},
              {"no connector", [&] { gaps_.ActiveConnection({}); }, {"cDistanze.LoadDistanzeASC() 91"}},
              {"no columns",
               [&] {
                 scripted_->default_answer = Table{{"x"}, {{1}}};
               },
               {"cDistanze.LoadDistanzeASC() 3265"}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    gaps_.ActiveConnection(recorder_);
    load_four();
    EXPECT_FALSE(gaps_.ISSortASC());
    row.break_it();
    load(true);
    EXPECT_TRUE(gaps_.ISSortASC());
    EXPECT_EQ(gaps_.ItemCount(), 0);
    EXPECT_EQ(figures_of(gaps_), figures_of_four_);
    EXPECT_EQ(log_.take(), row.log);
  }
}

TEST_F(HitDistancesTest, WheelsAndFlagsReachTheStatement) {
  const struct {
    const char *what, *numbers, *wheels;
    bool all_draws, all_wheels, all_draws_after;
    const char* condition;
  } rows[] = {{"one wheel", "5", "BA", false, false, false, " WHERE (ruota='BA')Group by "},
              {"two", "5", "BA,NA", false, false, false, " WHERE (ruota='BA' OR ruota='NA')Group by "},
              {"a blank and an empty one", "5", "BA, CA,", false, false, false,
               " WHERE (ruota='BA' OR ruota=' CA' OR ruota='')Group by "},
              {"a comma alone", "5", ",", false, false, false, " WHERE (ruota='' OR ruota='')Group by "},
              {"none", "5", "", false, false, false, "s2.id Group by "},
              {"blanks", "5", "   ", false, false, false, "s2.id Group by "},
              {"all wheels alone keep them", "5", "BA", false, true, false, " WHERE (ruota='BA')Group by "},
              {"all draws alone keep them", "5", "BA", true, false, true, " WHERE (ruota='BA')Group by "},
              {"both drop them", "5", "BA", true, true, true, "s2.id Group by "},
              {"no numbers mean all draws", "", "BA", false, true, true, "s2.id Group by "},
              {"no numbers, not all wheels", "", "BA", false, false, true, " WHERE (ruota='BA')Group by "},
              {"blank numbers are numbers", " ", "BA", false, true, false, " WHERE (ruota='BA')Group by "}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    for (const bool ascending : {false, true}) {
      bool all_draws = row.all_draws;
      gaps_.LoadDistanze(row.numbers, 1, row.wheels, missing, missing, all_draws, row.all_wheels, ascending);
      const Calls calls = recorder_->take();
      ASSERT_EQ(calls.size(), 2U);
      EXPECT_NE(calls[0].find(row.condition), std::string::npos) << calls[0];
      EXPECT_TRUE(calls[0].ends_with(ascending ? " ORDER by R1.dtEstr ASC" : " ORDER by R1.dtEstr DESC"));
      EXPECT_EQ(all_draws, row.all_draws_after);
    }
  }
}

TEST_F(HitDistancesTest, TheQuestionIsTheStatement) {
  const Variant from = january(2), to("2026-01-16");
  gaps_.LoadDistanze("5,12", 2, "BA,NA", from, to, false, false, true);
  const DrawSelection selection{WheelFilter::listed("BA,NA"), DateBound::given(from), DateBound::given(to)};
  EXPECT_EQ(recorder_->take(), (Calls{"OpenRecordset " + gap_statement({"5,12", 2, selection, DateOrder::oldest_first}),
                                      "CloseRecordset"}));
  gaps_.LoadDistanze();
  EXPECT_EQ(recorder_->take().front(), "OpenRecordset " + gap_statement({"", 0, {}, DateOrder::newest_first}));
}

TEST_F(HitDistancesTest, EveryFailureHasOneEntryAndTheNextLoadWorks) {
  const struct {
    FailurePlan plan;
    const char* number;
  } rows[] = {{{1, Failure::refuses}, nullptr},
              {{1, Failure::raises_error}, "3001"},
              {{1, Failure::raises_exception}, "-2147467259"},
              {{1, Failure::hands_over_nothing}, "91"},
              {{1, Failure::rows_raise, 0}, "3002"}};
  for (const auto& row : rows) {
    for (const bool ascending : {false, true}) {
      load_four();
      gaps_.ActiveConnection(make<FailingConnector>(recorder_, row.plan));
      load(ascending);
      EXPECT_EQ(gaps_.ItemCount(), 0);
      EXPECT_EQ(figures_of(gaps_), figures_of_four_);
      const std::string label = ascending ? "cDistanze.LoadDistanzeASC() " : "cDistanze.LoadDistanzeDESC() ";
      EXPECT_EQ(log_.take(), row.number ? Calls{label + row.number} : Calls{});
      load(false);
      EXPECT_EQ(gaps_.ItemCount(), 4) << "the connector works again";
      EXPECT_EQ(log_.bytes(), "");
    }
  }
}

TEST_F(HitDistancesTest, RowsThatAreLostLeaveTheItemsSoFar) {
  load_four();
  Items all = items_of(gaps_);
  answer({hit(30)});
  size_t most = 0;
  for (int32_t good_calls = 0; most < all.size() && good_calls < 200; ++good_calls) {
    SCOPED_TRACE(good_calls);
    gaps_.ActiveConnection(recorder_);
    answer({hit(30)});
    load(false);
    const GapFigures before = figures_of(gaps_);
    gaps_.ActiveConnection(make<FailingConnector>(recorder_, FailurePlan{1, Failure::rows_raise, good_calls}));
    load_four();
    const Items items = items_of(gaps_);
    ASSERT_LE(items.size(), all.size());
    EXPECT_EQ(items, Items(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(items.size())));
    EXPECT_EQ(figures_of(gaps_), items.empty() ? before : testing_support::figures_of(items));
    EXPECT_GE(items.size(), most) << "the longer the rows last, the more items";
    most = items.size();
    const Calls lost{"cDistanze.LoadDistanzeDESC() 3002"};
    EXPECT_EQ(log_.take(), most < all.size() ? lost : log_.take());
  }
  EXPECT_EQ(most, all.size());
}

class HitDistancesByName : public HitDistancesTest {
 protected:
  std::string call(std::string_view member, std::vector<Variant> arguments = {},
                   const std::vector<std::string_view>& names = {}) {
    given_ = std::move(arguments);
    automation::Object& object = gaps_;
    return testing_support::outcome([&] { return object.call(member, automation::InvokeKind::method, given_, names); });
  }
  std::vector<Variant> given_;
};

TEST_F(HitDistancesByName, ValuesHaveTheirTypes) {
  load_four();
  const struct {
    const char* member;
    std::vector<Variant> index;
    const char* value;
  } rows[] = {{"issortasc", {}, "False"},
              {"ItemCount", {}, "Long 4"},
              {"Distance", {2}, "Long 2"},
              {"DatePrec", {2}, "Date 46031"},
              {"DateLast", {2}, "text 14/01/2026"},
              {"DateDiff", {2}, "Long 5"},
              {"Ruota", {2}, "text CA"},
              {"combinazione", {3}, "Long 3"},
              {"ConcorsoNumero", {"2"}, "Long 5"},
              {"DatePrec", {4}, "text ########"},
              {"DateLast", {1}, "text ########"},
              {"DateDiff", {1.0}, "text ##"},
              {"Ruota", {4}, "text ##"},
              {"COMBINAZIONE", {4}, "text ##"},
              {"ConcorsoNumero", {4}, "text ##"},
              {"GetAVGDistance", {}, "Single 1.25"},
              {"GetAVGDistanceDays", {}, "Single 2.5"},
              {"GetMinDistance", {}, "Long 0"},
              {"GetMaxDistance", {}, "Long 2"},
              {"GetMinDistanceDays", {}, "Long 0"},
              {"GetMaxDistanceDays", {}, "Long 5"},
              {"ActiveConnection", {}, "Object"},
              {"Distance", {0}, "error 9"},
              {"Distance", {5}, "error 9"},
              {"Distance", {}, "error 449"},
              {"Distance", {"x"}, "error 13"},
              {"Distance", {null}, "error 94"}};
  for (const auto& row : rows) EXPECT_EQ(call(row.member, row.index), row.value) << row.member;
}

TEST_F(HitDistancesByName, LoadWritesBothFlagsBackAsTheyRan) {
  const struct {
    const char* numbers;
    Variant all_draws, ascending, all_draws_after, ascending_after;
  } rows[] = {{"", false, false, true, false},
              {"", false, true, true, true},
              {"5", false, true, false, true},
              {"5", true, false, true, false},
              {"5", 0, -1, false, true},
              {"5", 5, 5, true, true},
              {"5", "True", "False", true, false},
              {"5", "1", 0.5, true, true},
              {"", 5, automation::Empty{}, true, false},
              {"5", automation::Empty{}, int16_t{0}, false, false}};
  for (const auto& row : rows) {
    EXPECT_EQ(call("LoadDistanze", {row.numbers, 1, "", null, missing, row.all_draws, false, row.ascending}), "Empty");
    EXPECT_EQ(given_[5], row.all_draws_after);
    EXPECT_EQ(given_[7], row.ascending_after);
    EXPECT_EQ(given_[0], Variant(row.numbers));
  }
  EXPECT_EQ(call("LoadDistanze"), "Empty");
  EXPECT_EQ(call("loaddistanze", {true, "5"}, {"bSortASC", "sNum"}), "Empty");
  EXPECT_TRUE(gaps_.ISSortASC());
  EXPECT_EQ(call("LoadDistanze", {"5", 40000}), "error 6");
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(HitDistancesByName, FlagsComeBackAlsoWhenTheLoadFails) {
  gaps_.ActiveConnection(Ref<DbConnector>());
  EXPECT_EQ(call("LoadDistanze", {"", 1, "", null, missing, 0, false, 5}), "Empty");
  EXPECT_EQ(given_[5], Variant(true));
  EXPECT_EQ(given_[7], Variant(true));
  EXPECT_EQ(log_.take(), Calls{"cDistanze.LoadDistanzeASC() 91"});
}

}  // namespace
}  // namespace vestara
