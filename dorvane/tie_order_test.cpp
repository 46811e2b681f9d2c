#include "dorvane/tie_order.h"

#include <gtest/gtest.h>

namespace dorvane {
namespace {

TEST(TieOrder, AppendsTheTermOfEachForm) {
  struct Row {
    const char* statement;
    const char* term;
  };
  for (const Row& row : {
           Row{"SELECT ruota,estr1 FROM STORICO WHERE estr1 >0 ORDER BY dtEstr DESC", ",id"},
           Row{"SELECT s2.id,sto.dtEstr FROM storico AS sto inner join(SELECT id FROM x ORDER BY y) s2 on sto.id = "
               "s2.id"
               " ORDER BY sto.dtEstr ASC",
               ",sto.id"},
           Row{"SELECT DISTINCT sto.concorsoNumero,sto.dtEstr FROM storico as sto ORDER BY sto.dtEstr DESC",
               ",sto.concorsoNumero"},
           Row{"SELECT DISTINCT s.dtEstr, s.concorsoNumero FROM (SELECT id from storico) AS s GROUP BY s.dtEstr,s.id "
               "Having(Count(S.id) >= 1) ORDER BY s.dtEstr ASC",
               ",s.concorsoNumero"},
           Row{"SELECT R1.dtEstr, R2.dtEstr, R2.ruota FROM (SELECT DISTINCT sto.dtEstr FROM storico as sto ORDER BY "
               "sto.dtEstr DESC)  AS R1 LEFT JOIN (SELECT 1)  AS R2 ON R1.dtEstr = R2.dtEstr ORDER by R1.dtEstr DESC",
               ",R2.ruota"},
           Row{"SELECT count(*),st.ruota FROM (SELECT 1) AS st GROUP BY st.ruota,st.estrazione ORDER BY count(*) DESC",
               ",st.ruota,st.estrazione"},
           Row{"SELECT * FROM tRicerche ORDER BY dtSave Desc", ",idRicerca"},
           Row{"SELECT ruota,count(*) FROM storico GROUP BY ruota HAVING count(*)>1 ORDER BY count(*) DESC", ",ruota"},
           Row{"SELECT s.* FROM storico s JOIN tSistemaDetail d ON d.id=s.id ORDER BY s.dtEstr", ",s.id"},
           Row{"SELECT ruota,count(*) FROM storico GROUP BY ruota WINDOW w AS (ORDER BY ruota) ORDER BY count(*)",
               ",ruota"},
           Row{"SELECT ALL dtEstr FROM storico ORDER BY dtEstr", ",id"},
           Row{"SELECT t.* FROM storico AS t, ruote ORDER BY T.dtEstr", ",T.id"},
           Row{"SELECT DISTINCT dtEstr,s.concorsoNumero FROM storico s ORDER BY dtEstr", ",s.concorsoNumero"},
       })
    EXPECT_EQ(tie_term(row.statement, {}), row.term) << row.statement;
}

TEST(TieOrder, LeavesOtherStatementsAsTheyAre) {
  for (const char* statement :
       {"", "SELECT 1", "SELECT storico.dtEstr From storico  GROUP BY storico.dtEstr",
        "SELECT max(dtEstr)as dmax FROM Storico", "SELECT * FROM storico ORDER BY id",
        "SELECT * FROM storico ORDER BY dtEstr,ruota", "SELECT 'ORDER BY dtEstr' FROM storico",
        "SELECT * FROM (SELECT * FROM storico ORDER BY dtEstr) a",
        "SELECT DISTINCT dtEstr FROM storico ORDER BY dtEstr", "SELECT dtEstr FROM storico ORDER BY dtEstr LIMIT 5",
        "SELECT dtEstr FROM storico GROUP BY dtEstr ORDER BY dtEstr", "ORDER BY dtEstr",
        "SELECT * FROM storico ORDER BY", "SELECT * FROM tSistemi ORDER BY titolo",
        // Where a further term would mean something else, or nothing.
        "SELECT ruota FROM storico UNION SELECT ruotaAlias FROM ruote ORDER BY dtEstr",
        "SELECT dtEstr,ruota FROM storico EXCEPT SELECT dtEstr,ruota FROM storico ORDER BY dtEstr",
        "SELECT ruota FROM storico INTERSECT SELECT ruotaAlias FROM ruote ORDER BY dtEstr",
        "SELECT ruota FROM storico MINUS SELECT ruotaAlias FROM ruote ORDER BY dtEstr",
        "SELECT * FROM storico,tSistemaDetail ORDER BY dtEstr",
        "SELECT * FROM storico JOIN tSistemaDetail d ON d.id=storico.id ORDER BY dtEstr",
        "SELECT * FROM storico s JOIN storico t ON s.id=t.id ORDER BY t.dtEstr",
        "SELECT max(dtEstr) AS dtEstr FROM storico ORDER BY dtEstr", "SELECT ruota dtEstr FROM storico ORDER BY dtEstr",
        "SELECT estr1 AS id,estr2 AS id FROM storico ORDER BY dtEstr",
        "SELECT max(dtSave) AS dtSave FROM tRicerche ORDER BY dtSave",
        "SELECT DISTINCT dtEstr,1 concorsoNumero FROM storico ORDER BY dtEstr",
        "SELECT DISTINCT count(*) FROM storico GROUP BY ruota ORDER BY count(*)",
        "SELECT count(*) FROM storico GROUP BY ROLLUP(ruota) ORDER BY count(*)",
        "SELECT count(*) FROM storico GROUP BY estr1+1 ORDER BY count(*)",
        "SELECT DISTINCT dtSave FROM tRicerche ORDER BY dtSave"})
    EXPECT_EQ(tie_term(statement, {}), "") << statement;
}

}  // namespace
}  // namespace dorvane
