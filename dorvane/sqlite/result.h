#pragma once

#include <functional>
#include <vector>

#include "dorvane/recordset.h"
#include "dorvane/sqlite/handles.h"

namespace dorvane::sqlite {

/// The result columns of a prepared statement.
std::vector<ColumnHeader> headers_of(sqlite3_stmt* statement);

/// The rows of a running statement, one step each. `on_end` is called when the statement is let go.
class Rows final : public RowSource {
 public:
  Rows(sqlite3* database, Statement statement, std::function<void()> on_end);
  ~Rows() override;
  bool fetch(std::vector<ColumnStore>& columns) override;

 private:
  sqlite3* database_;
  Statement statement_;
  std::function<void()> on_end_;
};

}  // namespace dorvane::sqlite
