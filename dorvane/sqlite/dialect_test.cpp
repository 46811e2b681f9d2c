#include "dorvane/sqlite/dialect.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dorvane::sqlite {
namespace {

/// The statements that make an archive, in their order.
std::vector<std::string> making_statements() {
  std::vector<std::string> statements;
  for (const vestara::ArchiveTable& table : vestara::archive_tables()) statements.push_back(table_statement(table));
  for (const vestara::ArchiveIndex& index : vestara::archive_indexes()) statements.push_back(index_statement(index));
  return statements;
}

// Archives are there already: another letter here is another archive. A search reads nothing but its index, so that
// each column of one counts.
TEST(SqliteDialect, TheArchiveIsMadeByTheseStatements) {
  const std::vector<std::string> expected{
      "CREATE TABLE IF NOT EXISTS storico(id INTEGER PRIMARY KEY, dtEstr DATE_TEXT, ruota TEXT, estr1 SMALLINT"
      " CHECK(estr1 BETWEEN -32768 AND 32767), estr2 SMALLINT CHECK(estr2 BETWEEN -32768 AND 32767), estr3 SMALLINT"
      " CHECK(estr3 BETWEEN -32768 AND 32767), estr4 SMALLINT CHECK(estr4 BETWEEN -32768 AND 32767), estr5 SMALLINT"
      " CHECK(estr5 BETWEEN -32768 AND 32767), concorsoNumero INTEGER CHECK(concorsoNumero BETWEEN -2147483648 AND"
      " 2147483647))",
      "CREATE TABLE IF NOT EXISTS tRicerche(idRicerca INTEGER PRIMARY KEY, descRicerca TEXT, numeri TEXT,"
      " combinazione SMALLINT, ruote TEXT, dtSave DATE_TEXT, dtDa DATE_TEXT, dtA DATE_TEXT)",
      "CREATE TABLE IF NOT EXISTS tSistemi(idSis INTEGER PRIMARY KEY, titolo TEXT, descrizione TEXT, numeri TEXT,"
      " qtaNumeri SMALLINT, nGiocate SMALLINT, kColonne SMALLINT, garanzia SMALLINT, sisTipo TEXT)",
      "CREATE TABLE IF NOT EXISTS tSistemaDetail(id INTEGER PRIMARY KEY, idSis INTEGER, combinazione TEXT)",
      "CREATE TABLE IF NOT EXISTS ruote(enumeratore INTEGER PRIMARY KEY, enumeratoreBit INTEGER, ruotaAlias TEXT)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_estr1 ON storico(estr1,dtEstr,concorsoNumero,ruota)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_estr2 ON storico(estr2,dtEstr,concorsoNumero,ruota)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_estr3 ON storico(estr3,dtEstr,concorsoNumero,ruota)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_estr4 ON storico(estr4,dtEstr,concorsoNumero,ruota)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_estr5 ON storico(estr5,dtEstr,concorsoNumero,ruota)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_rows ON storico(dtEstr"
      " DESC,id,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_wheel ON storico(ruota,dtEstr,estr1,estr2,estr3,estr4,estr5)",
      "CREATE INDEX IF NOT EXISTS vestara_storico_draws ON storico(dtEstr DESC,concorsoNumero)",
      "CREATE INDEX IF NOT EXISTS vestara_sistema_detail ON tSistemaDetail(idSis)"};
  EXPECT_EQ(making_statements(), expected);
}

TEST(SqliteDialect, KnowsWhatOnlyComputes) {
  for (const char* function : {"load_extension", "fts3_tokenizer", "writefile", "optimize"})
    EXPECT_FALSE(only_computes(function)) << function;
  for (const char* function : {"json_each", "snippet"}) EXPECT_TRUE(only_computes(function)) << function;
}

TEST(SqliteDialect, KnowsWhichTextsAreDates) {
  using enum records::TextReading;
  const struct {
    const char* column;
    const char* declared_type;  ///< null: computed, as max(dtEstr) is
    records::TextReading reading;
  } rows[] = {{"x", "DATE", iso_dates},      {"x", "date", iso_dates},
              {"x", "DATETIME", iso_dates},  {"x", "TIMESTAMP", iso_dates},
              {"x", "time", iso_dates},      {"x", "Timestamp with time zone", iso_dates},
              {"x", "TEXT", plain},          {"x", "VARCHAR(10)", plain},
              {"x", "INT", plain},           {"x", "", plain},
              {"x", nullptr, iso_dates},     {"dtEstr", "VARCHAR(10)", iso_dates},
              {"DTESTR", "TEXT", iso_dates}, {"dtDa", "TEXT", iso_dates},
              {"dtA", "TEXT", iso_dates},    {"dtSave", "", iso_dates},
              {"dtOther", "TEXT", plain}};
  for (const auto& row : rows)
    EXPECT_EQ(reading_of(row.column, row.declared_type), row.reading)
        << row.column << " " << (row.declared_type ? row.declared_type : "(none)");
}

}  // namespace
}  // namespace dorvane::sqlite
