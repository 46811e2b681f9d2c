#include "dorvane/mariadb/dialect.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvane::mariadb {
namespace {

/// The statements that make an archive, in their order.
std::vector<std::string> making_statements() {
  std::vector<std::string> statements;
  for (const vestara::ArchiveTable& table : vestara::archive_tables())
    statements.push_back(dialect().table_statement(table));
  for (const vestara::ArchiveIndex& index : vestara::archive_indexes())
    statements.push_back(dialect().index_statement(index));
  return statements;
}

// Archives are there already: another letter here is another archive. A search reads nothing but its index, so that
// each column of one counts.
TEST(MariadbDialect, TheArchiveIsMadeByTheseStatements) {
  const std::vector<std::string> expected{
      "CREATE TABLE IF NOT EXISTS storico(id INT NOT NULL AUTO_INCREMENT PRIMARY KEY, dtEstr DATE, ruota VARCHAR(20)"
      " CHARACTER SET ascii COLLATE ascii_nopad_bin, estr1 SMALLINT, estr2 SMALLINT, estr3 SMALLINT, estr4 SMALLINT,"
      " estr5 SMALLINT, concorsoNumero INT, CHECK(month(dtEstr)>0 AND dayofmonth(dtEstr)>0)) ENGINE=InnoDB",
      "CREATE TABLE IF NOT EXISTS tricerche(idRicerca INT NOT NULL AUTO_INCREMENT PRIMARY KEY, descRicerca"
      " MEDIUMTEXT, numeri MEDIUMTEXT, combinazione SMALLINT, ruote MEDIUMTEXT, dtSave DATETIME, dtDa DATETIME, dtA"
      " DATETIME) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin",
      "CREATE TABLE IF NOT EXISTS tsistemi(idSis INT NOT NULL AUTO_INCREMENT PRIMARY KEY, titolo MEDIUMTEXT,"
      " descrizione MEDIUMTEXT, numeri MEDIUMTEXT, qtaNumeri SMALLINT, nGiocate SMALLINT, kColonne SMALLINT,"
      " garanzia SMALLINT, sisTipo MEDIUMTEXT) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin",
      "CREATE TABLE IF NOT EXISTS tsistemadetail(id INT NOT NULL AUTO_INCREMENT PRIMARY KEY, idSis INT, combinazione"
      " MEDIUMTEXT) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin",
      "CREATE TABLE IF NOT EXISTS ruote(enumeratore INT NOT NULL PRIMARY KEY, enumeratoreBit INT, ruotaAlias"
      " VARCHAR(20) CHARACTER SET ascii COLLATE ascii_nopad_bin) ENGINE=InnoDB",
      "CREATE INDEX IF NOT EXISTS vestara_storico_estr1 ON storico(estr1,dtEstr,concorsoNumero,ruota)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_estr2 ON storico(estr2,dtEstr,concorsoNumero,ruota)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_estr3 ON storico(estr3,dtEstr,concorsoNumero,ruota)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_estr4 ON storico(estr4,dtEstr,concorsoNumero,ruota)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_estr5 ON storico(estr5,dtEstr,concorsoNumero,ruota)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_rows ON storico(dtEstr"
      " DESC,id,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_wheel ON storico(ruota,dtEstr,estr1,estr2,estr3,estr4,estr5)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_draws ON storico(dtEstr DESC,concorsoNumero)",
      "CREATE INDEX IF NOT EXISTS vestara_sistema_detail ON tsistemadetail(idSis)"};
  EXPECT_EQ(making_statements(), expected);
}

TEST(MariadbDialect, NamesAreFoldedAndTextsAreNot) {
  struct Row {
    const char* given;
    const char* expected;
  };
  for (const Row& row :
       {Row{"SELECT S.Id FROM STORICO AS s WHERE ruota='BA'", "select s.id from storico as s where ruota='BA'"},
        Row{"SELECT \"A\",`B` -- C\nFROM D /* E */ WHERE 1-F/G=2",
            "select \"A\",`B` -- C\nfrom d /* E */ where 1-f/g=2"},
        Row{R"(INSERT INTO tRicerche(descRicerca)VALUES('It''s A\\B'))",
            R"(insert into tricerche(descricerca)values('It''s A\B'))"},
        Row{"SELECT 'È'", "select 'È'"}, Row{"SELECT A--B# C", "select a--b# C"},
        Row{"A LIKE 'It''s%'", "a like 'It''s%' collate utf8mb4_uca1400_as_ci escape '\x01'"},
        Row{"A LIKE '%X%'", "a like '%X%' collate utf8mb4_uca1400_as_ci escape '\x01'"}})
    EXPECT_EQ(translate(row.given), row.expected) << row.given;
}

}  // namespace
}  // namespace dorvane::mariadb
