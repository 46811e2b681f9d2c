#include "dorvane/mariadb/dialect.h"

#include <gtest/gtest.h>

namespace dorvane::mariadb {
namespace {

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
