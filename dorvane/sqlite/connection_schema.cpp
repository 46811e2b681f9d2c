#include <utility>

#include "automation/text.h"
#include "dorvane/sqlite/connection.h"
#include "dorvane/sqlite/dialect.h"
#include "dorvane/sqlite/errors.h"

// What a connection finds out about the archive: its tables, its indexes, its file.

namespace dorvane::sqlite {

SchemaFacts SqliteConnection::schema_facts() {
  SchemaFacts facts;
  const auto add = [&](auto& names, std::string_view statement) {
    for (std::string& name : session_.column_of(statement)) names.insert(std::move(name));
  };
  // One of our tables at a time: a view of another program that cannot be read is none of our business.
  for (const vestara::ArchiveTable& table : vestara::archive_tables())
    add(facts.columns, automation::concatenated(
                           {"SELECT lower('", table.name, ".'||name) FROM pragma_table_info('", table.name, "')"}));
  add(facts.indexes, "SELECT lower(name) FROM sqlite_master WHERE type='index'");
  if (facts.columns.contains("ruote.ruotaalias")) add(facts.wheels, "SELECT ruotaAlias FROM ruote");
  return facts;
}

std::vector<vestara::SchemaGap> SqliteConnection::check_schema() {
  transaction_.require_not_lost();
  read_anew_if_changed();
  repair_before_read();
  return missing_from(schema_facts());
}

std::vector<std::string> SqliteConnection::check_file() {
  transaction_.require_not_lost();
  read_anew_if_changed();
  const Statement check = session_.prepare("PRAGMA integrity_check", Permission::anything);
  std::vector<std::string> findings;
  int code = SQLITE_ROW;
  while ((code = sqlite3_step(check.get())) == SQLITE_ROW)
    for (const std::string_view line : automation::split(text_of(check.get()), '\n'))
      // What the engine puts above its findings, and what it says of a sound file.
      if (!line.empty() && !line.starts_with("***") && line != "ok") findings.emplace_back(line);
  // A file may be too damaged to be checked to its end; what was found so far counts.
  if (code != SQLITE_DONE) findings.push_back(last_failure(session_.database()).description());
  return findings;
}

}  // namespace dorvane::sqlite
