#pragma once  // installed

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

// What an archive consists of: tables, their columns and keys, indexes, wheels. Everything that makes an archive,
// checks it, copies it or repairs its keys takes the names from here. The header has facts alone, no function to link.
// Databases match the names without regard to case.

namespace vestara {

/// How the database takes rows. The host sets it as DbType of cLotto; only the history import looks at it.
enum class DatabaseType : int16_t {
  one_row_per_insert = 1,
  many_rows_per_insert = 2,
};

/// What a column holds, besides Null.
enum class ColumnKind : uint8_t {
  key,      ///< what tells the rows apart: whole, 32 bits, never Null
  whole,    ///< 32 bits
  contest,  ///< the number of a contest in its year: whole, 32 bits
  small,    ///< whole, 16 bits
  number,   ///< a drawn number, 0 where none was drawn: whole, 16 bits
  day,
  moment,  ///< a day, perhaps with a time of day
  text,
  code,  ///< a wheel's alias
};

constexpr bool holds_date(ColumnKind kind) { return kind == ColumnKind::day || kind == ColumnKind::moment; }
constexpr bool holds_text(ColumnKind kind) { return kind == ColumnKind::text || kind == ColumnKind::code; }

struct TableColumn {
  std::string_view name;
  ColumnKind kind;
};

/// Who gives a new row its key.
enum class KeySource : uint8_t { database, statement };

struct ArchiveTable {
  std::string_view name;
  std::span<const TableColumn> columns;  ///< the key first
  KeySource keys = KeySource::database;

