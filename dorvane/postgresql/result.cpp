#include "dorvane/postgresql/result.h"

#include <utility>

#include "dorvane/result_text.h"

namespace dorvane::postgresql {
namespace {

// The engine's catalogue numbers of its types (pg_type.dat); they never change.
constexpr Oid boolean_type = 16;
constexpr Oid int8_type = 20, int2_type = 21, int4_type = 23, oid_type = 26;
constexpr Oid float4_type = 700, float8_type = 701, numeric_type = 1700;
constexpr Oid date_type = 1082, timestamp_type = 1114;

}  // namespace

Rows::Kind Rows::kind_of(Oid type) {
  switch (type) {
    case int2_type:
    case int4_type:
    case int8_type:
    case oid_type:
      return Kind::whole;
    case float4_type:
    case float8_type:
      return Kind::real;
    case numeric_type:
      return Kind::decimal;
    case boolean_type:
      return Kind::boolean;
    case timestamp_type:
      return Kind::timestamp;
    default:
      return Kind::text;
  }
}

Rows::Rows(Result result) : result_(std::move(result)) {
  for (int i = 0; i < PQnfields(result_.get()); ++i) kinds_.push_back(kind_of(PQftype(result_.get(), i)));
}

void Rows::append(records::ColumnStore& column, Kind kind, std::string_view value) const {
  switch (kind) {
    case Kind::whole:
      return append_whole(column, value);
    case Kind::real:
      return append_real(column, value);
    case Kind::decimal:
      return append_decimal(column, value);
    case Kind::boolean:
      return column.append_whole(value == "t" ? 1 : 0);
    case Kind::timestamp:
      return append_timestamp(column, value);
    case Kind::text:
      return column.append_text(value);
  }
}

bool Rows::fetch(std::vector<records::ColumnStore>& columns) {
  const PGresult* const result = result_.get();
  if (row_ == PQntuples(result)) return false;
  for (size_t i = 0; i < columns.size(); ++i) {
    const int column = static_cast<int>(i);
    if (PQgetisnull(result, row_, column) != 0)
      columns[i].append_null();
    else
      append(columns[i], kinds_[i],
             {PQgetvalue(result, row_, column), static_cast<size_t>(PQgetlength(result, row_, column))});
  }
  ++row_;
  return true;
}

std::vector<records::ColumnHeader> headers_of(const PGresult* result) {
  std::vector<records::ColumnHeader> headers;
  for (int i = 0; i < PQnfields(result); ++i) {
    const Oid type = PQftype(result, i);
    const bool is_date = type == date_type || type == timestamp_type;
    headers.push_back({PQfname(result, i), is_date ? records::TextReading::iso_dates : records::TextReading::plain});
  }
  return headers;
}

}  // namespace dorvane::postgresql
