#include "dorvane/sqlite/draw_indexes.h"

#include <string>

#include "automation/text.h"
#include "dorvane/sqlite/dialect.h"

namespace dorvane::sqlite {

using automation::concatenated;
using vestara::ArchiveIndex;

void DrawIndexes::look() { owed_ = were_left_out(); }

bool DrawIndexes::are_the_files_own() {
  return session_.single_number(concatenated(
             {"SELECT count(*) FROM sqlite_master WHERE type='index' AND name='", lasting_index().name, "'"})) != 0;
}

/// The state between the emptying of the draws and the making of their indexes, which another connection did not get
/// out of: it was killed, or could not make them.
bool DrawIndexes::were_left_out() {
  if (sqlite3_db_readonly(session_.database(), "main") != 0) return false;
  std::string names;
  for (const ArchiveIndex& index : vestara::draw_indexes())
    names.append(names.empty() ? "'" : ",'").append(index.name).append("'");
  const auto count = [&](std::string_view condition) {
    return session_.single_number(concatenated({"SELECT count(*) FROM sqlite_master WHERE ", condition}));
  };
  return are_the_files_own() && count("type='index' AND name IN(" + names + ")") == 0 &&
         count("type='table' AND lower(name)='storico'") != 0;
}

void DrawIndexes::empty_draws(std::string_view statement) {
  if (!are_the_files_own()) return session_.run(statement, Permission::change);
  session_.atomically([&] {
    for (const ArchiveIndex& index : vestara::draw_indexes())
      session_.run(concatenated({"DROP INDEX IF EXISTS ", index.name}), Permission::anything);
    session_.run(statement, Permission::change);
  });
  owed_ = true;
}

void DrawIndexes::create() {
  for (const ArchiveIndex& index : vestara::draw_indexes()) session_.run(index_statement(index), Permission::anything);
  session_.run("ANALYZE", Permission::anything);
}

void DrawIndexes::rebuild() {
  session_.atomically([&] { create(); });
  owe_nothing();
}

}  // namespace dorvane::sqlite
