#include "dorvane/mariadb/dialect.h"

#include <array>

#include "dorvane/statement.h"

namespace dorvane::mariadb {
namespace {

// Texts compare byte by byte and blank for blank, as they do elsewhere. Only transactional storage will do.
constexpr std::array<Creation, 5> create_tables{{
    {"storico",
     "CREATE TABLE IF NOT EXISTS storico(id INT NOT NULL AUTO_INCREMENT PRIMARY KEY, dtEstr DATE,"
     " ruota VARCHAR(20) CHARACTER SET ascii COLLATE ascii_nopad_bin, estr1 SMALLINT, estr2 SMALLINT, estr3 SMALLINT,"
     " estr4 SMALLINT, estr5 SMALLINT, concorsoNumero INT, CHECK(month(dtEstr)>0 AND dayofmonth(dtEstr)>0))"
     " ENGINE=InnoDB"},
    {"tRicerche",
     "CREATE TABLE IF NOT EXISTS tricerche(idRicerca INT NOT NULL AUTO_INCREMENT PRIMARY KEY, descRicerca MEDIUMTEXT,"
     " numeri MEDIUMTEXT, combinazione SMALLINT, ruote MEDIUMTEXT, dtSave DATETIME, dtDa DATETIME, dtA DATETIME)"
     " ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin"},
    {"tSistemi",
     "CREATE TABLE IF NOT EXISTS tsistemi(idSis INT NOT NULL AUTO_INCREMENT PRIMARY KEY, titolo MEDIUMTEXT,"
     " descrizione MEDIUMTEXT, numeri MEDIUMTEXT, qtaNumeri SMALLINT, nGiocate SMALLINT, kColonne SMALLINT,"
     " garanzia SMALLINT, sisTipo MEDIUMTEXT) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin"},
    {"tSistemaDetail",
     "CREATE TABLE IF NOT EXISTS tsistemadetail(id INT NOT NULL AUTO_INCREMENT PRIMARY KEY, idSis INT,"
     " combinazione MEDIUMTEXT) ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin"},
    {"ruote",
     "CREATE TABLE IF NOT EXISTS ruote(enumeratore INT NOT NULL PRIMARY KEY, enumeratoreBit INT,"
     " ruotaAlias VARCHAR(20) CHARACTER SET ascii COLLATE ascii_nopad_bin) ENGINE=InnoDB"},
}};

constexpr std::array<Creation, 9> create_indexes{{
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
    {"vestara_sistema_detail", "CREATE INDEX IF NOT EXISTS vestara_sistema_detail ON tsistemadetail(idSis)"},
}};

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
      .tables = create_tables,
      .indexes = create_indexes,
      .column_facts =
          "SELECT lower(concat(table_name,'.',column_name)) FROM information_schema.columns WHERE"
          " table_schema=database()",
      .index_facts =
          "SELECT DISTINCT lower(index_name) FROM information_schema.statistics WHERE table_schema=database()",
  };
  return dialect;
}

}  // namespace dorvane::mariadb
