#include "dorvane/schema.h"

#include <array>

#include "automation/text.h"

namespace dorvane {
namespace {

constexpr std::array<std::string_view, 9> draw_columns{"id",    "dtEstr", "ruota", "estr1",         "estr2",
                                                       "estr3", "estr4",  "estr5", "concorsoNumero"};
constexpr std::array<std::string_view, 8> search_columns{"idRicerca", "descRicerca", "numeri", "combinazione",
                                                         "ruote",     "dtSave",      "dtDa",   "dtA"};
constexpr std::array<std::string_view, 9> system_columns{"idSis",    "titolo",   "descrizione", "numeri", "qtaNumeri",
                                                         "nGiocate", "kColonne", "garanzia",    "sisTipo"};
constexpr std::array<std::string_view, 3> detail_columns{"id", "idSis", "combinazione"};
constexpr std::array<std::string_view, 3> wheel_columns{"enumeratore", "enumeratoreBit", "ruotaAlias"};

constexpr std::array<Table, 5> archive{{{"storico", draw_columns},
                                        {"tRicerche", search_columns},
                                        {"tSistemi", system_columns},
                                        {"tSistemaDetail", detail_columns},
                                        {"ruote", wheel_columns}}};

constexpr std::array<std::string_view, 11> wheels{"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"};

std::string lower(std::string_view name) { return automation::lower_case(name); }

void add_missing_of(const Table& table, const SchemaFacts& facts, std::vector<std::string>& missing) {
  if (!facts.has_table(table.name)) {
    missing.push_back(automation::concatenated({"table ", table.name, " is missing; CreateSchema makes it"}));
    return;
  }
  for (const std::string_view column : table.columns)
    if (!facts.columns.contains(lower(table.name) + "." + lower(column)))
      missing.push_back(automation::concatenated({"column ", table.name, ".", column, " is missing"}));
}

}  // namespace

std::span<const Table> tables() { return archive; }

std::string_view column_spelling(std::string_view name) {
  for (const Table& table : archive)
    for (const std::string_view column : table.columns)
      if (automation::equal_ignoring_case(column, name)) return column;
  return {};
}

bool SchemaFacts::has_table(std::string_view table) const {
  const std::string prefix = lower(table) + ".";
  const auto found = columns.lower_bound(prefix);
  return found != columns.end() && found->starts_with(prefix);
}

bool SchemaFacts::has_index(std::string_view index) const { return indexes.contains(lower(index)); }

std::vector<std::string> missing_from(const SchemaFacts& facts, std::span<const Creation> indexes) {
  std::vector<std::string> missing;
  for (const Table& table : archive) add_missing_of(table, facts, missing);
  for (const Creation& index : indexes)
    if (!facts.has_index(index.name))
      missing.push_back(automation::concatenated({"index ", index.name,
                                                  " is missing: answers are right but slow; "
                                                  "CreateSchema makes it"}));
  if (!facts.has_table("ruote")) return missing;
  for (const std::string_view wheel : wheels)
    if (!facts.wheels.contains(wheel))
      missing.push_back(automation::concatenated({"wheel ", wheel, " is missing from ruote; CreateSchema adds it"}));
  return missing;
}

std::string_view wheels_statement() {
  return "INSERT INTO ruote(enumeratore,enumeratoreBit,ruotaAlias) WITH wheel(i,bit,alias) AS (SELECT 1,1,'BA'"
         " UNION ALL SELECT 2,2,'CA' UNION ALL SELECT 3,4,'FI' UNION ALL SELECT 4,8,'GE' UNION ALL SELECT 5,16,'MI'"
         " UNION ALL SELECT 6,32,'NA' UNION ALL SELECT 7,64,'PA' UNION ALL SELECT 8,128,'RM' UNION ALL SELECT "
         "9,256,'TO'"
         " UNION ALL SELECT 10,512,'VE' UNION ALL SELECT 11,1024,'RN') SELECT i,bit,alias FROM wheel"
         " WHERE i NOT IN (SELECT enumeratore FROM ruote) AND alias NOT IN (SELECT ruotaAlias FROM ruote) ORDER BY i";
}

}  // namespace dorvane
