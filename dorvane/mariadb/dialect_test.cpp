#include "dorvane/mariadb/dialect.h"

#include <gtest/gtest.h>

#include "automation/error.h"

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
        Row{"SELECT 'È'", "select 'È'"},
        Row{"A LIKE '%X%'", "a like '%X%' collate utf8mb4_uca1400_as_ci escape '\x01'"}})
    EXPECT_EQ(translate(row.given), row.expected) << row.given;
  EXPECT_EQ(translate_reading("SELECT ID FROM STORICO ORDER BY dtEstr DESC"),
            "select id from storico order by dtestr desc,id");
}

TEST(MariadbDialect, CommentsThatWouldBeExecutedAreRefused) {
  for (const char* text : {"SELECT 1 /*! INTO OUTFILE '/x' */", "SELECT 1 /*!50000 x */", "SELECT /*M! 2 */"})
    EXPECT_THROW(require_plain(text), automation::RunTimeError) << text;
  for (const char* text : {"SELECT 1 /* plain */", "SELECT '/*! a text */'", "SELECT 1"})
    EXPECT_NO_THROW(require_plain(text)) << text;
}

}  // namespace
}  // namespace dorvane::mariadb
