#include "dorvane/result_names.h"

#include <gtest/gtest.h>

namespace dorvane {
namespace {

using Names = std::vector<std::string>;

TEST(ResultNames, Cases) {
  struct Row {
    const char* statement;
    Names of_engine;
    Names expected;
  };
  const Row rows[]{
      {"SELECT dtestr FROM STORICO", {"dtestr"}, {"dtEstr"}},
      {"SELECT * FROM tRicerche", {"idricerca", "dtda"}, {"idRicerca", "dtDa"}},
      {"select S.ID, s.CONCORSONUMERO from storico as S", {"id", "concorsonumero"}, {"id", "concorsoNumero"}},
      {"SELECT max(dtEstr)as dMax FROM Storico", {"dmax"}, {"dMax"}},
      {"SELECT s2.numeriTrovati FROM (SELECT count(*) AS numeriTrovati FROM storico) AS s2",
       {"numeritrovati"},
       {"numeriTrovati"}},
      {"SELECT count(*), Max( id ) FROM storico", {"count", "max"}, {"count(*)", "Max( id )"}},
      {"SELECT count(*) n FROM storico", {"n"}, {"n"}},
      {"SELECT DISTINCT ruota, 1+1 FROM storico", {"ruota", "?column?"}, {"ruota", "1+1"}},
      {"SELECT DISTINCT count(*) FROM storico", {"count"}, {"count(*)"}},
      {"SELECT ALL count(*) FROM storico", {"count"}, {"count(*)"}},
      {"select all count(*),max(id) FROM storico", {"count", "max"}, {"count(*)", "max(id)"}},
      {"SELECT *, count(*) FROM ruote",
       {"enumeratore", "enumeratorebit", "ruotaalias", "count"},
       {"enumeratore", "enumeratoreBit", "ruotaAlias", "count"}},
      {"SELECT 1 AS dtEstr UNION ALL SELECT 2", {"dtestr"}, {"dtEstr"}},
      {"SELECT count(*) WHERE 1=1", {"count"}, {"count(*)"}},
      {"SELECT 1.5 AS \"Count\", 2 AS 'two words', 3 \"b\", \"c\"",
       {"Count", "two words", "b", "c"},
       {"Count", "two words", "b", "c"}},
      {"SELECT 1+1;", {"?column?"}, {"1+1"}},
      {"VALUES (1)", {"column1"}, {"column1"}},
      {"WITH a AS (SELECT 1 AS Uno) SELECT Uno FROM a", {"uno"}, {"Uno"}},
  };
  for (const Row& row : rows) EXPECT_EQ(result_names(row.statement, {}, row.of_engine), row.expected) << row.statement;
}

}  // namespace
}  // namespace dorvane
