#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "dorvane/insert_values.h"
#include "dorvane/sqlite/handles.h"
#include "dorvane/sqlite/session.h"

namespace dorvane::sqlite {

/// Inserts rows of literals by a prepared statement, and keeps that for the next ones: an import sends the same
/// statement many times with other literals.
class InsertCache {
 public:
  explicit InsertCache(Session& session) : session_(session) {}

  /// All rows or none: `head` is the statement up to VALUES, `values` hold one for every column of each row. Raises
  /// RunTimeError with the engine's reason.
  void insert(std::string_view head, size_t columns, std::span<const Literal> values);
  /// Before the session changes its file or ends.
  void forget() { statement_ = nullptr; }

 private:
  void prepare_for(std::string_view head, size_t columns);
  void insert_each(std::span<const Literal> values);
  void bind(int place, const Literal& literal);

  Session& session_;
  Statement statement_;
  std::string head_;
  size_t columns_ = 0;
};

}  // namespace dorvane::sqlite
