#pragma once

#include <string>
#include <vector>

#include "dorvane/mariadb/handles.h"
#include "records/static_recordset.h"

namespace dorvane::mariadb {

/// The rows of a complete result, taken over one by one.
class Rows final : public records::RowSource {
 public:
  explicit Rows(Result result);
  bool fetch(std::vector<records::ColumnStore>& columns) override;

 private:
  Result result_;
  std::vector<enum_field_types> types_;
};

/// The columns by the engine's own names, dates by their type.
std::vector<records::ColumnHeader> headers_of(MYSQL_RES* result);

}  // namespace dorvane::mariadb
