#include "vestara/frequency/frequency_text.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"

namespace vestara {
namespace {

using automation::Missing;
using automation::Null;
using automation::Variant;
using testing_support::day;
using testing_support::moment;
using Items = std::vector<std::string>;

constexpr auto first_wheel = PeriodBinding::first_wheel;
constexpr auto every_wheel = PeriodBinding::every_wheel;

const std::string delays =
    "SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM STORICO WHERE estr1 >0 AND estr2 >0 AND estr3 >0 AND estr4 >0 AND "
    "estr5 >0";
const std::string delays_end = " ORDER BY dtEstr DESC";
const std::string counts =
    "SELECT st.ruota, st.estrazione, count(*) AS num FROM (SELECT storico.ID, storico.concorsoNumero, storico.dtestr,  "
    "storico.ruota,  storico.estr1 as estrazione FROM storico Union All SELECT storico.ID, storico.concorsoNumero, "
    "storico.dtestr,  storico.ruota,  storico.estr2 From storico Union All SELECT storico.ID, storico.concorsoNumero, "
    "storico.dtestr,  storico.ruota,  storico.estr3 From storico Union All SELECT storico.ID, storico.concorsoNumero, "
    "storico.dtestr,  storico.ruota,  storico.estr4 From storico Union All SELECT storico.ID, storico.concorsoNumero, "
    "storico.dtestr,  storico.ruota,  storico.estr5 From storico)AS st ";
const std::string counts_end = " GROUP BY st.ruota,st.estrazione ORDER BY count(*) DESC";
const std::string dates = "SELECT st.dtEstr From storico as st";
const std::string dates_end = " GROUP BY st.dtEstr";

// What stands between the fixed ends.
const struct {
  const char* what;
  Items wheels;
  Variant from, to;
  const char *delay_filter, *filter;
} selections[] = {
    {"everything", {}, Missing{}, Missing{}, "", ""},
    {"Null bounds are none", {}, Null{}, Null{}, "", ""},
    {"one wheel", {"'BA'"}, Missing{}, Missing{}, " AND ruota='BA'", " WHERE st.ruota IN('BA')"},
    {"two wheels",
     {"'BA'", "'NA'"},
     Missing{},
     Null{},
     " AND ruota='BA' OR ruota='NA'",
     " WHERE st.ruota IN('BA') OR st.ruota IN('NA')"},
    {"three wheels, as they are written",
     {"'ba'", "' RN'", "''"},
     Null{},
     Missing{},
     " AND ruota='ba' OR ruota=' RN' OR ruota=''",
     " WHERE st.ruota IN('ba') OR st.ruota IN(' RN') OR st.ruota IN('')"},
    {"blank items are none",
     {"", "'BA'", "  ", "'CA'", " "},
     Missing{},
     Missing{},
     " AND ruota='BA' OR ruota='CA'",
     " WHERE st.ruota IN('BA') OR st.ruota IN('CA')"},
    {"a lower bound",
     {},
     day(2026, 1, 2),
     Missing{},
     " AND (dtEstr >='2026-01-02')",
     " WHERE (st.dtEstr >='2026-01-02')"},
    {"an upper bound",
     {},
     Null{},
     day(2026, 11, 15),
     " AND (dtEstr <='2026-11-15')",
     " WHERE (st.dtEstr <='2026-11-15')"},
    {"both bounds",
     {},
     day(1939, 1, 7),
     day(1999, 12, 29),
     " AND (dtEstr >='1939-01-07') AND (dtEstr <='1999-12-29')",
     " WHERE (st.dtEstr >='1939-01-07') AND (st.dtEstr <='1999-12-29')"},
    {"a bound and one wheel",
     {"'VE'"},
     Missing{},
     day(2005, 2, 8),
     " AND (dtEstr <='2005-02-08') AND ruota='VE'",
     " WHERE (st.dtEstr <='2005-02-08') AND st.ruota IN('VE')"},
    {"the bounds bind to the first wheel only",
     {"'BA'", "'NA'"},
     day(2026, 1, 2),
     day(2026, 11, 15),
     " AND (dtEstr >='2026-01-02') AND (dtEstr <='2026-11-15') AND ruota='BA' OR ruota='NA'",
     " WHERE (st.dtEstr >='2026-01-02') AND (st.dtEstr <='2026-11-15') AND st.ruota IN('BA') OR st.ruota IN('NA')"},
    {"dates as texts, the time of day left out",
     {},
     "02/01/2026 23:59:59",
     moment({2026, 11, 15, 10, 14, 16}),
     " AND (dtEstr >='2026-01-02') AND (dtEstr <='2026-11-15')",
     " WHERE (st.dtEstr >='2026-01-02') AND (st.dtEstr <='2026-11-15')"},
    {"no dates",
     {"'BA'"},
     "31/02/2026",
     46000,
     " AND (dtEstr >=NULL) AND (dtEstr <=NULL) AND ruota='BA'",
     " WHERE (st.dtEstr >=NULL) AND (st.dtEstr <=NULL) AND st.ruota IN('BA')"},
    {"an empty text is no date", {}, "", Missing{}, " AND (dtEstr >=NULL)", " WHERE (st.dtEstr >=NULL)"}};

TEST(FrequencyText, StatementsCharacterByCharacter) {
  for (const auto& row : selections) {
    const DrawSelection selection{WheelFilter(row.wheels), DateBound::given(row.from), DateBound::given(row.to)};
    EXPECT_EQ(delay_statement(selection, first_wheel), delays + row.delay_filter + delays_end) << row.what;
    EXPECT_EQ(frequency_statement(selection, first_wheel), counts + row.filter + counts_end) << row.what;
    EXPECT_EQ(draw_dates_statement(selection, first_wheel), dates + row.filter + dates_end) << row.what;
  }
}

TEST(FrequencyText, WholeStatements) {
  const DrawSelection selection{WheelFilter::listed("BA,NA"), day(2026, 1, 2), day(2026, 11, 15)};
  EXPECT_EQ(delay_statement(selection, first_wheel),
            "SELECT ruota,estr1,estr2,estr3,estr4,estr5 FROM STORICO WHERE estr1 >0 AND estr2 >0 AND estr3 >0 AND "
            "estr4 >0 AND estr5 >0 AND (dtEstr >='2026-01-02') AND (dtEstr <='2026-11-15') AND ruota='BA' OR "
            "ruota='NA' ORDER BY dtEstr DESC");
  EXPECT_EQ(
      frequency_statement(selection, first_wheel),
      "SELECT st.ruota, st.estrazione, count(*) AS num FROM (SELECT storico.ID, storico.concorsoNumero, "
      "storico.dtestr,  storico.ruota,  storico.estr1 as estrazione FROM storico Union All SELECT storico.ID, "
      "storico.concorsoNumero, storico.dtestr,  storico.ruota,  storico.estr2 From storico Union All SELECT "
      "storico.ID, storico.concorsoNumero, storico.dtestr,  storico.ruota,  storico.estr3 From storico Union All "
      "SELECT storico.ID, storico.concorsoNumero, storico.dtestr,  storico.ruota,  storico.estr4 From storico Union "
      "All SELECT storico.ID, storico.concorsoNumero, storico.dtestr,  storico.ruota,  storico.estr5 From storico)AS "
      "st  WHERE (st.dtEstr >='2026-01-02') AND (st.dtEstr <='2026-11-15') AND st.ruota IN('BA') OR st.ruota IN('NA') "
      "GROUP BY st.ruota,st.estrazione ORDER BY count(*) DESC");
  EXPECT_EQ(draw_dates_statement(selection, first_wheel),
            "SELECT st.dtEstr From storico as st WHERE (st.dtEstr >='2026-01-02') AND (st.dtEstr <='2026-11-15') AND "
            "st.ruota IN('BA') OR st.ruota IN('NA') GROUP BY st.dtEstr");
}

TEST(FrequencyText, ThePeriodHoldsForEveryWheelWhereThatIsAskedFor) {
  const struct {
    const char* wheels;
    DateBound from;
    const char *delay_filter, *filter;
  } rows[] = {{"", {}, "", ""},
              {"", day(2026, 1, 2), " AND (dtEstr >='2026-01-02')", " WHERE (st.dtEstr >='2026-01-02')"},
              {"BA", {}, " AND (ruota='BA')", " WHERE (st.ruota IN('BA'))"},
              {"BA,NA", {}, " AND (ruota='BA' OR ruota='NA')", " WHERE (st.ruota IN('BA') OR st.ruota IN('NA'))"},
              {"BA,NA", day(2026, 1, 2), " AND (dtEstr >='2026-01-02') AND (ruota='BA' OR ruota='NA')",
               " WHERE (st.dtEstr >='2026-01-02') AND (st.ruota IN('BA') OR st.ruota IN('NA'))"}};
  for (const auto& row : rows) {
    const DrawSelection selection{WheelFilter::listed(row.wheels), row.from, {}};
    EXPECT_EQ(delay_statement(selection, every_wheel), delays + row.delay_filter + delays_end) << row.wheels;
    EXPECT_EQ(frequency_statement(selection, every_wheel), counts + row.filter + counts_end) << row.wheels;
    EXPECT_EQ(draw_dates_statement(selection, every_wheel), dates + row.filter + dates_end) << row.wheels;
  }
}

TEST(FrequencyText, AnalyticDrawsSinceADay) {
  for (const auto& from : {day(2024, 11, 15), moment({2024, 11, 15, 23, 59, 59})})
    EXPECT_EQ(analytic_statement(from),
              "SELECT dtEstr,ruota,estr1,estr2,estr3,estr4,estr5 FROM STORICO WHERE estr1 >0 AND estr2 >0 AND estr3 >0 "
              "AND estr4 >0 AND estr5 >0 AND dtEstr >='2024-11-15' ORDER BY dtEstr DESC");
}

}  // namespace
}  // namespace vestara
