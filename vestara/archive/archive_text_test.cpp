#include "vestara/archive/archive_text.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"
#include "tests/support/wheels.h"

namespace vestara {
namespace {

using automation::Empty;
using automation::Missing;
using automation::Null;
using automation::Variant;
using testing_support::day;

TEST(ArchiveText, DrawCountCharacterByCharacter) {
  const testing_support::CanonicalWheels wheels;
  const struct {
    const char* what;
    Variant from, to;
    int32_t wheel;
    const char* expected;
  } rows[] = {
      {"every draw", Missing{}, Missing{}, 12,
       "SELECT storico.dtEstr From storico  WHERE (estr1<>0 OR estr2<>0 OR estr3<>0 OR estr4<>0 OR estr5<>0) GROUP BY "
       "storico.dtEstr"},
      {"Null, Empty and the empty text are no bounds", Null{}, Empty{}, 12,
       "SELECT storico.dtEstr From storico  WHERE (estr1<>0 OR estr2<>0 OR estr3<>0 OR estr4<>0 OR estr5<>0) GROUP BY "
       "storico.dtEstr"},
      {"empty texts", "", "", 11,
       "SELECT storico.dtEstr From storico  WHERE (ruota='RN') AND (estr1<>0 OR estr2<>0 OR estr3<>0 OR estr4<>0 OR "
       "estr5<>0) GROUP BY storico.dtEstr"},
      {"from a date, one wheel", day(2026, 11, 15), Missing{}, 1,
       "SELECT storico.dtEstr From storico  WHERE (dtEstr >='2026-11-15') AND (ruota='BA') AND (estr1<>0 OR estr2<>0 "
       "OR estr3<>0 OR estr4<>0 OR estr5<>0) GROUP BY storico.dtEstr"},
      {"up to a date", Missing{}, "15/11/2026", 12,
       "SELECT storico.dtEstr From storico  WHERE (dtEstr <='2026-11-15') AND (estr1<>0 OR estr2<>0 OR estr3<>0 OR "
       "estr4<>0 OR estr5<>0) GROUP BY storico.dtEstr"},
      {"both, the time of day stays out", testing_support::moment({2026, 1, 2, 10, 0, 0}), day(2026, 11, 15), 2,
       "SELECT storico.dtEstr From storico  WHERE (dtEstr >='2026-01-02') AND (dtEstr <='2026-11-15') AND (ruota='CA') "
       "AND (estr1<>0 OR estr2<>0 OR estr3<>0 OR estr4<>0 OR estr5<>0) GROUP BY storico.dtEstr"},
      {"no dates", "x", 5, 12,
       "SELECT storico.dtEstr From storico  WHERE (dtEstr >=NULL) AND (dtEstr <=NULL) AND (estr1<>0 OR estr2<>0 OR "
       "estr3<>0 OR estr4<>0 OR estr5<>0) GROUP BY storico.dtEstr"}};
  for (const auto& row : rows)
    EXPECT_EQ(draw_count_statement({bound_of_count(row.from), bound_of_count(row.to), row.wheel}), row.expected)
        << row.what;
}

TEST(ArchiveText, WheelOutsideTheTableIsASubscriptError) {
  for (const int32_t wheel : {0, 13, -1, 32767})
    EXPECT_EQ(testing_support::error_of([&] { draw_count_statement({{}, {}, wheel}); }), 9) << wheel;
}

TEST(ArchiveText, BoundsOfTheArchive) {
  EXPECT_EQ(newest_date_statement(), "SELECT max(dtEstr)as dmax FROM Storico");
  EXPECT_EQ(oldest_date_statement(), "SELECT min(dtEstr)as dmin FROM Storico");
}

}  // namespace
}  // namespace vestara
