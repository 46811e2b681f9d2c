#pragma once

#include <string>
#include <vector>

#include "dorvane/mariadb/handles.h"
#include "dorvane/recordset.h"

namespace dorvane::mariadb {

/// The rows of a complete result, taken over one by one.
class Rows final : public RowSource {
 public:
  explicit Rows(Result result);
  bool fetch(std::vector<ColumnStore>& columns) override;

 private:
  Result result_;
  std::vector<enum_field_types> types_;
};

/// The engine's own names of the columns.
std::vector<std::string> names_of(MYSQL_RES* result);
/// Dates by their type.
TextReading reading_of(MYSQL_RES* result, size_t column);

}  // namespace dorvane::mariadb
