#include <algorithm>

#include "automation/text.h"
#include "dorvane/sqlite/connection.h"
#include "dorvane/sqlite/dialect.h"
#include "dorvane/sqlite/errors.h"

// What a connection finds out about the archive: its tables, its indexes, its file.

namespace dorvane::sqlite {

namespace {

/// The first column of a row; "" for Null, and where there is no memory for the text.
std::string_view text_of(sqlite3_stmt* row) {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(row, 0));
  return text ? std::string_view(text) : std::string_view();
}

}  // namespace

std::vector<std::string> SqliteConnection::column_of(std::string_view statement) {
  StatementClock clock(settings_.reading_limit);
  const RunningClock running(running_, clock);
  const Statement prepared = prepare(statement, Permission::anything);
  std::vector<std::string> texts;
  int code = SQLITE_ROW;
  while ((code = sqlite3_step(prepared.get())) == SQLITE_ROW)
    if (sqlite3_column_type(prepared.get(), 0) != SQLITE_NULL) texts.emplace_back(text_of(prepared.get()));
  require_ok(code, database_.get(), statement);
  return texts;
}

SchemaFacts SqliteConnection::schema_facts() {
  const Permitting permitting(*this, Permission::anything);
  SchemaFacts facts;
  const auto add = [&](auto& names, std::string_view statement) {
    for (std::string& name : column_of(statement)) names.insert(std::move(name));
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
  const Statement check = prepare("PRAGMA integrity_check", Permission::anything);
  std::vector<std::string> findings;
  int code = SQLITE_ROW;
  while ((code = sqlite3_step(check.get())) == SQLITE_ROW)
    for (const std::string_view line : automation::split(text_of(check.get()), '\n'))
      // What the engine puts above its findings, and what it says of a sound file.
      if (!line.empty() && !line.starts_with("***") && line != "ok") findings.emplace_back(line);
  // A file may be too damaged to be checked to its end; what was found so far counts.
  if (code != SQLITE_DONE) findings.push_back(last_failure(database_.get()).description());
  return findings;
}

bool SqliteConnection::owns_indexes() {
  const std::string name(lasting_index().name);
  return single_number("SELECT count(*) FROM sqlite_master WHERE type='index' AND name='" + name + "'") != 0;
}

/// The state between the emptying of the draws and the making of their indexes, which another connection did not get
/// out of: it was killed, or could not make them.
bool SqliteConnection::was_left_without_indexes() {
  if (sqlite3_db_readonly(database_.get(), "main") != 0) return false;
  std::string names;
  for (const vestara::ArchiveIndex& index : vestara::draw_indexes())
    names.append(names.empty() ? "'" : ",'").append(index.name).append("'");
  return owns_indexes() &&
         single_number("SELECT count(*) FROM sqlite_master WHERE type='index' AND name IN(" + names + ")") == 0 &&
         single_number("SELECT count(*) FROM sqlite_master WHERE type='table' AND lower(name)='storico'") != 0;
}

}  // namespace dorvane::sqlite
