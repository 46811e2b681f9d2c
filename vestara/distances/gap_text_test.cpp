#include "vestara/distances/gap_text.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"

namespace vestara {
namespace {

using automation::Missing;
using automation::Null;
using automation::Variant;
using testing_support::day;

constexpr auto newest_first = DateOrder::newest_first;
constexpr auto oldest_first = DateOrder::oldest_first;

TEST(GapText, StatementCharacterByCharacter) {
  const struct {
    const char *what, *numbers;
    int16_t least_hits;
    std::vector<std::string> wheel_items;
    Variant from, to;
    DateOrder order;
    const char* statement;
  } rows[] = {
      {"neither wheels nor dates, every row with a number",
       "5,12",
       0,
       {},
       Missing{},
       Missing{},
       newest_first,
       "SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati FROM (SELECT DISTINCT "
       "sto.concorsoNumero,sto.dtEstr FROM storico as sto  ORDER BY sto.dtEstr DESC)  AS R1 LEFT JOIN (SELECT "
       "sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati FROM storico AS sto inner join(SELECT s1.id, "
       "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 "
       "IN(5,12) Union All SELECT id from storico where estr2 IN(5,12) Union All SELECT id from storico where estr3 "
       "IN(5,12) Union All SELECT id from storico where estr4 IN(5,12) Union All SELECT id from storico where estr5 "
       "IN(5,12))AS s GROUP BY s.id Having (Count(s.id) >=0))as s1)as s2 on sto.id = s2.id Group by "
       "dtestr,ruota,numeritrovati,concorsoNumero ORDER BY sto.dtEstr DESC)  AS R2 ON R1.dtEstr = R2.dtEstr ORDER by "
       "R1.dtEstr DESC"},
      {"the same, oldest first, Null for missing",
       "5,12",
       0,
       {},
       Null{},
       Null{},
       oldest_first,
       "SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati FROM (SELECT DISTINCT "
       "sto.concorsoNumero,sto.dtEstr FROM storico as sto  ORDER BY sto.dtEstr ASC)  AS R1 LEFT JOIN (SELECT "
       "sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati FROM storico AS sto inner join(SELECT s1.id, "
       "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 "
       "IN(5,12) Union All SELECT id from storico where estr2 IN(5,12) Union All SELECT id from storico where estr3 "
       "IN(5,12) Union All SELECT id from storico where estr4 IN(5,12) Union All SELECT id from storico where estr5 "
       "IN(5,12))AS s GROUP BY s.id Having (Count(s.id) >=0))as s1)as s2 on sto.id = s2.id Group by "
       "dtestr,ruota,numeritrovati,concorsoNumero ORDER BY sto.dtEstr ASC)  AS R2 ON R1.dtEstr = R2.dtEstr ORDER by "
       "R1.dtEstr ASC"},
      {"one wheel",
       "5,12",
       2,
       {"'BA'"},
       Missing{},
       Null{},
       newest_first,
       "SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati FROM (SELECT DISTINCT "
       "sto.concorsoNumero,sto.dtEstr FROM storico as sto  ORDER BY sto.dtEstr DESC)  AS R1 LEFT JOIN (SELECT "
       "sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati FROM storico AS sto inner join(SELECT s1.id, "
       "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 "
       "IN(5,12) Union All SELECT id from storico where estr2 IN(5,12) Union All SELECT id from storico where estr3 "
       "IN(5,12) Union All SELECT id from storico where estr4 IN(5,12) Union All SELECT id from storico where estr5 "
       "IN(5,12))AS s GROUP BY s.id Having (Count(s.id) >=2))as s1)as s2 on sto.id = s2.id  WHERE (ruota='BA')Group "
       "by dtestr,ruota,numeritrovati,concorsoNumero ORDER BY sto.dtEstr DESC)  AS R2 ON R1.dtEstr = R2.dtEstr ORDER "
       "by R1.dtEstr DESC"},
      {"two wheels, oldest first",
       "90",
       1,
       {"'BA'", "'NA'"},
       Null{},
       Missing{},
       oldest_first,
       "SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati FROM (SELECT DISTINCT "
       "sto.concorsoNumero,sto.dtEstr FROM storico as sto  ORDER BY sto.dtEstr ASC)  AS R1 LEFT JOIN (SELECT "
       "sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati FROM storico AS sto inner join(SELECT s1.id, "
       "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 IN(90) "
       "Union All SELECT id from storico where estr2 IN(90) Union All SELECT id from storico where estr3 IN(90) Union "
       "All SELECT id from storico where estr4 IN(90) Union All SELECT id from storico where estr5 IN(90))AS s GROUP "
       "BY s.id Having (Count(s.id) >=1))as s1)as s2 on sto.id = s2.id  WHERE (ruota='BA' OR ruota='NA')Group by "
       "dtestr,ruota,numeritrovati,concorsoNumero ORDER BY sto.dtEstr ASC)  AS R2 ON R1.dtEstr = R2.dtEstr ORDER by "
       "R1.dtEstr ASC"},
      {"only a lower bound",
       "1,2,3",
       3,
       {},
       day(2026, 1, 2),
       Missing{},
       newest_first,
       "SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati FROM (SELECT DISTINCT "
       "sto.concorsoNumero,sto.dtEstr FROM storico as sto  WHERE (sto.dtEstr >='2026-01-02') ORDER BY sto.dtEstr "
       "DESC)  AS R1 LEFT JOIN (SELECT sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati FROM storico AS sto "
       "inner join(SELECT s1.id, s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from "
       "storico where estr1 IN(1,2,3) Union All SELECT id from storico where estr2 IN(1,2,3) Union All SELECT id from "
       "storico where estr3 IN(1,2,3) Union All SELECT id from storico where estr4 IN(1,2,3) Union All SELECT id from "
       "storico where estr5 IN(1,2,3))AS s GROUP BY s.id Having (Count(s.id) >=3))as s1)as s2 on sto.id = s2.id  "
       "WHERE (sto.dtEstr >='2026-01-02')Group by dtestr,ruota,numeritrovati,concorsoNumero ORDER BY sto.dtEstr DESC) "
       " AS R2 ON R1.dtEstr = R2.dtEstr ORDER by R1.dtEstr DESC"},
      {"only an upper bound, one wheel",
       "1,2,3",
       -1,
       {"'RN'"},
       Null{},
       day(2026, 11, 15),
       oldest_first,
       "SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati FROM (SELECT DISTINCT "
       "sto.concorsoNumero,sto.dtEstr FROM storico as sto  WHERE (sto.dtEstr <='2026-11-15') ORDER BY sto.dtEstr ASC) "
       " AS R1 LEFT JOIN (SELECT sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati FROM storico AS sto inner "
       "join(SELECT s1.id, s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico "
       "where estr1 IN(1,2,3) Union All SELECT id from storico where estr2 IN(1,2,3) Union All SELECT id from storico "
       "where estr3 IN(1,2,3) Union All SELECT id from storico where estr4 IN(1,2,3) Union All SELECT id from storico "
       "where estr5 IN(1,2,3))AS s GROUP BY s.id Having (Count(s.id) >=-1))as s1)as s2 on sto.id = s2.id  WHERE "
       "(sto.dtEstr <='2026-11-15') AND (ruota='RN')Group by dtestr,ruota,numeritrovati,concorsoNumero ORDER BY "
       "sto.dtEstr ASC)  AS R2 ON R1.dtEstr = R2.dtEstr ORDER by R1.dtEstr ASC"},
      {"both bounds",
       "1,2,3,4,5",
       5,
       {},
       day(2026, 1, 2),
       day(2026, 11, 15),
       oldest_first,
       "SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati FROM (SELECT DISTINCT "
       "sto.concorsoNumero,sto.dtEstr FROM storico as sto  WHERE (sto.dtEstr >='2026-01-02') AND (sto.dtEstr "
       "<='2026-11-15') ORDER BY sto.dtEstr ASC)  AS R1 LEFT JOIN (SELECT "
       "sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati FROM storico AS sto inner join(SELECT s1.id, "
       "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 "
       "IN(1,2,3,4,5) Union All SELECT id from storico where estr2 IN(1,2,3,4,5) Union All SELECT id from storico "
       "where estr3 IN(1,2,3,4,5) Union All SELECT id from storico where estr4 IN(1,2,3,4,5) Union All SELECT id from "
       "storico where estr5 IN(1,2,3,4,5))AS s GROUP BY s.id Having (Count(s.id) >=5))as s1)as s2 on sto.id = s2.id  "
       "WHERE (sto.dtEstr >='2026-01-02') AND (sto.dtEstr <='2026-11-15')Group by "
       "dtestr,ruota,numeritrovati,concorsoNumero ORDER BY sto.dtEstr ASC)  AS R2 ON R1.dtEstr = R2.dtEstr ORDER by "
       "R1.dtEstr ASC"},
      {"both bounds, two wheels",
       "1,2,3,4,5",
       5,
       {"'BA'", "'NA'"},
       day(2026, 1, 2),
       day(2026, 11, 15),
       newest_first,
       "SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati FROM (SELECT DISTINCT "
       "sto.concorsoNumero,sto.dtEstr FROM storico as sto  WHERE (sto.dtEstr >='2026-01-02') AND (sto.dtEstr "
       "<='2026-11-15') ORDER BY sto.dtEstr DESC)  AS R1 LEFT JOIN (SELECT "
       "sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati FROM storico AS sto inner join(SELECT s1.id, "
       "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 "
       "IN(1,2,3,4,5) Union All SELECT id from storico where estr2 IN(1,2,3,4,5) Union All SELECT id from storico "
       "where estr3 IN(1,2,3,4,5) Union All SELECT id from storico where estr4 IN(1,2,3,4,5) Union All SELECT id from "
       "storico where estr5 IN(1,2,3,4,5))AS s GROUP BY s.id Having (Count(s.id) >=5))as s1)as s2 on sto.id = s2.id  "
       "WHERE (sto.dtEstr >='2026-01-02') AND (sto.dtEstr <='2026-11-15') AND (ruota='BA' OR ruota='NA')Group by "
       "dtestr,ruota,numeritrovati,concorsoNumero ORDER BY sto.dtEstr DESC)  AS R2 ON R1.dtEstr = R2.dtEstr ORDER by "
       "R1.dtEstr DESC"},
      {"a bound that is no date, an empty wheel",
       "7",
       6,
       {"'BA'", "''"},
       "31/04/2026",
       Missing{},
       newest_first,
       "SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati FROM (SELECT DISTINCT "
       "sto.concorsoNumero,sto.dtEstr FROM storico as sto  WHERE (sto.dtEstr >=NULL) ORDER BY sto.dtEstr DESC)  AS R1 "
       "LEFT JOIN (SELECT sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati FROM storico AS sto inner "
       "join(SELECT s1.id, s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico "
       "where estr1 IN(7) Union All SELECT id from storico where estr2 IN(7) Union All SELECT id from storico where "
       "estr3 IN(7) Union All SELECT id from storico where estr4 IN(7) Union All SELECT id from storico where estr5 "
       "IN(7))AS s GROUP BY s.id Having (Count(s.id) >=6))as s1)as s2 on sto.id = s2.id  WHERE (sto.dtEstr >=NULL) "
       "AND (ruota='BA' OR ruota='')Group by dtestr,ruota,numeritrovati,concorsoNumero ORDER BY sto.dtEstr DESC)  AS "
       "R2 ON R1.dtEstr = R2.dtEstr ORDER by R1.dtEstr DESC"},
      {"the empty text is no date either, nor is a number",
       "7",
       1,
       {},
       "",
       5,
       oldest_first,
       "SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati FROM (SELECT DISTINCT "
       "sto.concorsoNumero,sto.dtEstr FROM storico as sto  WHERE (sto.dtEstr >=NULL) AND (sto.dtEstr <=NULL) ORDER BY "
       "sto.dtEstr ASC)  AS R1 LEFT JOIN (SELECT sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati FROM "
       "storico AS sto inner join(SELECT s1.id, s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM "
       "(SELECT id from storico where estr1 IN(7) Union All SELECT id from storico where estr2 IN(7) Union All SELECT "
       "id from storico where estr3 IN(7) Union All SELECT id from storico where estr4 IN(7) Union All SELECT id from "
       "storico where estr5 IN(7))AS s GROUP BY s.id Having (Count(s.id) >=1))as s1)as s2 on sto.id = s2.id  WHERE "
       "(sto.dtEstr >=NULL) AND (sto.dtEstr <=NULL)Group by dtestr,ruota,numeritrovati,concorsoNumero ORDER BY "
       "sto.dtEstr ASC)  AS R2 ON R1.dtEstr = R2.dtEstr ORDER by R1.dtEstr ASC"},
      {"no numbers",
       "",
       0,
       {"' CA'"},
       Missing{},
       Missing{},
       newest_first,
       "SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati FROM (SELECT DISTINCT "
       "sto.concorsoNumero,sto.dtEstr FROM storico as sto  ORDER BY sto.dtEstr DESC)  AS R1 LEFT JOIN (SELECT "
       "sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati FROM storico AS sto inner join(SELECT s1.id, "
       "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 IN() "
       "Union All SELECT id from storico where estr2 IN() Union All SELECT id from storico where estr3 IN() Union All "
       "SELECT id from storico where estr4 IN() Union All SELECT id from storico where estr5 IN())AS s GROUP BY s.id "
       "Having (Count(s.id) >=0))as s1)as s2 on sto.id = s2.id  WHERE (ruota=' CA')Group by "
       "dtestr,ruota,numeritrovati,concorsoNumero ORDER BY sto.dtEstr DESC)  AS R2 ON R1.dtEstr = R2.dtEstr ORDER by "
       "R1.dtEstr DESC"},
      {"numbers as they stand, blank wheels",
       " 5, x'",
       2,
       {"", "  "},
       Missing{},
       Missing{},
       oldest_first,
       "SELECT R1.dtEstr, R2.dtEstr, R2.ruota, R2.concorsoNumero, R2.numeriTrovati FROM (SELECT DISTINCT "
       "sto.concorsoNumero,sto.dtEstr FROM storico as sto  ORDER BY sto.dtEstr ASC)  AS R1 LEFT JOIN (SELECT "
       "sto.ruota,sto.dtEstr,sto.concorsoNumero,s2.numeriTrovati FROM storico AS sto inner join(SELECT s1.id, "
       "s1.numeriTrovati From (SELECT s.id, Count(*) AS numeriTrovati FROM (SELECT id from storico where estr1 IN( 5, "
       "x') Union All SELECT id from storico where estr2 IN( 5, x') Union All SELECT id from storico where estr3 IN( "
       "5, x') Union All SELECT id from storico where estr4 IN( 5, x') Union All SELECT id from storico where estr5 "
       "IN( 5, x'))AS s GROUP BY s.id Having (Count(s.id) >=2))as s1)as s2 on sto.id = s2.id Group by "
       "dtestr,ruota,numeritrovati,concorsoNumero ORDER BY sto.dtEstr ASC)  AS R2 ON R1.dtEstr = R2.dtEstr ORDER by "
       "R1.dtEstr ASC"}};
  for (const auto& row : rows)
    EXPECT_EQ(gap_statement({row.numbers,
                             row.least_hits,
                             {WheelFilter(row.wheel_items), DateBound::given(row.from), DateBound::given(row.to)},
                             row.order}),
              row.statement)
        << row.what;
}

TEST(GapText, TimeOfDayOfABoundStaysOut) {
  const Variant from = testing_support::moment({2026, 1, 2, 23, 59, 59}), to("15/11/2026 10:14:16");
  const automation::Date first_day = day(2026, 1, 2), last_day = day(2026, 11, 15);
  EXPECT_EQ(gap_statement({"5", 1, {{}, DateBound::given(from), DateBound::given(to)}, newest_first}),
            gap_statement({"5", 1, {{}, first_day, last_day}, newest_first}));
}

}  // namespace
}  // namespace vestara
