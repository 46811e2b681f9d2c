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

/// The columns by the engine's own names, dates by their type.
std::vector<ColumnHeader> headers_of(MYSQL_RES* result);

}  // namespace dorvane::mariadb
