#include "dorvane/mariadb/result.h"

#include <utility>

#include "dorvane/result_text.h"

namespace dorvane::mariadb {
namespace {

void append(records::ColumnStore& column, enum_field_types type, std::string_view value) {
  switch (type) {
    case MYSQL_TYPE_TINY:
    case MYSQL_TYPE_SHORT:
    case MYSQL_TYPE_INT24:
    case MYSQL_TYPE_LONG:
    case MYSQL_TYPE_LONGLONG:
    case MYSQL_TYPE_YEAR:
      return append_whole(column, value);
    case MYSQL_TYPE_FLOAT:
    case MYSQL_TYPE_DOUBLE:
      return append_real(column, value);
    case MYSQL_TYPE_DECIMAL:
    case MYSQL_TYPE_NEWDECIMAL:
      return append_decimal(column, value);
    case MYSQL_TYPE_DATETIME:
    case MYSQL_TYPE_TIMESTAMP:
      return append_timestamp(column, value);
    default:
      return column.append_text(value);
  }
}

}  // namespace

Rows::Rows(Result result) : result_(std::move(result)) {
  const MYSQL_FIELD* const fields = mysql_fetch_fields(result_.get());
  for (unsigned i = 0; i < mysql_num_fields(result_.get()); ++i) types_.push_back(fields[i].type);
}

bool Rows::fetch(std::vector<records::ColumnStore>& columns) {
  const char* const* const row = mysql_fetch_row(result_.get());
  if (!row) return false;
  const unsigned long* const lengths = mysql_fetch_lengths(result_.get());
  for (size_t i = 0; i < columns.size(); ++i) {
    if (row[i])
      append(columns[i], types_[i], {row[i], lengths[i]});
    else
      columns[i].append_null();
  }
  return true;
}

std::vector<records::ColumnHeader> headers_of(MYSQL_RES* result) {
  std::vector<records::ColumnHeader> headers;
  const MYSQL_FIELD* const fields = mysql_fetch_fields(result);
  for (unsigned i = 0; i < mysql_num_fields(result); ++i) {
    const auto type = fields[i].type;
    const bool is_date = type == MYSQL_TYPE_DATE || type == MYSQL_TYPE_DATETIME || type == MYSQL_TYPE_TIMESTAMP;
    headers.push_back({fields[i].name, is_date ? records::TextReading::iso_dates : records::TextReading::plain});
  }
  return headers;
}

}  // namespace dorvane::mariadb
