#include "dorvane/mariadb/dialect.h"

#include <array>

#include "automation/text.h"
#include "dorvane/schema.h"
#include "dorvane/statement.h"

namespace dorvane::mariadb {

using automation::concatenated;

namespace {

std::string type_of(const vestara::ArchiveTable& table, const vestara::TableColumn& column) {
  using enum vestara::ColumnKind;
  switch (column.kind) {
    case key:
      return table.keys == vestara::KeySource::database ? "INT NOT NULL AUTO_INCREMENT PRIMARY KEY"
                                                        : "INT NOT NULL PRIMARY KEY";
    case whole:
    case contest:
      return "INT";
    case small:
    case number:
      return "SMALLINT";
    case day:
      return "DATE";
    case moment:
      return "DATETIME";
    case text:
      return "MEDIUMTEXT";
    case code:
      return "VARCHAR(20) CHARACTER SET ascii COLLATE ascii_nopad_bin";
  }
  return {};
}

// Texts compare byte by byte and blank for blank, as they do elsewhere. Only transactional storage will do.
std::string table_statement(const vestara::ArchiveTable& table) {
  std::string checks;
  std::string_view texts;
  for (const vestara::TableColumn& column : table.columns) {
    if (column.kind == vestara::ColumnKind::day)
      checks += concatenated({", CHECK(month(", column.name, ")>0 AND dayofmonth(", column.name, ")>0)"});
    if (column.kind == vestara::ColumnKind::text) texts = " CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin";
  }
  return concatenated({"CREATE TABLE IF NOT EXISTS ", automation::lower_case(table.name), "(",
                       column_definitions(table, type_of), checks, ") ENGINE=InnoDB", texts});
}

std::string index_statement(const vestara::ArchiveIndex& index) {
  return index_creation(index, automation::lower_case(index.table->name));
}

// The session is read only; that does not keep a SELECT from files, locks and its own variables.
constexpr auto reading_words =
    std::to_array<std::string_view>({"insert", "update", "delete", "merge", "into", "create", "alter", "drop",
                                     "truncate", "call", "grant", "revoke", "copy", "load", "lock", "procedure"});

constexpr auto functions = std::to_array<std::string_view>({"benchmark",
                                                            "des_decrypt",
                                                            "des_encrypt",
                                                            "encrypt",
                                                            "get_lock",
                                                            "is_free_lock",
                                                            "is_used_lock",
                                                            "last_insert_id",
                                                            "lastval",
                                                            "load_file",
                                                            "master_gtid_wait",
                                                            "master_pos_wait",
                                                            "mroonga_command",
                                                            "nextval",
                                                            "release_all_locks",
                                                            "release_lock",
                                                            "setval",
                                                            "sleep",
                                                            "spider_bg_direct_sql",
                                                            "spider_copy_tables",
                                                            "spider_direct_sql",
                                                            "spider_flush_table_mon_cache",
                                                            "sys_eval",
                                                            "sys_exec",
                                                            "sys_get",
                                                            "sys_set",
                                                            "wsrep_sync_wait_upto_gtid"});

// Behind a WITH that changes nothing.
constexpr auto names = std::to_array<std::string_view>({"outfile", "dumpfile"});

constexpr Prohibitions prohibitions{syntax, reading_words, functions, names};

/// Lower case outside literals, quoted names and comments.
std::string fold_names(std::string_view statement) {
  std::string result;
  result.reserve(statement.size());
  while (!statement.empty()) {
    const Token next = next_token(statement, syntax);
    statement.remove_prefix(next.text.size());
    if (next.kind != TokenKind::word && next.kind != TokenKind::number) {
      result += next.text;
      continue;
    }
    for (const char c : next.text) result += c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
  }
  return result;
}

}  // namespace

std::string translate(std::string_view statement) {
  // The backslash escapes in patterns whatever the session's mode, and "no character" is not taken: one that nobody
  // writes takes its place.
  constexpr std::string_view no_escape = " collate utf8mb4_uca1400_as_ci escape '\x01'";
  return rewrite_like(undouble_backslashes(fold_names(statement), syntax), syntax, "like", no_escape);
}

const Dialect& dialect() {
  static constexpr Dialect dialect{
      .prohibitions = prohibitions,
      .translate = translate,
      .translate_reading = translate,
      .table_statement = table_statement,
      .index_statement = index_statement,
      .column_facts =
          "SELECT lower(concat(table_name,'.',column_name)) FROM information_schema.columns WHERE"
          " table_schema=database()",
      .index_facts =
          "SELECT DISTINCT lower(index_name) FROM information_schema.statistics WHERE table_schema=database()",
  };
  return dialect;
}

}  // namespace dorvane::mariadb
