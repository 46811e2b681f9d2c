#pragma once

#include <optional>
#include <vector>

#include "dorvane/home_process.h"
#include "dorvane/sqlite/handles.h"
#include "dorvane/sqlite/open_rows.h"
#include "dorvane/sqlite/statement_clock.h"
#include "records/static_recordset.h"

namespace dorvane::sqlite {

/// The result columns of a prepared statement.
std::vector<records::ColumnHeader> headers_of(sqlite3_stmt* statement);

/// The clock of a statement, and where the connection looks for the one that runs.
struct RowClock {
  StatementClock*& place;
  StatementClock clock;
};

/// The rows of a running statement, one step each; the set that takes them is listed in `open` meanwhile. In a process
/// that was forked meanwhile there are no further rows, and the statement is left alone.
class Rows final : public records::RowSource {
 public:
  Rows(sqlite3* database, Statement statement, RowClock clock, OpenRows& open);
  ~Rows() override;
  void taken_by(records::StaticRecordSet& set) override { ticket_.emplace(open_, set); }
  bool fetch(std::vector<records::ColumnStore>& columns) override;

 private:
  sqlite3* database_;
  Statement statement_;
  RowClock clock_;
  HomeProcess home_;
  OpenRows& open_;
  std::optional<OpenRows::Ticket> ticket_;
};

}  // namespace dorvane::sqlite
