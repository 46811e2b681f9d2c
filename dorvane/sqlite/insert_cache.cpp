#include "dorvane/sqlite/insert_cache.h"

#include "dorvane/sqlite/errors.h"

namespace dorvane::sqlite {

void InsertCache::insert(const InsertValues& rows) {
  const Session::Permitting permitting(session_, Permission::change);
  prepare_for(rows);
  if (rows.rows() == 1)
    insert_each(rows);
  else
    session_.atomically([&] { insert_each(rows); });
}

void InsertCache::prepare_for(const InsertValues& rows) {
  if (statement_ && columns_ == rows.columns && head_ == rows.head) return;
  std::string text(rows.head);
  for (size_t i = 0; i < rows.columns; ++i) text += i == 0 ? "(?" : ",?";
  statement_ = session_.prepare(text + ")", Permission::change);
  head_ = rows.head;
  columns_ = rows.columns;
}

void InsertCache::insert_each(const InsertValues& rows) {
  auto literal = rows.literals.begin();
  for (size_t row = 0; row < rows.rows(); ++row) {
    for (int place = 1; place <= static_cast<int>(rows.columns); ++place) bind(place, *literal++);
    const int code = sqlite3_step(statement_.get());
    sqlite3_reset(statement_.get());
    require_ok(code, session_.database(), rows.head);
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
      code = sqlite3_bind_text64(insert, place, literal.text.data(), literal.text.size(), SQLITE_STATIC, SQLITE_UTF8);
  }
  require_ok(code, session_.database(), head_);
}

}  // namespace dorvane::sqlite
