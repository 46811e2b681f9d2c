#pragma once

#include <vector>

#include "dorvane/postgresql/handles.h"
#include "records/static_recordset.h"

namespace dorvane::postgresql {

/// The rows of a complete result, taken over one by one.
class Rows final : public records::RowSource {
 public:
  explicit Rows(Result result);
  bool fetch(std::vector<records::ColumnStore>& columns) override;

 private:
  /// How a column's text is read.
  enum class Kind : uint8_t { whole, real, decimal, boolean, timestamp, text };

  static Kind kind_of(Oid type);
  void append(records::ColumnStore& column, Kind kind, std::string_view value) const;

  Result result_;
  std::vector<Kind> kinds_;
  int row_ = 0;
};

/// The columns by the engine's own names, dates by their type.
std::vector<records::ColumnHeader> headers_of(const PGresult* result);

}  // namespace dorvane::postgresql
