#include "records/static_recordset.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "automation/error.h"

namespace records {
namespace {

using automation::RunTimeError;

/// Counts from 1 up, says how far it was asked, and fails where it is told to.
class CountingSource final : public RowSource {
 public:
  CountingSource(int rows, int& fetched, int fail_at = -1) : rows_(rows), fail_at_(fail_at), fetched_(fetched) {}
  bool fetch(std::vector<ColumnStore>& columns) override {
    if (fetched_ + 1 == fail_at_) throw RunTimeError(61);
    if (fetched_ == rows_) return false;
    ++fetched_;
    columns[0].append_whole(fetched_);
    columns[1].append_text("BA");
    return true;
  }

 private:
  int rows_;
  int fail_at_;
  int& fetched_;
};

automation::Ref<StaticRecordSet> counting(int rows, int& fetched, int fail_at = -1) {
  std::vector<ColumnHeader> headers{{"n"}, {"s2.Ruota"}};
  return automation::make<StaticRecordSet>(std::move(headers),
                                           std::make_unique<CountingSource>(rows, fetched, fail_at));
}

template <class Body>
int32_t error_of(Body&& body) {
  try {
    body();
    return 0;
  } catch (const RunTimeError& error) {
    return error.number();
  }
}

TEST(StaticRecordSet, IsFilledAsItIsWalked) {
  int fetched = 0;
  const auto rows = counting(1000, fetched);
  EXPECT_FALSE(rows->at_end());
  EXPECT_EQ(fetched, 1);
  rows->move(9);
  EXPECT_EQ(fetched, 10);
  EXPECT_EQ(rows->whole_number({0}), 10);
  EXPECT_EQ(rows->record_count(), 1000);
  EXPECT_EQ(fetched, 1000);
  EXPECT_EQ(rows->whole_number({0}), 10);
}

TEST(StaticRecordSet, ScrollsBothWaysAndStopsOutside) {
  int fetched = 0;
  const auto rows = counting(3, fetched);
  EXPECT_FALSE(rows->at_start());
  rows->move_last();
  EXPECT_EQ(rows->whole_number({0}), 3);
  rows->move_next();
  EXPECT_TRUE(rows->at_end());
  EXPECT_EQ(error_of([&] { rows->move_next(); }), 3021);
  EXPECT_EQ(error_of([&] { rows->value({0}); }), 3021);
  rows->move_previous();
  EXPECT_EQ(rows->whole_number({0}), 3);
  rows->move(-7);
  EXPECT_TRUE(rows->at_start());
  EXPECT_FALSE(rows->at_end());
  EXPECT_EQ(error_of([&] { rows->move_previous(); }), 3021);
  EXPECT_EQ(error_of([&] { rows->value({0}); }), 3021);
  rows->move_next();
  EXPECT_EQ(rows->whole_number({0}), 1);
  rows->move(99);
  EXPECT_TRUE(rows->at_end());
  rows->move_first();
  EXPECT_EQ(rows->whole_number({0}), 1);
}

TEST(StaticRecordSet, WithoutRowsIsAtBothEnds) {
  int fetched = 0;
  const auto rows = counting(0, fetched);
  EXPECT_TRUE(rows->at_end());
  EXPECT_TRUE(rows->at_start());
  EXPECT_EQ(rows->record_count(), 0);
  EXPECT_EQ(error_of([&] { rows->move_next(); }), 3021);
  EXPECT_EQ(error_of([&] { rows->move_previous(); }), 3021);
  rows->move_last();
  EXPECT_TRUE(rows->at_end());
}

TEST(StaticRecordSet, FindsColumnsByAnyNameOfTheirs) {
  int fetched = 0;
  const auto rows = counting(1, fetched);
  for (const char* name : {"n", "N", "x.n", "s1.N"}) EXPECT_EQ(rows->column(name).index, 0) << name;
  for (const char* name : {"ruota", "s2.ruota", "S2.RUOTA", "other.ruota"})
    EXPECT_EQ(rows->column(name).index, 1) << name;
  EXPECT_EQ(error_of([&] { rows->column("m"); }), 3265);
  EXPECT_EQ(error_of([&] { rows->column_name({2}); }), 3265);
  EXPECT_EQ(error_of([&] { rows->value({-1}); }), 3265);
}

TEST(StaticRecordSet, AWholeNameGoesBeforeTheEndOfOne) {
  int fetched = 0;
  std::vector<ColumnHeader> headers{{"a.x"}, {"x"}};
  const auto rows = automation::make<StaticRecordSet>(std::move(headers), std::make_unique<CountingSource>(1, fetched));
  EXPECT_EQ(rows->column("x").index, 1);
  EXPECT_EQ(rows->column("a.x").index, 0);
  EXPECT_EQ(rows->column("b.x").index, 0);
}

/// A source for whose second row there is no memory.
class GreedySource final : public RowSource {
 public:
  bool fetch(std::vector<ColumnStore>& columns) override {
    if (std::exchange(fetched_, true)) throw std::bad_alloc();
    columns[0].append_whole(1);
    return true;
  }

