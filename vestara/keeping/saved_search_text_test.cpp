#include "vestara/keeping/saved_search_text.h"

#include <gtest/gtest.h>

#include <limits>

#include "automation/coercion.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"

namespace vestara {
namespace {

using automation::date_in;
using automation::Empty;
using automation::Missing;
using automation::Null;
using automation::Variant;
using testing_support::day;
using testing_support::moment;

constexpr int32_t smallest = std::numeric_limits<int32_t>::min();
constexpr int32_t largest = std::numeric_limits<int32_t>::max();

TEST(SavedSearchText, List) {
  const struct {
    int32_t id;
    const char* statement;
  } rows[] = {{every_search, "SELECT * FROM tRicerche ORDER BY dtSave Desc"},
              {0, "SELECT * FROM tRicerche WHERE idRicerca=0 ORDER BY dtSave Desc"},
              {7, "SELECT * FROM tRicerche WHERE idRicerca=7 ORDER BY dtSave Desc"},
              {-2, "SELECT * FROM tRicerche WHERE idRicerca=-2 ORDER BY dtSave Desc"},
              {largest, "SELECT * FROM tRicerche WHERE idRicerca=2147483647 ORDER BY dtSave Desc"},
              {smallest, "SELECT * FROM tRicerche WHERE idRicerca=-2147483648 ORDER BY dtSave Desc"}};
  for (const auto& row : rows) EXPECT_EQ(saved_search_list_statement(row.id), row.statement);
}

TEST(SavedSearchText, Delete) {
  const struct {
    int32_t id;
    const char* statement;
  } rows[] = {{7, "DELETE FROM tRicerche WHERE idRicerca=7"},
              {0, "DELETE FROM tRicerche WHERE idRicerca=0"},
              {-1, "DELETE FROM tRicerche WHERE idRicerca=-1"},
              {largest, "DELETE FROM tRicerche WHERE idRicerca=2147483647"}};
  for (const auto& row : rows) EXPECT_EQ(saved_search_delete_statement(row.id), row.statement);
}

TEST(SavedSearchText, UpdateAndInsert) {
  const struct {
    const char* what;
    int32_t id;
    std::string description, numbers;
    int16_t combination;
    std::string wheels;
    Variant saved, from, to;
    const char *update, *insert;
  } rows[] = {
      {"no date", 5, "Ambo", "5,12", 2, "BA,NA", Missing{}, Missing{}, Missing{},
       "UPDATE tRicerche SET descRicerca='Ambo',numeri='5,12',combinazione=2,ruote='BA,NA',dtSave=NULL,dtDa=NULL,"
       "dtA=NULL WHERE idRicerca=5",
       "INSERT INTO tRicerche (idRicerca,descRicerca,numeri,combinazione,ruote,dtSave,dtDa,DtA) VALUES "
       "(5,'Ambo','5,12',2,'BA,NA',NULL,NULL,NULL)"},
      {"one date", 1, "", "", 0, "", day(2026, 11, 15), Null{}, Empty{},
       "UPDATE tRicerche SET descRicerca='',numeri='',combinazione=0,ruote='',dtSave='2026-11-15',dtDa=NULL,dtA=NULL "
       "WHERE idRicerca=1",
       "INSERT INTO tRicerche (idRicerca,descRicerca,numeri,combinazione,ruote,dtSave,dtDa,DtA) VALUES "
       "(1,'','',0,'','2026-11-15',NULL,NULL)"},
      {"every date, date part only", largest, "Terno", "90", 32767, "RN", moment({2026, 11, 15, 10, 14, 16}),
       "02/01/2026", "2026.12.31 23.59",
       "UPDATE tRicerche SET descRicerca='Terno',numeri='90',combinazione=32767,ruote='RN',dtSave='2026-11-15',"
       "dtDa='2026-01-02',dtA='2026-12-31' WHERE idRicerca=2147483647",
       "INSERT INTO tRicerche (idRicerca,descRicerca,numeri,combinazione,ruote,dtSave,dtDa,DtA) VALUES "
       "(2147483647,'Terno','90',32767,'RN','2026-11-15','2026-01-02','2026-12-31')"},
      {"texts are escaped already", -3, R"(O''Hara\\x)", "a''b", -1, R"(\\)", "soon", "", "31/02/2026",
       R"(UPDATE tRicerche SET descRicerca='O''Hara\\x',numeri='a''b',combinazione=-1,ruote='\\',dtSave=NULL,)"
       R"(dtDa=NULL,dtA=NULL WHERE idRicerca=-3)",
       R"(INSERT INTO tRicerche (idRicerca,descRicerca,numeri,combinazione,ruote,dtSave,dtDa,DtA) VALUES )"
       R"((-3,'O''Hara\\x','a''b',-1,'\\',NULL,NULL,NULL))"}};
  const testing_support::LogCapture log;
  for (const auto& row : rows) {
    const SavedSearch search{row.id,     row.description,    row.numbers,       row.combination,
                             row.wheels, date_in(row.saved), date_in(row.from), date_in(row.to)};
    EXPECT_EQ(saved_search_update_statement(search), row.update) << row.what;
    EXPECT_EQ(saved_search_insert_statement(search), row.insert) << row.what;
  }
  EXPECT_EQ(log.bytes(), "");
}

}  // namespace
}  // namespace vestara
