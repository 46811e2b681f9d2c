#pragma once

#include <vector>

#include "dorvane/postgresql/handles.h"
#include "dorvane/recordset.h"

namespace dorvane::postgresql {

/// The rows of a complete result, taken over one by one.
class Rows final : public RowSource {
 public:
  explicit Rows(Result result);
  bool fetch(std::vector<ColumnStore>& columns) override;

 private:
  /// How a column's text is read.
  enum class Kind : uint8_t { whole, real, decimal, boolean, timestamp, text };

  static Kind kind_of(Oid type);
  void append(ColumnStore& column, Kind kind, std::string_view value) const;

  Result result_;
  std::vector<Kind> kinds_;
  int row_ = 0;
};

/// The columns by the engine's own names, dates by their type.
std::vector<ColumnHeader> headers_of(const PGresult* result);

}  // namespace dorvane::postgresql
