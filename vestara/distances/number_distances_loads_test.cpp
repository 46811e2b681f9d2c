#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "automation/yield.h"
#include "tests/support/events.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"
#include "vestara/distances/number_distances.h"

namespace vestara {
namespace {

using automation::Array;
using automation::make;
using automation::Missing;
using automation::Null;
using automation::Ref;
using automation::Variant;
using automation::VariantKind;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using testing_support::Table;

using Lines = std::vector<std::string>;
using Row = std::vector<Variant>;
using Rows = std::vector<Row>;
const Variant missing(Missing{});
const Variant null(Null{});

automation::Date january(int32_t day) { return testing_support::day(2026, 1, day); }

/// The distances of a list that is an array of Long from 0, joined by blanks.
std::string text_of(const Array& array) {
  EXPECT_EQ(array.element(), VariantKind::long_integer);
  EXPECT_EQ(array.bounds().size(), 1U);
  EXPECT_EQ(array.lower(), 0);
  std::string text;
  for (const auto& item : array.items()) {
    EXPECT_EQ(item.kind(), VariantKind::long_integer);
    text += (text.empty() ? "" : " ") + std::to_string(*item.get_if<int32_t>());
  }
  return text;
}

/// One of the four loads, and the lists that it fills.
struct Kind {
  const char* label;
  bool all_wheels, pairs;

  bool load(cDistanze2& object) const {
    if (all_wheels) return pairs ? object.LoadDistanze2AmbiTutte() : object.LoadDistanze1Tutte();
    return pairs ? object.LoadDistanze2Ambi("") : object.LoadDistanze1("");
  }
  /// Some of its lists that are not empty: "NA 1: 0 1", "all 1-2: 1 0".
  Lines lists(const cDistanze2& object) const {
    Lines lines;
    const auto add = [&](const std::string& name, const Array& array) {
      if (!array.items().empty()) lines.push_back(name + text_of(array));
    };
    for (const auto& [name, wheel] : all_wheels ? Wheels{{"all ", -1}} : Wheels{{"BA ", 1}, {"NA ", 6}, {"RN ", 11}}) {
      if (pairs)
        for (const auto& [first, second] : {std::pair(1, 2), {1, 6}, {3, 4}, {6, 7}, {13, 14}})
          add(name + std::to_string(first) + "-" + std::to_string(second) + ": ",
              object.GetDistanzeAmbi(first, second, wheel));
      else
        for (const int32_t number : {1, 3, 6, 13})
          add(name + std::to_string(number) + ": ", object.GetDistanzeSingleNumber(number, wheel));
    }
    return lines;
  }

 private:
  using Wheels = std::vector<std::pair<std::string, int32_t>>;
};
constexpr Kind kinds[] = {{"cDistanze2.LoadDistanze1()", false, false},
                          {"cDistanze2.LoadDistanze1Tutte()", true, false},
                          {"cDistanze2.LoadDistanze2Ambi()", false, true},
                          {"cDistanze2.LoadDistanze2AmbiTutte()", true, true}};

class NumberDistancesLoads : public testing::Test {
 protected:
  NumberDistancesLoads() {
    Table wheels = testing_support::canonical_wheels();
    wheels.rows.push_back({12, 0, "TU"});
    scripted_->answers[std::string(testing_support::wheels_statement)] = std::move(wheels);
    distances_.ActiveConnection(recorder_);
    recorder_->calls.clear();
    answer(sample_);
  }
  void answer(Rows rows) {
    scripted_->default_answer =
        Table{{"ruota", "estr1", "estr2", "estr3", "estr4", "estr5", "dtEstr"}, std::move(rows)};
  }
  void load_all() {
    for (const auto& kind : kinds) ASSERT_TRUE(kind.load(distances_)) << kind.label;
    recorder_->calls.clear();
  }

