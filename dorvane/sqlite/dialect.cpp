#include "dorvane/sqlite/dialect.h"

#include <algorithm>
#include <array>

#include "automation/text.h"
#include "dorvane/statement.h"

namespace dorvane::sqlite {
namespace {

// DATE_TEXT has text affinity, which makes date ranges a fifth faster than DATE. The checks are the ranges that
// the servers' column types have.
constexpr std::array<std::string_view, 5> create_tables{
    "CREATE TABLE IF NOT EXISTS storico(id INTEGER PRIMARY KEY, dtEstr DATE_TEXT, ruota TEXT,"
    " estr1 SMALLINT CHECK(estr1 BETWEEN -32768 AND 32767), estr2 SMALLINT CHECK(estr2 BETWEEN -32768 AND 32767),"
    " estr3 SMALLINT CHECK(estr3 BETWEEN -32768 AND 32767), estr4 SMALLINT CHECK(estr4 BETWEEN -32768 AND 32767),"
    " estr5 SMALLINT CHECK(estr5 BETWEEN -32768 AND 32767),"
    " concorsoNumero INTEGER CHECK(concorsoNumero BETWEEN -2147483648 AND 2147483647))",
    "CREATE TABLE IF NOT EXISTS tRicerche(idRicerca INTEGER PRIMARY KEY, descRicerca TEXT, numeri TEXT,"
    " combinazione SMALLINT, ruote TEXT, dtSave DATE_TEXT, dtDa DATE_TEXT, dtA DATE_TEXT)",
    "CREATE TABLE IF NOT EXISTS tSistemi(idSis INTEGER PRIMARY KEY, titolo TEXT, descrizione TEXT, numeri TEXT,"
    " qtaNumeri SMALLINT, nGiocate SMALLINT, kColonne SMALLINT, garanzia SMALLINT, sisTipo TEXT)",
    "CREATE TABLE IF NOT EXISTS tSistemaDetail(id INTEGER PRIMARY KEY, idSis INTEGER, combinazione TEXT)",
    "CREATE TABLE IF NOT EXISTS ruote(enumeratore INTEGER PRIMARY KEY, enumeratoreBit INTEGER, ruotaAlias TEXT)",
};

constexpr std::array<Creation, 8> indexes{{
    {"vestara_storico_estr1",
     "CREATE INDEX IF NOT EXISTS vestara_storico_estr1 ON storico(estr1,dtEstr,concorsoNumero,ruota)"},
    {"vestara_storico_estr2",
     "CREATE INDEX IF NOT EXISTS vestara_storico_estr2 ON storico(estr2,dtEstr,concorsoNumero,ruota)"},
    {"vestara_storico_estr3",
     "CREATE INDEX IF NOT EXISTS vestara_storico_estr3 ON storico(estr3,dtEstr,concorsoNumero,ruota)"},
    {"vestara_storico_estr4",
     "CREATE INDEX IF NOT EXISTS vestara_storico_estr4 ON storico(estr4,dtEstr,concorsoNumero,ruota)"},
    {"vestara_storico_estr5",
     "CREATE INDEX IF NOT EXISTS vestara_storico_estr5 ON storico(estr5,dtEstr,concorsoNumero,ruota)"},
    {"vestara_storico_rows",
     "CREATE INDEX IF NOT EXISTS vestara_storico_rows ON"
     " storico(dtEstr DESC,id,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero)"},
    {"vestara_storico_wheel",
     "CREATE INDEX IF NOT EXISTS vestara_storico_wheel ON storico(ruota,dtEstr,estr1,estr2,estr3,estr4,estr5)"},
    {"vestara_storico_draws",
     "CREATE INDEX IF NOT EXISTS vestara_storico_draws ON storico(dtEstr DESC,concorsoNumero)"},
}};

constexpr std::array<std::string_view, 4> date_columns{"dtEstr", "dtDa", "dtA", "dtSave"};

}  // namespace

const Prohibitions prohibitions{syntax, {}, {}, {}};

std::string translate(std::string_view statement) { return undouble_backslashes(statement, syntax); }

bool only_computes(std::string_view function) {
  constexpr auto known = std::to_array<std::string_view>(
      {"->", "->>", "bm25", "highlight", "match", "matchinfo", "offsets", "rtreedepth", "rtreenode", "snippet"});
  return function.starts_with("json") || std::find(known.begin(), known.end(), function) != known.end();
}

records::TextReading reading_of(std::string_view column_name, const char* declared_type) {
  if (!declared_type) return records::TextReading::iso_dates;
  const std::string type = automation::lower_case(declared_type);
  const bool says_date = type.find("date") != std::string::npos || type.find("time") != std::string::npos;
  const bool named_date = std::any_of(date_columns.begin(), date_columns.end(), [&](std::string_view name) {
    return automation::equal_ignoring_case(name, column_name);
  });
  return says_date || named_date ? records::TextReading::iso_dates : records::TextReading::plain;
}

std::span<const std::string_view> table_statements() { return create_tables; }
std::span<const Creation> draw_indexes() { return indexes; }

Creation lasting_index() {
  return {"vestara_sistema_detail", "CREATE INDEX IF NOT EXISTS vestara_sistema_detail ON tSistemaDetail(idSis)"};
}

}  // namespace dorvane::sqlite
