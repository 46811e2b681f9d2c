#include "vestara/archive/search_text.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"

namespace vestara {
namespace {

using automation::Missing;
using automation::Null;
using automation::Variant;
using testing_support::day;

constexpr auto hits = DrawChoice::hits;
constexpr auto all_draws = DrawChoice::all_draws;
constexpr auto newest_first = DateOrder::newest_first;
constexpr auto oldest_first = DateOrder::oldest_first;

const struct {
  const char *what, *numbers;
  int16_t least_hits;
  std::vector<std::string> wheel_items;
  Variant from, to;
  DrawChoice draws;
  DateOrder order;
  const char *counting, *dates;
} questions[] = {
    {"one wheel, no dates",
     "5,12",
     2,
     {"'X'"},
     Missing{},
     Missing{},
     hits,
     newest_first,
     "SELECT s2.id, s2.numeriTrovati,sto.dtEstr,sto.ConcorsoNumero FROM storico AS sto inner join(SELECT s1.id, "
     "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 "
     "IN(5,12) Union All SELECT id from storico where estr2 IN(5,12) Union All SELECT id from storico where estr3 "
     "IN(5,12) Union All SELECT id from storico where estr4 IN(5,12) Union All SELECT id from storico where estr5 "
     "IN(5,12))  AS s GROUP BY s.id Having (Count(s.id) >=2)) s1) s2 on sto.id = s2.id WHERE (ruota='X') ORDER BY "
     "sto.dtEstr DESC",
     "SELECT DISTINCT s.dtEstr, s.concorsoNumero FROM (SELECT id,dtestr,concorsoNumero,ruota from storico where "
     "estr1 IN(5,12)Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr2 IN(5,12) Union All "
     "SELECT id,dtestr,concorsoNumero,ruota from storico where estr3 IN(5,12) Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr4 IN(5,12) Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr5 IN(5,12)) AS s  WHERE (s.ruota='X')GROUP BY "
     "s.dtEstr,s.concorsoNumero,s.id Having(Count(S.id) >= 2) ORDER BY s.dtEstr DESC"},
    {"neither wheels nor dates, every row with a number",
     "5,12",
     0,
     {},
     Missing{},
     Null{},
     hits,
     newest_first,
     "SELECT s2.id, s2.numeriTrovati,sto.dtEstr,sto.ConcorsoNumero FROM storico AS sto inner join(SELECT s1.id, "
     "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 "
     "IN(5,12) Union All SELECT id from storico where estr2 IN(5,12) Union All SELECT id from storico where estr3 "
     "IN(5,12) Union All SELECT id from storico where estr4 IN(5,12) Union All SELECT id from storico where estr5 "
     "IN(5,12))  AS s GROUP BY s.id Having (Count(s.id) >=0)) s1) s2 on sto.id = s2.id ORDER BY sto.dtEstr DESC",
     "SELECT DISTINCT s.dtEstr, s.concorsoNumero FROM (SELECT id,dtestr,concorsoNumero,ruota from storico where "
     "estr1 IN(5,12)Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr2 IN(5,12) Union All "
     "SELECT id,dtestr,concorsoNumero,ruota from storico where estr3 IN(5,12) Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr4 IN(5,12) Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr5 IN(5,12)) AS s GROUP BY s.dtEstr,s.concorsoNumero,s.id "
     "Having(Count(S.id) >= 0) ORDER BY s.dtEstr DESC"},
    {"only a lower bound, oldest first",
     "90",
     1,
     {"'BA'"},
     day(2026, 1, 2),
     Null{},
     hits,
     oldest_first,
     "SELECT s2.id, s2.numeriTrovati,sto.dtEstr,sto.ConcorsoNumero FROM storico AS sto inner join(SELECT s1.id, "
     "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 IN(90) "
     "Union All SELECT id from storico where estr2 IN(90) Union All SELECT id from storico where estr3 IN(90) Union "
     "All SELECT id from storico where estr4 IN(90) Union All SELECT id from storico where estr5 IN(90))  AS s GROUP "
     "BY s.id Having (Count(s.id) >=1)) s1) s2 on sto.id = s2.id WHERE (sto.dtEstr >='2026-01-02') AND (ruota='BA') "
     "ORDER BY sto.dtEstr ASC",
     "SELECT DISTINCT s.dtEstr, s.concorsoNumero FROM (SELECT id,dtestr,concorsoNumero,ruota from storico where "
     "estr1 IN(90)Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr2 IN(90) Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr3 IN(90) Union All SELECT id,dtestr,concorsoNumero,ruota "
     "from storico where estr4 IN(90) Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr5 "
     "IN(90)) AS s  WHERE (s.dtEstr >='2026-01-02') AND (s.ruota='BA')GROUP BY s.dtEstr,s.concorsoNumero,s.id "
     "Having(Count(S.id) >= 1) ORDER BY s.dtEstr ASC"},
    {"only an upper bound",
     "1,2,3",
     3,
     {},
     Null{},
     day(2026, 11, 15),
     hits,
     newest_first,
     "SELECT s2.id, s2.numeriTrovati,sto.dtEstr,sto.ConcorsoNumero FROM storico AS sto inner join(SELECT s1.id, "
     "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 "
     "IN(1,2,3) Union All SELECT id from storico where estr2 IN(1,2,3) Union All SELECT id from storico where estr3 "
     "IN(1,2,3) Union All SELECT id from storico where estr4 IN(1,2,3) Union All SELECT id from storico where estr5 "
     "IN(1,2,3))  AS s GROUP BY s.id Having (Count(s.id) >=3)) s1) s2 on sto.id = s2.id WHERE (sto.dtEstr "
     "<='2026-11-15') ORDER BY sto.dtEstr DESC",
     "SELECT DISTINCT s.dtEstr, s.concorsoNumero FROM (SELECT id,dtestr,concorsoNumero,ruota from storico where "
     "estr1 IN(1,2,3)Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr2 IN(1,2,3) Union All "
     "SELECT id,dtestr,concorsoNumero,ruota from storico where estr3 IN(1,2,3) Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr4 IN(1,2,3) Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr5 IN(1,2,3)) AS s  WHERE (s.dtEstr <='2026-11-15')GROUP "
     "BY s.dtEstr,s.concorsoNumero,s.id Having(Count(S.id) >= 3) ORDER BY s.dtEstr DESC"},
    {"both bounds, several wheels",
     "1,2,3,4,5",
     5,
     {"'BA'", "'CA'", "'RN'"},
     day(2026, 1, 2),
     day(2026, 11, 15),
     hits,
     oldest_first,
     "SELECT s2.id, s2.numeriTrovati,sto.dtEstr,sto.ConcorsoNumero FROM storico AS sto inner join(SELECT s1.id, "
     "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 "
     "IN(1,2,3,4,5) Union All SELECT id from storico where estr2 IN(1,2,3,4,5) Union All SELECT id from storico "
     "where estr3 IN(1,2,3,4,5) Union All SELECT id from storico where estr4 IN(1,2,3,4,5) Union All SELECT id from "
     "storico where estr5 IN(1,2,3,4,5))  AS s GROUP BY s.id Having (Count(s.id) >=5)) s1) s2 on sto.id = s2.id "
     "WHERE (sto.dtEstr >='2026-01-02') AND (sto.dtEstr <='2026-11-15') AND (ruota='BA' OR ruota='CA' OR ruota='RN') "
     "ORDER BY sto.dtEstr ASC",
     "SELECT DISTINCT s.dtEstr, s.concorsoNumero FROM (SELECT id,dtestr,concorsoNumero,ruota from storico where "
     "estr1 IN(1,2,3,4,5)Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr2 IN(1,2,3,4,5) "
     "Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr3 IN(1,2,3,4,5) Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr4 IN(1,2,3,4,5) Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr5 IN(1,2,3,4,5)) AS s  WHERE (s.dtEstr >='2026-01-02') "
     "AND (s.dtEstr <='2026-11-15') AND (s.ruota='BA' OR s.ruota='CA' OR s.ruota='RN')GROUP BY "
     "s.dtEstr,s.concorsoNumero,s.id Having(Count(S.id) >= 5) ORDER BY s.dtEstr ASC"},
    {"a bound that is no date, fewer hits than none",
     "7",
     -1,
     {"'BA'", "''"},
     "soon",
     Missing{},
     hits,
     newest_first,
     "SELECT s2.id, s2.numeriTrovati,sto.dtEstr,sto.ConcorsoNumero FROM storico AS sto inner join(SELECT s1.id, "
     "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 IN(7) "
     "Union All SELECT id from storico where estr2 IN(7) Union All SELECT id from storico where estr3 IN(7) Union "
     "All SELECT id from storico where estr4 IN(7) Union All SELECT id from storico where estr5 IN(7))  AS s GROUP "
     "BY s.id Having (Count(s.id) >=-1)) s1) s2 on sto.id = s2.id WHERE (sto.dtEstr >=NULL) AND (ruota='BA' OR "
     "ruota='') ORDER BY sto.dtEstr DESC",
     "SELECT DISTINCT s.dtEstr, s.concorsoNumero FROM (SELECT id,dtestr,concorsoNumero,ruota from storico where "
     "estr1 IN(7)Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr2 IN(7) Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr3 IN(7) Union All SELECT id,dtestr,concorsoNumero,ruota "
     "from storico where estr4 IN(7) Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr5 IN(7)) "
     "AS s  WHERE (s.dtEstr >=NULL) AND (s.ruota='BA' OR s.ruota='')GROUP BY s.dtEstr,s.concorsoNumero,s.id "
     "Having(Count(S.id) >= -1) ORDER BY s.dtEstr DESC"},
    {"an empty text is a bound that is no date",
     "7",
     6,
     {},
     "31/04/2026",
     "",
     hits,
     newest_first,
     "SELECT s2.id, s2.numeriTrovati,sto.dtEstr,sto.ConcorsoNumero FROM storico AS sto inner join(SELECT s1.id, "
     "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 IN(7) "
     "Union All SELECT id from storico where estr2 IN(7) Union All SELECT id from storico where estr3 IN(7) Union "
     "All SELECT id from storico where estr4 IN(7) Union All SELECT id from storico where estr5 IN(7))  AS s GROUP "
     "BY s.id Having (Count(s.id) >=6)) s1) s2 on sto.id = s2.id WHERE (sto.dtEstr >=NULL) AND (sto.dtEstr <=NULL) "
     "ORDER BY sto.dtEstr DESC",
     "SELECT DISTINCT s.dtEstr, s.concorsoNumero FROM (SELECT id,dtestr,concorsoNumero,ruota from storico where "
     "estr1 IN(7)Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr2 IN(7) Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr3 IN(7) Union All SELECT id,dtestr,concorsoNumero,ruota "
     "from storico where estr4 IN(7) Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr5 IN(7)) "
     "AS s  WHERE (s.dtEstr >=NULL) AND (s.dtEstr <=NULL)GROUP BY s.dtEstr,s.concorsoNumero,s.id Having(Count(S.id) "
     ">= 6) ORDER BY s.dtEstr DESC"},
    {"numbers as they stand",
     " 5, x'",
     2,
     {},
     Missing{},
     Missing{},
     hits,
     oldest_first,
     "SELECT s2.id, s2.numeriTrovati,sto.dtEstr,sto.ConcorsoNumero FROM storico AS sto inner join(SELECT s1.id, "
     "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 IN( 5, "
     "x') Union All SELECT id from storico where estr2 IN( 5, x') Union All SELECT id from storico where estr3 IN( "
     "5, x') Union All SELECT id from storico where estr4 IN( 5, x') Union All SELECT id from storico where estr5 "
     "IN( 5, x'))  AS s GROUP BY s.id Having (Count(s.id) >=2)) s1) s2 on sto.id = s2.id ORDER BY sto.dtEstr ASC",
     "SELECT DISTINCT s.dtEstr, s.concorsoNumero FROM (SELECT id,dtestr,concorsoNumero,ruota from storico where "
     "estr1 IN( 5, x')Union All SELECT id,dtestr,concorsoNumero,ruota from storico where estr2 IN( 5, x') Union All "
     "SELECT id,dtestr,concorsoNumero,ruota from storico where estr3 IN( 5, x') Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr4 IN( 5, x') Union All SELECT "
     "id,dtestr,concorsoNumero,ruota from storico where estr5 IN( 5, x')) AS s GROUP BY "
     "s.dtEstr,s.concorsoNumero,s.id Having(Count(S.id) >= 2) ORDER BY s.dtEstr ASC"},
    {"all draws",
     "",
     0,
     {},
     Missing{},
     Missing{},
     all_draws,
     newest_first,
     "SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto ORDER BY sto.dtEstr DESC",
     "SELECT DISTINCT s.concorsoNumero,s.dtEstr FROM storico as s ORDER BY s.dtEstr DESC"},
    {"all draws, oldest first",
     "5,12",
     2,
     {},
     Null{},
     Null{},
     all_draws,
     oldest_first,
     "SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto ORDER BY sto.dtEstr ASC",
     "SELECT DISTINCT s.concorsoNumero,s.dtEstr FROM storico as s ORDER BY s.dtEstr ASC"},
    {"all draws from a date, no wheel condition",
     "",
     0,
     {"'BA'"},
     day(2026, 1, 2),
     Missing{},
     all_draws,
     newest_first,
     "SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto WHERE (sto.dtEstr >='2026-01-02')ORDER BY "
     "sto.dtEstr DESC",
     "SELECT DISTINCT s.concorsoNumero,s.dtEstr FROM storico as s WHERE (s.dtEstr >='2026-01-02')ORDER BY s.dtEstr "
     "DESC"},
    {"all draws up to a date",
     "",
     0,
     {},
     Missing{},
     day(2026, 11, 15),
     all_draws,
     newest_first,
     "SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto WHERE (sto.dtEstr <='2026-11-15')ORDER BY "
     "sto.dtEstr DESC",
     "SELECT DISTINCT s.concorsoNumero,s.dtEstr FROM storico as s WHERE (s.dtEstr <='2026-11-15')ORDER BY s.dtEstr "
     "DESC"},
    {"all draws between two dates",
     "",
     0,
     {},
     day(2026, 1, 2),
     day(2026, 11, 15),
     all_draws,
     oldest_first,
     "SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto WHERE (sto.dtEstr >='2026-01-02') AND "
     "(sto.dtEstr <='2026-11-15')ORDER BY sto.dtEstr ASC",
     "SELECT DISTINCT s.concorsoNumero,s.dtEstr FROM storico as s WHERE (s.dtEstr >='2026-01-02') AND (s.dtEstr "
     "<='2026-11-15')ORDER BY s.dtEstr ASC"},
    {"all draws, no date",
     "",
     0,
     {},
     Missing{},
     5,
     all_draws,
     newest_first,
     "SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto WHERE (sto.dtEstr <=NULL)ORDER BY sto.dtEstr "
     "DESC",
     "SELECT DISTINCT s.concorsoNumero,s.dtEstr FROM storico as s WHERE (s.dtEstr <=NULL)ORDER BY s.dtEstr DESC"}};

TEST(SearchText, StatementsCharacterByCharacter) {
  for (const auto& row : questions) {
    const SearchQuestion question{row.numbers,
                                  row.least_hits,
                                  {WheelFilter(row.wheel_items), DateBound::given(row.from), DateBound::given(row.to)},
                                  row.draws,
                                  row.order};
    EXPECT_EQ(counting_statement(question), row.counting) << row.what;
    EXPECT_EQ(dates_statement(question), row.dates) << row.what;
  }
}

TEST(SearchText, TimeOfDayOfABoundStaysOut) {
  const Variant from = testing_support::moment({2026, 1, 2, 23, 59, 59}), to("15/11/2026 10:14:16");
  EXPECT_EQ(counting_statement({"", 0, {{}, DateBound::given(from), DateBound::given(to)}, all_draws, newest_first}),
            "SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto WHERE (sto.dtEstr >='2026-01-02') AND "
            "(sto.dtEstr <='2026-11-15')ORDER BY sto.dtEstr DESC");
}

}  // namespace
}  // namespace vestara