  /// Four draws of BA, two of NA, on four dates.
  const Rows sample_{{"BA", 1, 2, 3, 4, 5, january(2)},    {"NA", 1, 6, 7, 8, 9, january(2)},
                     {"BA", 1, 2, 10, 11, 12, january(6)}, {"NA", 1, 13, 14, 15, 16, january(9)},
                     {"BA", 3, 4, 5, 17, 18, january(9)},  {"BA", 2, 1, 19, 20, 6, january(13)}};
  const Lines lists_of_sample_[4] = {
      {"BA 1: 0 1 2", "BA 3: 0 2", "BA 6: 3", "NA 1: 0 1", "NA 6: 0", "NA 13: 1"},
      {"all 1: 1 0 1 1 1", "all 3: 1 2", "all 6: 1 3", "all 13: 3"},
      {"BA 1-2: 0 1 2", "BA 1-6: 3", "BA 3-4: 0 2", "NA 1-6: 0", "NA 6-7: 0", "NA 13-14: 1"},
      {"all 1-2: 1 1 2", "all 1-6: 1 3", "all 3-4: 1 2", "all 6-7: 1", "all 13-14: 3"}};

  testing_support::LogCapture log_;
  testing_support::UnloadedWheels wheels_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  cDistanze2 distances_;
};

TEST_F(NumberDistancesLoads, NewObject) {
  const cDistanze2 fresh;
  for (const auto& kind : kinds) EXPECT_EQ(kind.lists(fresh), Lines{}) << kind.label;
  double least = 5, most = 6;
  EXPECT_EQ(fresh.ItemCount(90, 11), 0);
  EXPECT_EQ(fresh.GetDistanzeAVG1(1, "BA", least, most), -1);
  EXPECT_EQ(fresh.GetDistanzeAVG2Ambi(1, 2, 11, least, most), -1);
  EXPECT_EQ(fresh.GetDistanzeAVG1Tutte(1, least, most), -1);
  EXPECT_EQ(fresh.GetDistanzeAVG2AmbiTutte(89, 90, least, most), -1);
  EXPECT_EQ(least, 5);
  EXPECT_EQ(most, 6);
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(NumberDistancesLoads, AnAssignmentAlwaysReadsTheWheels) {
  const Lines calls{"OpenRecordset " + std::string(testing_support::wheels_statement), "CloseRecordset"};
  for (const int32_t state : {connection_open, 0, 7}) {
    testing_support::UnloadedWheels::reset();
    scripted_->state = state;
    distances_.ActiveConnection(recorder_);
    EXPECT_EQ(recorder_->take(), calls) << "whatever its state";
    EXPECT_EQ(wheel_of("TU"), 12);
  }
  distances_.ActiveConnection({});
  EXPECT_EQ(log_.take(), Lines{"mPrecarica.PreloadRuoteAlias() 91"});
  EXPECT_EQ(wheel_of("TU"), 12) << "the tables stay";
  for (const auto& kind : kinds) {
    EXPECT_FALSE(kind.load(distances_));
    EXPECT_EQ(log_.take(), Lines{kind.label + std::string(" 91")});
  }
}

TEST_F(NumberDistancesLoads, AFailedPreloadIsLoggedUnderItsOwnLabelAndTheConnectorIsKept) {
  const struct {
    Failure how;
    Lines log;
  } rows[] = {{Failure::refuses, {}},
              {Failure::raises_error, {"mPrecarica.PreloadRuoteAlias() 3001"}},
              {Failure::hands_over_nothing, {"mPrecarica.PreloadRuoteAlias() 91"}}};
  for (const auto& row : rows) {
    distances_.ActiveConnection(make<FailingConnector>(recorder_, FailurePlan{1, row.how}));
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_TRUE(distances_.LoadDistanze1("BA"));
  }
}

TEST_F(NumberDistancesLoads, EachLoadFillsListsOfItsOwn) {
  for (size_t i = 0; i < 4; ++i) {
    cDistanze2 one;
    one.ActiveConnection(recorder_);
    recorder_->calls.clear();
    EXPECT_TRUE(kinds[i].load(one));
    for (size_t other = 0; other < 4; ++other)
      EXPECT_EQ(kinds[other].lists(one), other == i ? lists_of_sample_[i] : Lines{}) << kinds[i].label;
    EXPECT_EQ(one.ItemCount(1, 1), i == 0 ? 3 : 0);
    EXPECT_EQ(recorder_->take().back(), "CloseRecordset");
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(NumberDistancesLoads, EachLoadClearsOnlyItsOwn) {
  const Rows others{{"RN", 3, 6, 7, 4, 90, january(20)}, {"RN", 6, 7, 13, 14, 88, january(22)}};
  const Lines lists_of_others[] = {{"RN 3: 0", "RN 6: 0 1", "RN 13: 1"},
                                   {"all 3: 1", "all 6: 1 1", "all 13: 2"},
                                   {"RN 3-4: 0", "RN 6-7: 0 1", "RN 13-14: 1"},
                                   {"all 3-4: 1", "all 6-7: 1 1", "all 13-14: 2"}};
  for (size_t i = 0; i < 4; ++i) {
    answer(sample_);
    load_all();
    const struct {
      const char* what;
      std::function<void()> change;
      bool result;
      Lines lists;
    } rows[] = {{"again", [&] { answer(sample_); }, true, lists_of_sample_[i]},
                {"others", [&] { answer(others); }, true, lists_of_others[i]},
                {"none", [&] { answer({}); }, true, {}},
                {"others", [&] { answer(others); }, true, lists_of_others[i]},
                {"refused", [&] { scripted_->default_answer.reset(); }, false, {}}};
    for (const auto& row : rows) {
      SCOPED_TRACE(std::string(kinds[i].label) + " " + row.what);
      row.change();
      EXPECT_EQ(kinds[i].load(distances_), row.result);
      for (size_t other = 0; other < 4; ++other)
        EXPECT_EQ(kinds[other].lists(distances_), other == i ? row.lists : lists_of_sample_[other]);
    }
  }
  EXPECT_EQ(log_.bytes(), "") << "a refusal is no entry";
}

TEST_F(NumberDistancesLoads, TheQuestionIsTheStatement) {
  const std::string wheel_start =
      "OpenRecordset SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM storico WHERE (estr1 is not null AND estr2 is not "
      "null and estr3 is not null and estr4 is not null and estr5 is not null)";
  const std::string all_start =
      "OpenRecordset SELECT estr1,estr2,estr3,estr4,estr5,dtEstr FROM storico WHERE (estr1 is not null AND estr2 is "
      "not "
      "null and estr3 is not null and estr4 is not null and estr5 is not null)";
  const Variant from = january(2), to("16/01/2026");
  const std::string dates = " AND (dtEstr >='2026-01-02') AND (dtEstr <='2026-01-16')";
  const struct {
    std::function<bool(bool)> load;  // with its direction
    std::string statement;
  } rows[] = {{[&](bool asc) { return distances_.LoadDistanze1("", missing, missing, asc); }, wheel_start},
              {[&](bool asc) { return distances_.LoadDistanze2Ambi("   ", null, null, asc); }, wheel_start},
              {[&](bool asc) { return distances_.LoadDistanze1("BA", from, to, asc); },
               wheel_start + dates + " AND (ruota='BA')"},
              {[&](bool asc) { return distances_.LoadDistanze2Ambi("BA,NA", from, to, asc); },
               wheel_start + dates + " AND (ruota='BA' OR ruota='NA')"},
              {[&](bool asc) { return distances_.LoadDistanze1("BA, na,", missing, "x", asc); },
               wheel_start + " AND (dtEstr <=NULL) AND (ruota='BA' OR ruota=' na' OR ruota='')"},
              {[&](bool asc) { return distances_.LoadDistanze1Tutte(missing, missing, false, asc); }, all_start},
              {[&](bool asc) { return distances_.LoadDistanze2AmbiTutte(null, null, false, asc); }, all_start},
              {[&](bool asc) { return distances_.LoadDistanze1Tutte(from, to, true, asc); },
               all_start + dates + " AND (ruota <> 'RN')"},
              {[&](bool asc) { return distances_.LoadDistanze2AmbiTutte("", missing, true, asc); },
               all_start + " AND (dtEstr >=NULL) AND (ruota <> 'RN')"}};
  for (const auto& row : rows)
    for (const bool ascending : {false, true}) {
      EXPECT_TRUE(row.load(ascending));
      EXPECT_EQ(recorder_->take(),
                (Lines{row.statement + " ORDER BY dtEstr " + (ascending ? "ASC" : "DESC"), "CloseRecordset"}));
    }
  for (const auto& kind : kinds) {
    EXPECT_TRUE(kind.load(distances_));
    EXPECT_EQ(recorder_->take().front(), (kind.all_wheels ? all_start : wheel_start) + " ORDER BY dtEstr DESC");
  }
}

TEST_F(NumberDistancesLoads, ABadRowFailsTheLoadAndLeavesWhatWasRecorded) {
  const auto second = january(6);
  const struct {
    const char* what;
    Row row;
    int32_t error, error_over_all;
  } rows[] = {{"0", {"BA", 90, 0, 91, 91, 91, second}, 9, 9},
              {"91", {"NA", 91, 91, 91, 91, 91, second}, 9, 9},
              {"an unknown wheel", {"XX", 3, 3, 3, 3, 3, second}, 5, 0},
              {"wheel 12", {"TU", 3, 3, 3, 3, 3, second}, 9, 0},
              {"no wheel", {null, 3, 3, 3, 3, 3, second}, 94, 0},
              {"Null", {"BA", null, 3, 3, 3, 3, second}, 94, 94}};
  const Lines first_row[] = {
      {"BA 1: 0", "BA 6: 0"}, {"all 1: 1", "all 6: 1"}, {"BA 1-2: 0", "BA 1-6: 0"}, {"all 1-2: 1", "all 1-6: 1"}};
  for (const auto& row : rows)
    for (size_t i = 0; i < 4; ++i) {
      SCOPED_TRACE(std::string(kinds[i].label) + " " + row.what);
      answer(sample_);
      load_all();
      answer({{"BA", 1, 2, 6, 50, 51, january(2)}, row.row, {"NA", 1, 2, 3, 4, 5, january(9)}});
      const int32_t error = kinds[i].all_wheels ? row.error_over_all : row.error;
      EXPECT_EQ(kinds[i].load(distances_), error == 0);
      EXPECT_EQ(log_.take(), error == 0 ? Lines{} : Lines{kinds[i].label + (" " + std::to_string(error))});
      if (error != 0) {
        EXPECT_EQ(kinds[i].lists(distances_), first_row[i]);
      }
      for (size_t other = 0; other < 4; ++other) {
        if (other == i) continue;
        EXPECT_EQ(kinds[other].lists(distances_), lists_of_sample_[other]);
      }
    }
}

TEST_F(NumberDistancesLoads, EveryFailureHasOneEntryAndTheNextLoadWorks) {
  const struct {
    FailurePlan plan;
    const char* number;
  } rows[] = {{{2, Failure::refuses}, nullptr},
              {{2, Failure::raises_error}, " 3001"},
              {{2, Failure::raises_exception}, " -2147467259"},
              {{2, Failure::hands_over_nothing}, " 91"},
              {{2, Failure::rows_raise, 0}, " 3002"}};
  load_all();
  for (const auto& row : rows)
    for (size_t i = 0; i < 4; ++i) {
      SCOPED_TRACE(std::string(kinds[i].label) + (row.number ? row.number : " refused"));
      distances_.ActiveConnection(make<FailingConnector>(recorder_, row.plan));
      EXPECT_FALSE(kinds[i].load(distances_));
      EXPECT_EQ(log_.take(), row.number ? Lines{std::string(kinds[i].label) + row.number} : Lines{});
      for (size_t other = 0; other < 4; ++other)
        EXPECT_EQ(kinds[other].lists(distances_), other == i ? Lines{} : lists_of_sample_[other]);
      EXPECT_TRUE(kinds[i].load(distances_));
      EXPECT_EQ(kinds[i].lists(distances_), lists_of_sample_[i]);
      EXPECT_EQ(log_.bytes(), "");
    }
}

/// `part` has fewer lists or shorter ones.
bool begins(const Lines& part, const Lines& whole) {
  return std::ranges::all_of(part, [&](const std::string& line) {
    return std::ranges::any_of(whole, [&](const std::string& full) { return full.starts_with(line); });
  });
}

TEST_F(NumberDistancesLoads, RowsThatAreLostLeaveTheListsSoFar) {
  for (size_t i = 0; i < 4; ++i) {
    bool loaded = false;
    size_t most = 0;
    for (int32_t good_calls = 0; !loaded && good_calls < 300; ++good_calls) {
      SCOPED_TRACE(std::string(kinds[i].label) + " " + std::to_string(good_calls));
      distances_.ActiveConnection(make<FailingConnector>(recorder_, FailurePlan{2, Failure::rows_raise, good_calls}));
      loaded = kinds[i].load(distances_);
      EXPECT_EQ(log_.take(), loaded ? Lines{} : Lines{kinds[i].label + std::string(" 3002")});
      const Lines lists = kinds[i].lists(distances_);
      EXPECT_TRUE(begins(lists, lists_of_sample_[i])) << testing::PrintToString(lists);
      EXPECT_GE(lists.size(), most) << "the longer the rows last, the more lists";
      most = lists.size();
    }
    EXPECT_TRUE(loaded);
    EXPECT_EQ(kinds[i].lists(distances_), lists_of_sample_[i]);
  }
}

/// A yield hook as long as it lives.
class Hook {
 public:
  explicit Hook(std::function<void()> hook) { automation::set_yield_hook(std::move(hook)); }
  ~Hook() { automation::set_yield_hook({}); }
  Hook(const Hook&) = delete;
  Hook& operator=(const Hook&) = delete;
};

TEST_F(NumberDistancesLoads, EachLoadYieldsOnceARow) {
  const testing_support::YieldWriter writer(recorder_->calls);
  for (const auto& kind : kinds) {
    EXPECT_TRUE(kind.load(distances_));
    const Lines calls = recorder_->take();
    EXPECT_EQ(std::ranges::count(calls, "yield"), 6) << kind.label;
    EXPECT_EQ(calls.size(), 8U) << kind.label;
    EXPECT_EQ(calls.back(), "CloseRecordset");
  }
}

TEST_F(NumberDistancesLoads, AHostReadsTheListsSoFar) {
  Lines seen, counts;
  for (size_t i = 0; i < 4; ++i) {
    Lines before;
    const Hook hook([&] {
      const Lines lists = kinds[i].lists(distances_);
      EXPECT_TRUE(begins(before, lists));
      EXPECT_TRUE(begins(lists, lists_of_sample_[i]));
      before = lists;
      if (i != 0) return;
      seen.push_back(text_of(distances_.GetDistanzeSingleNumber(1, 1)));
      counts.push_back(std::to_string(distances_.ItemCount(1, 1)));
    });
    EXPECT_TRUE(kinds[i].load(distances_));
    EXPECT_EQ(before, lists_of_sample_[i]) << "behind the last row";
    EXPECT_EQ(kinds[i].lists(distances_), lists_of_sample_[i]);
  }
  EXPECT_EQ(seen, (Lines{"0", "0", "0 1", "0 1", "0 1", "0 1 2"}));
  EXPECT_EQ(counts, (Lines{"1", "1", "2", "2", "2", "3"}));
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(NumberDistancesLoads, AHookThatRaisesEndsTheLoad) {
  for (size_t i = 0; i < 4; ++i) {
    SCOPED_TRACE(kinds[i].label);
    answer(Rows(sample_.begin(), sample_.begin() + 3));
    EXPECT_TRUE(kinds[i].load(distances_));
    const Lines three = kinds[i].lists(distances_);
    answer(sample_);
    {
      int32_t yields = 0;
      const Hook hook([&] {
        if (++yields == 3) throw automation::RunTimeError(18, "User interrupt occurred");
      });
      EXPECT_FALSE(kinds[i].load(distances_));
    }
    EXPECT_EQ(log_.take(), Lines{kinds[i].label + std::string(" 18")});
    EXPECT_EQ(kinds[i].lists(distances_), three);
    EXPECT_TRUE(kinds[i].load(distances_));
    EXPECT_EQ(kinds[i].lists(distances_), lists_of_sample_[i]);
  }
}

}  // namespace
}  // namespace vestara
