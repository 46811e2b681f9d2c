#include "vestara/draws/archive_draws.h"

#include <gtest/gtest.h>

#include "tests/support/connectors.h"
#include "tests/support/values.h"
#include "vestara/draws/loaded_draws.h"

namespace vestara {
namespace {

using automation::make;
using automation::Null;
using automation::Ref;
using automation::Variant;
using testing_support::day;
using testing_support::error_of;
using testing_support::Failure;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using testing_support::Table;
using Row = std::vector<Variant>;

Table table_of(std::vector<Row> rows) {
  return {{"dtEstr", "ruota", "concorsoNumero", "estr1", "estr2", "estr3", "estr4", "estr5"}, std::move(rows)};
}

class ArchiveDrawsTest : public testing::Test {
 protected:
  void answer(std::vector<Row> rows) { scripted_->default_answer = table_of(std::move(rows)); }
  /// How often the archive was asked since the last call.
  size_t statements() {
    size_t count = 0;
    for (const std::string& call : recorder_->take()) count += call.starts_with("OpenRecordset ") ? 1 : 0;
    return count;
  }

  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  ArchiveDraws draws_{recorder_};
};

TEST_F(ArchiveDrawsTest, OneStatementReadsAll) {
  answer({{day(2001, 1, 3), "rn", 2, 5, 4, 3, 2, 1},
          {"2001-01-02", " BA ", Null{}, "90", 89, 88, 87, 86.0},
          {day(2001, 1, 1), "BA", -7, 1, 2, 3, 4, 5}});
  const auto loaded = draws_.current();
  ASSERT_EQ(loaded->rows(), 3U);
  EXPECT_EQ(loaded->day(0), day(2001, 1, 1).day());
  EXPECT_EQ(loaded->contest(0), -7);
  EXPECT_EQ(loaded->contest(1), std::nullopt);
  EXPECT_EQ(loaded->numbers(1), (DrawnNumbers{90, 89, 88, 87, 86}));
  EXPECT_EQ(loaded->rows_of(11, {}, {}).first, 2U);
  EXPECT_EQ(recorder_->take(),
            (std::vector<std::string>{"OpenRecordset SELECT dtEstr,ruota,concorsoNumero,estr1,estr2,estr3,estr4,estr5"
                                      " FROM storico",
                                      "CloseRecordset"}));
}

TEST_F(ArchiveDrawsTest, WheelsThatWereNotDrawnAreNoDraws) {
  answer({{day(2001, 1, 1), "BA", 1, 0, 0, 0, 0, 0},
          {day(2001, 1, 1), "CA", 1, Null{}, Null{}, 0, Null{}, 0},
          {day(2001, 1, 1), "FI", 1, 1, 2, 3, 4, 5}});
  EXPECT_EQ(draws_.current()->rows(), 1U);
}

TEST_F(ArchiveDrawsTest, WhatIsNoDrawIsNamed) {
  const struct {
    Row row;
    const char* sentence;
  } rows[] = {
      {{day(2001, 1, 2), "BA", 1, 1, 2, 3, 4, 91},
       "the archive's draw of 2001-01-02 on wheel BA with the numbers 1,2,3,4,91 is none: its numbers should be five "
       "different numbers from 1 to 90, or none where the wheel was not drawn"},
      {{day(2001, 1, 2), "BA", 1, 1, 2, 3, 4, 0},
       "the archive's draw of 2001-01-02 on wheel BA with the numbers 1,2,3,4,0 is none: its numbers should be five "
       "different numbers from 1 to 90, or none where the wheel was not drawn"},
      {{day(2001, 1, 2), "BA", 1, 1, 2, Null{}, 4, 2},
       "the archive's draw of 2001-01-02 on wheel BA with the numbers 1,2,Null,4,2 is none: its numbers should be five "
       "different numbers from 1 to 90, or none where the wheel was not drawn"},
      {{day(2001, 1, 2), "BA", 1, 1, 2, 3, 4, 2},
       "the archive's draw of 2001-01-02 on wheel BA with the numbers 1,2,3,4,2 is none: its numbers should be five "
       "different numbers from 1 to 90, or none where the wheel was not drawn"},
      {{day(2001, 1, 2), "Roma", 1, 1, 2, 3, 4, 5},
       "the archive's draw of 2001-01-02 on wheel Roma with the numbers 1,2,3,4,5 is none: its wheel should be one of "
       "BA, CA, FI, GE, MI, NA, PA, RM, TO, VE, RN"},
      {{day(2001, 1, 2), Null{}, 1, 1, 2, 3, 4, 5},
       "the archive's draw of 2001-01-02 on wheel Null with the numbers 1,2,3,4,5 is none: its wheel should be one of "
       "BA, CA, FI, GE, MI, NA, PA, RM, TO, VE, RN"},
      {{Null{}, "BA", 1, 1, 2, 3, 4, 5},
       "the archive's draw of Null on wheel BA with the numbers 1,2,3,4,5 is none: its date should be a date"},
      {{"0000-00-00", "BA", 1, 1, 2, 3, 4, 5},
       "the archive's draw of 0000-00-00 on wheel BA with the numbers 1,2,3,4,5 is none: its date should be a date"},
  };
  for (const auto& row : rows) {
    answer({{day(2001, 1, 1), "BA", 1, 1, 2, 3, 4, 5}, row.row});
    try {
      draws_.current();
      FAIL() << row.sentence;
    } catch (const automation::RunTimeError& error) {
      EXPECT_EQ(error.description(), row.sentence);
      EXPECT_EQ(error.number(), automation::unspecified_failure);
    }
  }
}

TEST_F(ArchiveDrawsTest, AreReadAgainWhenTheMarkMovedOrOnRefresh) {
  answer({{day(2001, 1, 1), "BA", 1, 1, 2, 3, 4, 5}});
  const struct {
    const char* what;
    std::optional<ChangeMark> mark;
    bool refresh;
    size_t statements;
  } rows[] = {{"first", {}, false, 1},
              {"a connector that cannot tell", {}, false, 0},
              {"refreshed", {}, true, 1},
              {"one that can", ChangeMark{1, 1}, false, 1},
              {"the same mark", ChangeMark{1, 1}, false, 0},
              {"own changes", ChangeMark{2, 1}, false, 1},
              {"changes of others", ChangeMark{2, 2}, false, 1},
              {"refreshed again", ChangeMark{2, 2}, true, 1},
              {"the archive was closed", {}, false, 0},
              {"and opened as it was", ChangeMark{2, 2}, false, 0}};
  for (const auto& row : rows) {
    scripted_->mark = row.mark;
    if (row.refresh) draws_.refresh();
    EXPECT_EQ(draws_.current()->rows(), 1U) << row.what;
    EXPECT_EQ(statements(), row.statements) << row.what;
  }
}

TEST_F(ArchiveDrawsTest, AFailedReadingIsRaisedAndTriedAgain) {
  const struct {
    Failure how;
    int32_t error;
  } rows[] = {{Failure::refuses, automation::unspecified_failure},
              {Failure::raises_error, testing_support::connector_error},
              {Failure::hands_over_nothing, 91},
              {Failure::rows_raise, testing_support::rows_error}};
  answer({{day(2001, 1, 1), "BA", 1, 1, 2, 3, 4, 5}});
  for (const auto& row : rows) {
    ArchiveDraws draws(make<testing_support::FailingConnector>(
        scripted_, testing_support::FailurePlan{.fail_statement = 1, .how = row.how}));
    EXPECT_EQ(error_of([&] { draws.current(); }), row.error);
    EXPECT_EQ(draws.current()->rows(), 1U);
  }
  ArchiveDraws without{{}};
  EXPECT_EQ(error_of([&] { without.current(); }), 91);
}

}  // namespace
}  // namespace vestara