 private:
  bool fetched_ = false;
};

TEST(StaticRecordSet, NoMemoryForARowIsTheFailureOfThatRow) {
  for (const bool completed : {false, true}) {
    const auto rows =
        automation::make<StaticRecordSet>(std::vector<ColumnHeader>{{"n"}}, std::make_unique<GreedySource>());
    if (completed) rows->complete();
    EXPECT_EQ(rows->whole_number({0}), 1);
    EXPECT_EQ(error_of([&] { rows->move_next(); }), 7) << completed;
  }
}

TEST(StaticRecordSet, AFailureIsReportedWhenItIsRaised) {
  int fetched = 0;
  const auto rows = counting(10, fetched, 4);
  std::vector<int32_t> reported;
  rows->report_failures_to([&](const RunTimeError& error) { reported.push_back(error.number()); });
  rows->complete();
  EXPECT_EQ(reported, std::vector<int32_t>());
  EXPECT_EQ(error_of([&] { rows->move_last(); }), 61);
  EXPECT_EQ(reported, std::vector<int32_t>{61});
}

TEST(StaticRecordSet, RaisesAFailureWhereTheRowIsMissing) {
  int fetched = 0;
  const auto rows = counting(10, fetched, 4);
  rows->move(2);
  EXPECT_EQ(error_of([&] { rows->move_next(); }), 61);
  EXPECT_EQ(rows->whole_number({0}), 3);
  EXPECT_EQ(error_of([&] { rows->record_count(); }), 61);
  rows->move_first();
  EXPECT_EQ(rows->whole_number({0}), 1);
}

TEST(StaticRecordSet, CompletingKeepsAFailureForLater) {
  int fetched = 0;
  const auto rows = counting(10, fetched, 4);
  rows->complete();
  rows->move(2);
  EXPECT_EQ(rows->whole_number({0}), 3);
  EXPECT_EQ(error_of([&] { rows->move_next(); }), 61);
}

TEST(StaticRecordSet, GetRowsTakesBlocksFromTheCursor) {
  int fetched = 0;
  const auto rows = counting(5, fetched);
  rows->move_next();
  const automation::Array block = rows->get_rows(3);
  EXPECT_EQ(block.upper(0), 1);
  EXPECT_EQ(block.upper(1), 2);
  EXPECT_TRUE(block.at(std::vector<int32_t>{0, 2}) == automation::Variant(4));
  EXPECT_EQ(rows->whole_number({0}), 5);
  EXPECT_EQ(rows->get_rows(-1).upper(1), 0);
  EXPECT_EQ(rows->get_rows(10).upper(1), -1);
  rows->move_first();
  rows->move_previous();
  EXPECT_EQ(error_of([&] { rows->get_rows(1); }), 3021);
}

TEST(StaticRecordSet, ClosedAnswersNothing) {
  int fetched = 0;
  const auto rows = counting(2, fetched);
  rows->close();
  EXPECT_FALSE(rows->is_open());
  EXPECT_EQ(error_of([&] { rows->at_end(); }), 3704);
  EXPECT_EQ(error_of([&] { rows->record_count(); }), 3704);
  EXPECT_EQ(error_of([&] { rows->value({0}); }), 3704);
  rows->close();
}

}  // namespace
}  // namespace records
