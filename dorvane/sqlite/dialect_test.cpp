#include "dorvane/sqlite/dialect.h"

#include <gtest/gtest.h>

#include <map>

namespace dorvane::sqlite {
namespace {

TEST(SqliteDialect, EveryIndexHasItsColumns) {
  // A search reads nothing but its index, so that each column of it counts.
  const std::map<std::string_view, std::string_view> columns{
      {"vestara_storico_estr1", "storico(estr1,dtEstr,concorsoNumero,ruota)"},
      {"vestara_storico_estr2", "storico(estr2,dtEstr,concorsoNumero,ruota)"},
      {"vestara_storico_estr3", "storico(estr3,dtEstr,concorsoNumero,ruota)"},
      {"vestara_storico_estr4", "storico(estr4,dtEstr,concorsoNumero,ruota)"},
      {"vestara_storico_estr5", "storico(estr5,dtEstr,concorsoNumero,ruota)"},
      {"vestara_storico_rows", "storico(dtEstr DESC,id,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero)"},
      {"vestara_storico_wheel", "storico(ruota,dtEstr,estr1,estr2,estr3,estr4,estr5)"},
      {"vestara_storico_draws", "storico(dtEstr DESC,concorsoNumero)"},
      {"vestara_sistema_detail", "tSistemaDetail(idSis)"}};
  std::map<std::string_view, std::string_view> found;
  const auto add = [&](const Creation& index) {
    found[index.name] = index.statement.substr(index.statement.find(" ON ") + 4);
  };
  for (const Creation& index : draw_indexes()) add(index);
  add(lasting_index());
  EXPECT_EQ(found, columns);
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
