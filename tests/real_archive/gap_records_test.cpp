#include <gtest/gtest.h>

#include <functional>

#include "tests/real_archive/real_archive.h"
#include "tests/support/gap_reader.h"
#include "tests/support/values.h"

namespace real_archive {
namespace {

using automation::Missing;
using automation::Variant;
using testing_support::day;

// Records that the press published, in draws of the wheel. The class counts draws of the archive, so the dates on
// which the wheel was not drawn are told apart here, by a statement of their own.

const struct Record {
  const char *number, *wheel;
  automation::Date earlier, later;
  int32_t draws_of_wheel;
} records[] = {{"53", "VE", day(2003, 5, 10), day(2005, 2, 9), 182},
               {"8", "RM", day(1937, 10, 9), day(1941, 8, 23), 201},
               {"34", "CA", day(2004, 9, 8), day(2006, 4, 1), 203},
               {"78", "BA", day(2023, 2, 14), day(2024, 3, 8), 201},
               {"53", "RN", day(2015, 6, 3), day(2017, 1, 24), 257}};

class GapRecords : public testing::Test {
 protected:
  void SetUp() override {
    if (path().empty()) GTEST_SKIP() << "no real archive: VESTARA_REAL_ARCHIVE is not set";
    gaps_.ActiveConnection(connector());
  }
  /// Dates strictly between the two; on which the wheel was drawn, when one is given.
  int32_t dates_between(const Record& record, const std::string& wheel_condition) {
    const auto rows = connector()->GetRecordset("SELECT DISTINCT dtEstr FROM storico WHERE dtEstr>'" +
                                                automation::iso_day(record.earlier) + "' AND dtEstr<'" +
                                                automation::iso_day(record.later) + "'" + wheel_condition);
    return rows ? rows->record_count() : -1;
  }

  vestara::cDistanze gaps_;
};

TEST_F(GapRecords, BetweenTheTwoHits) {
  for (const auto& record : records) {
    SCOPED_TRACE(std::string(record.number) + " " + record.wheel);
    EXPECT_EQ(dates_between(record, " AND ruota='" + std::string(record.wheel) + "'"), record.draws_of_wheel);
    const int32_t draws = dates_between(record, "");
    EXPECT_GE(draws, record.draws_of_wheel);
    for (const bool ascending : {false, true}) {
      gaps_.LoadDistanze(record.number, 1, record.wheel, record.earlier, record.later, false, false, ascending);
      ASSERT_EQ(gaps_.ItemCount(), 2) << "it begins and ends with a hit, and nothing between";
      EXPECT_EQ(gaps_.Distance(1), 0);
      EXPECT_EQ(gaps_.Distance(2), draws);
      EXPECT_EQ(gaps_.DateDiff(2), Variant(record.later.day() - record.earlier.day()));
      EXPECT_EQ(gaps_.DatePrec(2), ascending ? Variant(automation::date_to_text(record.earlier)) : record.earlier);
      EXPECT_EQ(gaps_.DateLast(2), ascending ? Variant(record.later) : automation::date_to_text(record.later));
    }
  }
}

TEST_F(GapRecords, AmongAllGapsOfTheNumber) {
  for (const auto& record : records) {
    SCOPED_TRACE(std::string(record.number) + " " + record.wheel);
    gaps_.LoadDistanze(record.number, 1, record.wheel);
    int32_t found = 0;
    for (int32_t i = 2; i <= gaps_.ItemCount(); ++i) {
      if (gaps_.DateLast(i) != Variant(automation::date_to_text(record.later))) continue;
      ++found;
      EXPECT_EQ(gaps_.DatePrec(i), Variant(record.earlier));
      EXPECT_EQ(gaps_.Distance(i), dates_between(record, ""));
      EXPECT_EQ(gaps_.Ruota(i), record.wheel);
    }
    EXPECT_EQ(found, 1);
  }
}

TEST_F(GapRecords, HitsOf53OnVenice) {
  const struct {
    Variant from;
    int32_t hits;
  } rows[] = {{Missing{}, 430}, {day(1945, 1, 1), 205}};
  for (const auto& row : rows) {
    gaps_.LoadDistanze("53", 1, "VE", row.from, day(2005, 2, 9), false, false, true);
    int32_t hits = 0;
    for (int32_t i = 1; i <= gaps_.ItemCount(); ++i) hits += gaps_.Ruota(i) == "VE" ? 1 : 0;
    EXPECT_EQ(hits, row.hits);
  }
}

}  // namespace
}  // namespace real_archive
