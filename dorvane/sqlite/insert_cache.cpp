#include "dorvane/sqlite/insert_cache.h"

#include "dorvane/sqlite/errors.h"

namespace dorvane::sqlite {

void InsertCache::insert(std::string_view head, size_t columns, std::span<const Literal> values) {
  const Session::Permitting permitting(session_, Permission::change);
  prepare_for(head, columns);
  if (values.size() == columns)
    insert_each(values);
  else
    session_.atomically([&] { insert_each(values); });
}

void InsertCache::prepare_for(std::string_view head, size_t columns) {
  if (statement_ && columns_ == columns && head_ == head) return;
  std::string text(head);
  for (size_t i = 0; i < columns; ++i) text += i == 0 ? "(?" : ",?";
  statement_ = session_.prepare(text + ")", Permission::change);
  head_ = head;
  columns_ = columns;
}

void InsertCache::insert_each(std::span<const Literal> values) {
  for (auto rest = values; !rest.empty(); rest = rest.subspan(columns_)) {
    for (size_t i = 0; i < columns_; ++i) bind(static_cast<int>(i + 1), rest[i]);
    const int code = sqlite3_step(statement_.get());
    sqlite3_reset(statement_.get());
    require_ok(code, session_.database(), head_);
  }
}

void InsertCache::bind(int place, const Literal& literal) {
  sqlite3_stmt* const insert = statement_.get();
  int code = SQLITE_OK;
  switch (literal.kind) {
    case Literal::Kind::null:
      code = sqlite3_bind_null(insert, place);
      break;
    case Literal::Kind::whole:
      code = sqlite3_bind_int64(insert, place, literal.number);
      break;
    case Literal::Kind::text:
      // A view of nothing may have no bytes to point at, and would be bound as NULL.
      code = sqlite3_bind_text64(insert, place, literal.text.empty() ? "" : literal.text.data(), literal.text.size(),
                                 SQLITE_STATIC, SQLITE_UTF8);
  }
  require_ok(code, session_.database(), head_);
}

}  // namespace dorvane::sqlite
