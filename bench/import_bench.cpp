#include "bench/archive.h"
#include "bench/harness.h"
#include "vestara/draws/draw_row.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/keeping/draw_changes.h"

// import: the same rows in one transaction, as multi-row texts executed by the bare engine, as those texts through the
// connector, and as values through the library. All write the same table without secondary indexes, and all roll back,
// so that only the inserts count.

namespace {

void require(bool done, const dorvane::DbConnector& connector) {
  if (!done) bench::stop(connector.LastError());
}

/// The row that a tuple says.
vestara::DrawRow row_of(const std::string& tuple) {
  int contest, y, m, d;
  char wheel[8];
  int n[5];
  if (std::sscanf(tuple.c_str(), "(%d,'%d-%d-%d','%2[A-Z]',%d,%d,%d,%d,%d)", &contest, &y, &m, &d, wheel, n, n + 1,
                  n + 2, n + 3, n + 4) != 10)
    bench::stop("no tuple: " + tuple);
  vestara::DrawRow row{.day = automation::day_from_civil(y, m, d),
                       .contest = static_cast<int16_t>(contest),
                       .wheel = vestara::wheel_named(wheel).value()};
  for (size_t i = 0; i < 5; ++i) row.numbers[i] = static_cast<int8_t>(n[i]);
  return row;
}

}  // namespace

int main() {
  const auto tuples = bench::archive_tuples();
  const auto texts = bench::insert_texts(tuples);
  std::vector<vestara::DrawRow> rows;
  for (const std::string& tuple : tuples) rows.push_back(row_of(tuple));
  const bench::ArchiveFile file("import");
  {
    // The connector's own tables, with the draw indexes taken off for all sides.
    const auto connector = bench::open_connector(file.path());
    require(connector->CreateSchema(), *connector);
    for (const char* name : {"estr1", "estr2", "estr3", "estr4", "estr5", "rows", "wheel", "draws"})
      require(connector->ExecuteSql(std::string("DROP INDEX vestara_storico_") + name), *connector);
  }
  const auto connector = bench::open_connector(file.path());
  sqlite3* const bare = bench::open_bare(file.path());
  const auto bare_texts = [&] {
    bench::run_bare(bare, "BEGIN IMMEDIATE");
    for (const std::string& text : texts) bench::run_bare(bare, text);
    bench::run_bare(bare, "ROLLBACK");
  };
  bench::compare("import, 1000-tuple texts", 0.70, bare_texts, [&] {
    connector->BeginTrans();
    for (const std::string& text : texts) require(connector->ExecuteSql(text), *connector);
    connector->RollbackTrans();
  });
  bench::compare("import, rows as values", 0.33, bare_texts, [&] {
    connector->BeginTrans();
    vestara::insert_draws(*connector, vestara::DatabaseType::many_rows_per_insert, rows);
    connector->RollbackTrans();
  });
  sqlite3_close(bare);
}
