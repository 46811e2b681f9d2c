#include "vestara/keeping/archive_tables.h"

#include <algorithm>
#include <array>

namespace vestara {
namespace {

using enum ValueKind;

constexpr std::array<TableColumn, 9> draw_columns{{{"id", whole},
                                                   {"dtEstr", date},
                                                   {"ruota", text},
                                                   {"estr1", small},
                                                   {"estr2", small},
                                                   {"estr3", small},
                                                   {"estr4", small},
                                                   {"estr5", small},
                                                   {"concorsoNumero", whole}}};
constexpr std::array<TableColumn, 8> search_columns{{{"idRicerca", whole},
                                                     {"descRicerca", text},
                                                     {"numeri", text},
                                                     {"combinazione", small},
                                                     {"ruote", text},
                                                     {"dtSave", date},
                                                     {"dtDa", date},
                                                     {"dtA", date}}};
constexpr std::array<TableColumn, 9> system_columns{{{"idSis", whole},
                                                     {"titolo", text},
                                                     {"descrizione", text},
                                                     {"numeri", text},
                                                     {"qtaNumeri", small},
                                                     {"nGiocate", small},
                                                     {"kColonne", small},
                                                     {"garanzia", small},
                                                     {"sisTipo", text}}};
constexpr std::array<TableColumn, 3> detail_columns{{{"id", whole}, {"idSis", whole}, {"combinazione", text}}};
constexpr std::array<TableColumn, 3> wheel_columns{
    {{"enumeratore", whole}, {"enumeratoreBit", whole}, {"ruotaAlias", text}}};
constexpr std::array<TableColumn, 1> mark_columns{{{"dtEstr", date}}};

constexpr std::array<ArchiveTable, 5> known_tables{{{"storico", draw_columns},
                                                    {"tRicerche", search_columns},
                                                    {"tSistemi", system_columns},
                                                    {"tSistemaDetail", detail_columns},
                                                    {"ruote", wheel_columns}}};
constexpr ArchiveTable marks{"vestara_manual_draws", mark_columns};

}  // namespace

std::span<const ArchiveTable> archive_tables() { return known_tables; }
const ArchiveTable& marks_table() { return marks; }

const ArchiveTable* archive_table(std::string_view name) {
  if (name == marks_table().name) return &marks_table();
  const auto tables = archive_tables();
  const auto found = std::find_if(tables.begin(), tables.end(), [&](const auto& table) { return table.name == name; });
  return found == tables.end() ? nullptr : &*found;
}

std::string column_list(const ArchiveTable& table) {
  std::string names;
  for (const TableColumn& column : table.columns) names.append(names.empty() ? "" : ",").append(column.name);
  return names;
}

}  // namespace vestara
