#include "vestara/distances/distance_text.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"

namespace vestara {
namespace {

using automation::Missing;
using automation::Null;
using automation::Variant;
using testing_support::day;
using testing_support::moment;

constexpr auto newest_first = DateOrder::newest_first;
constexpr auto oldest_first = DateOrder::oldest_first;
constexpr auto included = NationalWheel::included;
constexpr auto left_out = NationalWheel::left_out;

template <class Row>
DistancePeriod period_of(const Row& row) {
  return {DateBound::given(row.from), DateBound::given(row.to), row.order};
}

TEST(DistanceText, WheelDrawsCharacterByCharacter) {
  const struct {
    const char* what;
    std::vector<std::string> wheel_items;
    Variant from, to;
    DateOrder order;
    const char* statement;
  } rows[] = {
      {"neither wheels nor dates",
       {},
       Missing{},
       Missing{},
       newest_first,
       "SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) ORDER BY dtEstr DESC"},
      {"Null is as good as missing; oldest first",
       {},
       Null{},
       Null{},
       oldest_first,
       "SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) ORDER BY dtEstr ASC"},
      {"one wheel",
       {"'BA'"},
       Missing{},
       Null{},
       newest_first,
       "SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) AND (ruota='BA') ORDER BY dtEstr DESC"},
      {"two wheels, one date",
       {"'BA'", "'NA'"},
       day(2026, 1, 2),
       Missing{},
       oldest_first,
       "SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) AND (dtEstr >='2026-01-02') AND (ruota='BA' OR "
       "ruota='NA') ORDER BY dtEstr ASC"},
      {"three wheels as they were written, the other date",
       {"' ba'", "''", "'RN'"},
       Null{},
       day(1871, 1, 7),
       newest_first,
       "SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) AND (dtEstr <='1871-01-07') AND (ruota=' ba' OR "
       "ruota='' OR ruota='RN') ORDER BY dtEstr DESC"},
      {"both dates, their time of day left out",
       {"'NA'"},
       moment({2026, 1, 2, 10, 14, 16}),
       "16.01.2026 20:30",
       newest_first,
       "SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) AND (dtEstr >='2026-01-02') AND (dtEstr "
       "<='2026-01-16') AND (ruota='NA') ORDER BY dtEstr DESC"},
      {"what is no date",
       {},
       "30/02/2026",
       "",
       oldest_first,
       "SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) AND (dtEstr >=NULL) AND (dtEstr <=NULL) ORDER "
       "BY dtEstr ASC"},
      {"nor is a number, nor Empty",
       {},
       46024,
       Variant(),
       newest_first,
       "SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) AND (dtEstr >=NULL) AND (dtEstr <=NULL) ORDER "
       "BY dtEstr DESC"}};
  for (const auto& row : rows)
    EXPECT_EQ(wheel_draws_statement(period_of(row), WheelFilter(row.wheel_items)), row.statement) << row.what;
}

TEST(DistanceText, AllDrawsCharacterByCharacter) {
  const struct {
    const char* what;
    Variant from, to;
    DateOrder order;
    NationalWheel national;
    const char* statement;
  } rows[] = {
      {"no dates", Missing{}, Missing{}, newest_first, included,
       "SELECT estr1,estr2,estr3,estr4,estr5,dtEstr FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) ORDER BY dtEstr DESC"},
      {"without the national wheel, oldest first", Null{}, Missing{}, oldest_first, left_out,
       "SELECT estr1,estr2,estr3,estr4,estr5,dtEstr FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) AND (ruota <> 'RN') ORDER BY dtEstr ASC"},
      {"a first date", "2026-01-02", Null{}, oldest_first, included,
       "SELECT estr1,estr2,estr3,estr4,estr5,dtEstr FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) AND (dtEstr >='2026-01-02') ORDER BY dtEstr "
       "ASC"},
      {"a last date, without the national wheel", Missing{}, day(2026, 1, 16), newest_first, left_out,
       "SELECT estr1,estr2,estr3,estr4,estr5,dtEstr FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) AND (dtEstr <='2026-01-16') AND (ruota <> 'RN') "
       "ORDER BY dtEstr DESC"},
      {"both, without the national wheel", day(2026, 1, 2), "16/01/2026", newest_first, left_out,
       "SELECT estr1,estr2,estr3,estr4,estr5,dtEstr FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) AND (dtEstr >='2026-01-02') AND (dtEstr "
       "<='2026-01-16') AND (ruota <> 'RN') ORDER BY dtEstr DESC"},
      {"no dates that are dates", "x", "16/01/26", newest_first, included,
       "SELECT estr1,estr2,estr3,estr4,estr5,dtEstr FROM storico WHERE (estr1 is not null AND estr2 is not null and "
       "estr3 is not null and estr4 is not null and estr5 is not null) AND (dtEstr >=NULL) AND (dtEstr <=NULL) ORDER "
       "BY dtEstr DESC"}};
  for (const auto& row : rows) EXPECT_EQ(all_draws_statement(period_of(row), row.national), row.statement) << row.what;
}

}  // namespace
}  // namespace vestara
