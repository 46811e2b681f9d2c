#include "vestara/keeping/catalogue_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace vestara {
namespace {

constexpr int32_t smallest = std::numeric_limits<int32_t>::min();
constexpr int32_t largest = std::numeric_limits<int32_t>::max();
constexpr int16_t least = std::numeric_limits<int16_t>::min();
constexpr int16_t most = std::numeric_limits<int16_t>::max();

TEST(CatalogueText, ListByEveryFilter) {
  const struct {
    SystemFilter filter;
    const char* statement;
  } rows[] = {
      {{}, "SELECT * FROM tSistemi"},
      {{.kind = "U"}, "SELECT * FROM tSistemi WHERE (sistipo='U')"},
      {{.title = "Ambo"}, "SELECT * FROM tSistemi WHERE (titolo LIKE '%Ambo%')"},
      {{.description = "in due"}, "SELECT * FROM tSistemi WHERE (descrizione LIKE '%in due%')"},
      {{.numbers = 10}, "SELECT * FROM tSistemi WHERE (qtaNumeri=10)"},
      {{.columns = 20}, "SELECT * FROM tSistemi WHERE (kColonne=20)"},
      {{.guarantee = 3}, "SELECT * FROM tSistemi WHERE (garanzia=3)"},
      {{.bets = 40}, "SELECT * FROM tSistemi WHERE (nGiocate=40)"},
      {{.key = 7}, "SELECT * FROM tSistemi WHERE (idSis=7)"},
      {{.key = 7, .kind = "S"}, "SELECT * FROM tSistemi WHERE (sistipo='S') AND (idSis=7)"},
      {{.bets = 40, .columns = 20}, "SELECT * FROM tSistemi WHERE (kColonne=20) AND (nGiocate=40)"},
      {{.numbers = 10, .guarantee = 3}, "SELECT * FROM tSistemi WHERE (qtaNumeri=10) AND (garanzia=3)"},
      {{7, "U", "Ambo", "in due", 10, 40, 20, 3},
       "SELECT * FROM tSistemi WHERE (sistipo='U') AND (titolo LIKE '%Ambo%') AND (descrizione LIKE '%in due%') AND "
       "(qtaNumeri=10) AND (kColonne=20) AND (garanzia=3) AND (nGiocate=40) AND (idSis=7)"},
      {{-1, "", "", "", -2, -3, -4, -5},
       "SELECT * FROM tSistemi WHERE (qtaNumeri=-2) AND (kColonne=-4) AND (garanzia=-5) AND (nGiocate=-3) AND "
       "(idSis=-1)"},
      {{smallest, "", "", "", least, most, least, most},
       "SELECT * FROM tSistemi WHERE (qtaNumeri=-32768) AND (kColonne=-32768) AND (garanzia=32767) AND "
       "(nGiocate=32767) AND (idSis=-2147483648)"},
      {{.title = "l'ambo"}, "SELECT * FROM tSistemi WHERE (titolo LIKE '%l''ambo%')"},
      {{.title = "a\\b"}, "SELECT * FROM tSistemi WHERE (titolo LIKE '%a\\\\b%')"},
      {{.title = "100%_"}, "SELECT * FROM tSistemi WHERE (titolo LIKE '%100%_%')"},
      {{.title = "''"}, "SELECT * FROM tSistemi WHERE (titolo LIKE '%''''%')"},
      {{.title = "\"città\""}, "SELECT * FROM tSistemi WHERE (titolo LIKE '%\"città\"%')"},
      {{.description = "d'\\%_"}, "SELECT * FROM tSistemi WHERE (descrizione LIKE '%d''\\\\%_%')"},
      {{.kind = "U'\\"}, "SELECT * FROM tSistemi WHERE (sistipo='U'\\')"},
  };
  for (const auto& row : rows) EXPECT_EQ(system_list_statement(row.filter), row.statement);
}

TEST(CatalogueText, ListHasOneConditionPerFilterGiven) {
  const char* conditions[] = {"(sistipo='U')",
                              "(titolo LIKE '%t%')",
                              "(descrizione LIKE '%d%')",
                              "(qtaNumeri=1)",
                              "(kColonne=2)",
                              "(garanzia=3)",
                              "(nGiocate=4)",
                              "(idSis=5)"};
  for (unsigned given = 0; given < 256; ++given) {
    const auto has = [given](unsigned bit) { return (given >> bit & 1U) != 0; };
    std::string where;
    for (unsigned bit = 0; bit < 8; ++bit)
      if (has(bit)) where += (where.empty() ? " WHERE " : " AND ") + std::string(conditions[bit]);
    const auto number = [&](unsigned bit, int16_t value) { return has(bit) ? value : int16_t{0}; };
    EXPECT_EQ(system_list_statement({has(7) ? 5 : 0, has(0) ? "U" : "", has(1) ? "t" : "", has(2) ? "d" : "",
                                     number(3, 1), number(6, 4), number(4, 2), number(5, 3)}),
              "SELECT * FROM tSistemi" + where);
  }
}

TEST(CatalogueText, Combinations) {
  const char* before =
      "SELECT tSistemi.sisTipo, tSistemaDetail.combinazione, tSistemaDetail.id FROM tSistemi LEFT JOIN tSistemaDetail "
      "ON tSistemi.idSis = tSistemaDetail.idSis WHERE tSistemaDetail.idSis=";
  for (const int32_t key : {0, 7, -1, largest, smallest})
    EXPECT_EQ(system_combinations_statement(key), before + std::to_string(key));
}

TEST(CatalogueText, HeaderInsert) {
  const struct {
    int32_t key;
    SystemHeader header;
    const char* values;
  } rows[] = {{42, {"Ambo", "in due", "1,2,3", 3, 40, 20, 2}, "42,'Ambo','in due','1,2,3',3,40,20,2,'U'"},
              {1, {"", "", "", 0, 0, 0, 0}, "1,'','','',0,0,0,0,'U'"},
              {-1, {"  ", " ", " ", -1, -2, -3, -4}, "-1,'  ',' ',' ',-1,-2,-3,-4,'U'"},
              {largest,
               {"l'ambo", "a\\b", "1'2\\", least, most, least, most},
               "2147483647,'l''ambo','a\\\\b','1'2\\',-32768,32767,-32768,32767,'U'"},
              {2, {"100%_", "\"città\"", "1, 2", 1, 1, 1, 1}, "2,'100%_','\"città\"','1, 2',1,1,1,1,'U'"}};
  for (const auto& row : rows)
    EXPECT_EQ(system_insert_statement(row.key, row.header),
              "INSERT INTO tSistemi (idSis,titolo,descrizione,numeri,qtaNumeri,nGiocate,kColonne,garanzia,sisTipo)"
              "VALUES(" +
                  std::string(row.values) + ")");
}

TEST(CatalogueText, CombinationInsert) {
  const struct {
    int32_t key;
    const char *combination, *statement;
  } rows[] = {{42, "1,2,3", "INSERT INTO tSistemaDetail (idSis,combinazione)VALUES(42,'1,2,3')"},
              {-1, "", "INSERT INTO tSistemaDetail (idSis,combinazione)VALUES(-1,'')"},
              {7, " 1, 2 ", "INSERT INTO tSistemaDetail (idSis,combinazione)VALUES(7,' 1, 2 ')"},
              {7, "1'2\\3", "INSERT INTO tSistemaDetail (idSis,combinazione)VALUES(7,'1'2\\3')"}};
  for (const auto& row : rows) EXPECT_EQ(combination_insert_statement(row.key, row.combination), row.statement);
}

TEST(CatalogueText, Deletes) {
  const struct {
    std::string (*statement)(int32_t);
    const char* before;
  } rows[] = {{edited_system_delete_statement, "delete FROM tSistemi WHERE idSis="},
              {edited_combinations_delete_statement, "delete FROM tSistemaDetail WHERE idSis="},
              {system_delete_statement, "delete FROM tSistemi WHERE idSis ="},
              {combinations_delete_statement, "delete FROM tSistemaDetail WHERE idSis ="}};
  for (const auto& row : rows)
    for (const int32_t key : {0, 7, -1, largest, smallest})
      EXPECT_EQ(row.statement(key), row.before + std::to_string(key));
}

}  // namespace
}  // namespace vestara
