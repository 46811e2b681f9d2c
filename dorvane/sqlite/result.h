#pragma once

#include <functional>
#include <vector>

#include "dorvane/home_process.h"
#include "dorvane/sqlite/handles.h"
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

/// The rows of a running statement, one step each. `on_end` is called when the statement is let go. In a process that
/// was forked meanwhile there are no further rows, and the statement is left alone.
class Rows final : public records::RowSource {
 public:
  Rows(sqlite3* database, Statement statement, RowClock clock, std::function<void()> on_end);
  ~Rows() override;
  bool fetch(std::vector<records::ColumnStore>& columns) override;

 private:
  sqlite3* database_;
  Statement statement_;
  RowClock clock_;
  HomeProcess home_;
  std::function<void()> on_end_;
};

}  // namespace dorvane::sqlite