  constexpr std::string_view key() const { return columns.front().name; }
};

/// Columns that code refers to by name.
namespace known_column {
inline constexpr std::string_view draw_day = "dtEstr";
inline constexpr std::string_view draw_wheel = "ruota";
inline constexpr std::string_view draw_contest = "concorsoNumero";
inline constexpr std::string_view search_saved = "dtSave";
}  // namespace known_column

namespace table_columns {
using enum ColumnKind;
inline constexpr std::array<TableColumn, 9> draws{{{"id", key},
                                                   {known_column::draw_day, day},
                                                   {known_column::draw_wheel, code},
                                                   {"estr1", number},
                                                   {"estr2", number},
                                                   {"estr3", number},
                                                   {"estr4", number},
                                                   {"estr5", number},
                                                   {known_column::draw_contest, contest}}};
inline constexpr std::array<TableColumn, 8> searches{{{"idRicerca", key},
                                                      {"descRicerca", text},
                                                      {"numeri", text},
                                                      {"combinazione", small},
                                                      {"ruote", text},
                                                      {known_column::search_saved, moment},
                                                      {"dtDa", moment},
                                                      {"dtA", moment}}};
inline constexpr std::array<TableColumn, 9> systems{{{"idSis", key},
                                                     {"titolo", text},
                                                     {"descrizione", text},
                                                     {"numeri", text},
                                                     {"qtaNumeri", small},
                                                     {"nGiocate", small},
                                                     {"kColonne", small},
                                                     {"garanzia", small},
                                                     {"sisTipo", text}}};
inline constexpr std::array<TableColumn, 3> combinations{{{"id", key}, {"idSis", whole}, {"combinazione", text}}};
inline constexpr std::array<TableColumn, 3> wheels{
    {{"enumeratore", key}, {"enumeratoreBit", whole}, {"ruotaAlias", code}}};
}  // namespace table_columns

/// One row for each draw date and wheel.
inline constexpr ArchiveTable draw_table{"storico", table_columns::draws};
/// Saved searches.
inline constexpr ArchiveTable search_table{"tRicerche", table_columns::searches};
/// Saved systems, and the combinations of each.
inline constexpr ArchiveTable system_table{"tSistemi", table_columns::systems};
inline constexpr ArchiveTable combination_table{"tSistemaDetail", table_columns::combinations};
inline constexpr ArchiveTable wheel_table{"ruote", table_columns::wheels, KeySource::statement};

inline constexpr std::array<ArchiveTable, 5> all_archive_tables{draw_table, search_table, system_table,
                                                                combination_table, wheel_table};
constexpr std::span<const ArchiveTable> archive_tables() { return all_archive_tables; }

/// The wheels' aliases, by enumerator from 1.
inline constexpr std::array<std::string_view, 11> wheel_aliases{"BA", "CA", "FI", "GE", "MI", "NA",
                                                                "PA", "RM", "TO", "VE", "RN"};

enum class SortOrder : uint8_t { ascending, descending };

struct SortedColumn {
  std::string_view name;
  SortOrder order = SortOrder::ascending;
};

/// An index is derived data: without it answers are the same, only slower.
struct ArchiveIndex {
  std::string_view name;
  const ArchiveTable* table;
  std::span<const SortedColumn> sorted;
  /// Further columns that a search reads, so that it needs the index alone.
  std::span<const std::string_view> covered;
};

namespace index_columns {
inline constexpr std::array<SortedColumn, 2> first_number{{{"estr1"}, {known_column::draw_day}}};
inline constexpr std::array<SortedColumn, 2> second_number{{{"estr2"}, {known_column::draw_day}}};
inline constexpr std::array<SortedColumn, 2> third_number{{{"estr3"}, {known_column::draw_day}}};
inline constexpr std::array<SortedColumn, 2> fourth_number{{{"estr4"}, {known_column::draw_day}}};
inline constexpr std::array<SortedColumn, 2> fifth_number{{{"estr5"}, {known_column::draw_day}}};
inline constexpr std::array<std::string_view, 3> where_and_when{known_column::draw_contest, known_column::draw_wheel,
                                                                draw_table.key()};
inline constexpr std::array<SortedColumn, 2> newest_row{
    {{known_column::draw_day, SortOrder::descending}, {draw_table.key()}}};
inline constexpr std::array<std::string_view, 7> whole_row{
    known_column::draw_wheel, "estr1", "estr2", "estr3", "estr4", "estr5", known_column::draw_contest};
inline constexpr std::array<SortedColumn, 2> wheel{{{known_column::draw_wheel}, {known_column::draw_day}}};
inline constexpr std::array<std::string_view, 6> drawn{draw_table.key(), "estr1", "estr2", "estr3", "estr4", "estr5"};
inline constexpr std::array<SortedColumn, 2> newest_draw{
    {{known_column::draw_day, SortOrder::descending}, {known_column::draw_contest}}};
inline constexpr std::array<SortedColumn, 1> system{{{system_table.key()}}};
}  // namespace index_columns

inline constexpr std::array<ArchiveIndex, 9> all_archive_indexes{
    {{"vestara_storico_estr1", &draw_table, index_columns::first_number, index_columns::where_and_when},
     {"vestara_storico_estr2", &draw_table, index_columns::second_number, index_columns::where_and_when},
     {"vestara_storico_estr3", &draw_table, index_columns::third_number, index_columns::where_and_when},
     {"vestara_storico_estr4", &draw_table, index_columns::fourth_number, index_columns::where_and_when},
     {"vestara_storico_estr5", &draw_table, index_columns::fifth_number, index_columns::where_and_when},
     {"vestara_storico_rows", &draw_table, index_columns::newest_row, index_columns::whole_row},
     {"vestara_storico_wheel", &draw_table, index_columns::wheel, index_columns::drawn},
     {"vestara_storico_draws", &draw_table, index_columns::newest_draw, {}},
     {"vestara_sistema_detail", &combination_table, index_columns::system, {}}}};
constexpr std::span<const ArchiveIndex> archive_indexes() { return all_archive_indexes; }
/// Those of the draws. The whole set is worth its cost, a part of it is not.
constexpr std::span<const ArchiveIndex> draw_indexes() { return archive_indexes().first(8); }

/// Something of the above that an archive lacks.
struct SchemaGap {
  enum class Kind : uint8_t { table, column, index, wheel };

  Kind kind;
  std::string_view table;  ///< the one that is missing, or that it is missing from
  std::string_view name;   ///< of the table, column or index, or the wheel's alias

  bool operator==(const SchemaGap&) const = default;
};

}  // namespace vestara
