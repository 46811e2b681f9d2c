#include "bench/archive.h"
#include "bench/harness.h"

// import: the library's multi-row texts in one transaction, through the connector and executed by the bare engine.
// Both sides write the same table without secondary indexes, and both roll back, so that only the inserts count.

namespace {

void require(bool done, const dorvane::DbConnector& connector) {
  if (!done) bench::stop(connector.LastError());
}

}  // namespace

int main() {
  const auto texts = bench::insert_texts(bench::archive_tuples());
  const bench::ArchiveFile file("import");
  {
    // The connector's own tables, with the draw indexes taken off for both sides.
    const auto connector = bench::open_connector(file.path());
    require(connector->CreateSchema(), *connector);
    for (const char* name : {"estr1", "estr2", "estr3", "estr4", "estr5", "rows", "wheel", "draws"})
      require(connector->ExecuteSql(std::string("DROP INDEX vestara_storico_") + name), *connector);
  }
  const auto connector = bench::open_connector(file.path());
  sqlite3* const bare = bench::open_bare(file.path());

  bench::compare(
      "import, 1000-tuple texts", 0.70,
      [&] {
        bench::run_bare(bare, "BEGIN IMMEDIATE");
        for (const std::string& text : texts) bench::run_bare(bare, text);
        bench::run_bare(bare, "ROLLBACK");
      },
      [&] {
        connector->BeginTrans();
        for (const std::string& text : texts) require(connector->ExecuteSql(text), *connector);
        connector->RollbackTrans();
      });
  sqlite3_close(bare);
}
