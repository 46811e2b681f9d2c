#include "dorvane/sqlite/result.h"

#include <string_view>
#include <utility>

#include "dorvane/sqlite/dialect.h"
#include "dorvane/sqlite/errors.h"

namespace dorvane::sqlite {
namespace {

void append(records::ColumnStore& column, sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      return column.append_whole(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
      return column.append_real(sqlite3_value_double(value));
    case SQLITE_NULL:
      return column.append_null();
    default: {
      // The text first, its length after: that is the order that converts once.
      const auto* text = static_cast<const char*>(sqlite3_value_blob(value));
      return column.append_text({text, static_cast<size_t>(sqlite3_value_bytes(value))});
    }
  }
}

}  // namespace

std::vector<records::ColumnHeader> headers_of(sqlite3_stmt* statement) {
  std::vector<records::ColumnHeader> headers;
  const int count = sqlite3_column_count(statement);
  for (int i = 0; i < count; ++i) {
    const std::string name = sqlite3_column_name(statement, i);
    headers.push_back({name, reading_of(name, sqlite3_column_decltype(statement, i))});
  }
  return headers;
}

Rows::Rows(sqlite3* database, Statement statement, RowClock clock, OpenRows& open)
    : database_(database), statement_(std::move(statement)), clock_(clock), open_(open) {}

Rows::~Rows() {
  if (!home_.is_here()) static_cast<void>(statement_.release());
}

bool Rows::fetch(std::vector<records::ColumnStore>& columns) {
  if (!home_.is_here())
    throw automation::failure(automation::FailureKind::database,
                              "the rows that were not read yet belong to the process that this one was forked "
                              "from; open the archive again here");
  const RunningClock running(clock_.place, clock_.clock);
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_DONE) return false;
  require_ok(code, database_);
  int place = 0;
  for (records::ColumnStore& column : columns) append(column, sqlite3_column_value(statement_.get(), place++));
  return true;
}

}  // namespace dorvane::sqlite
