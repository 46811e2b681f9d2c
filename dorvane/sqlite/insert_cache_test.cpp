#include "dorvane/sqlite/insert_cache.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/error.h"

namespace dorvane::sqlite {
namespace {

class InsertCacheTest : public testing::Test {
 protected:
  void SetUp() override {
    const FileSettings settings = file_settings(parse_url("sqlite::memory:"));
    session_.attach(open_file(settings), settings);
    session_.run("CREATE TABLE t(a TEXT, b INTEGER CHECK(b<100))", Permission::anything);
  }

  void insert(const std::vector<Literal>& values) { cache_.insert("INSERT INTO t(a,b)VALUES", 2, values); }
  static Literal text(std::string_view value) { return Literal::of(value); }
  static Literal whole(int64_t value) { return Literal::of(value); }

  std::vector<std::string> stored() {
    return session_.column_of("SELECT coalesce(a,'Null')||' '||coalesce(b,'Null') FROM t ORDER BY rowid");
  }

  Session session_;
  InsertCache cache_{session_};
};

using Lines = std::vector<std::string>;

TEST_F(InsertCacheTest, RowsOfLiteralsAreStored) {
  insert({text("x"), whole(1)});
  insert({text(""), {}, {}, whole(2)});
  EXPECT_EQ(stored(), (Lines{"x 1", " Null", "Null 2"}));
  cache_.insert("INSERT INTO t(b)VALUES", 1, std::vector{whole(3)});
  EXPECT_EQ(stored().back(), "Null 3");
}

TEST_F(InsertCacheTest, AllRowsOrNone) {
  EXPECT_THROW(insert({text("x"), whole(1), text("y"), whole(100)}), automation::RunTimeError);
  EXPECT_EQ(stored(), Lines());
  EXPECT_FALSE(session_.is_inside_transaction());
  insert({text("x"), whole(1)});
  EXPECT_EQ(stored(), Lines{"x 1"});
}

TEST_F(InsertCacheTest, AValueThatTheEngineDoesNotTakeIsNoNull) {
  const std::string longer(200, 'x');
  sqlite3_limit(session_.database(), SQLITE_LIMIT_LENGTH, 100);
  EXPECT_THROW(insert({text(longer), whole(1)}), automation::RunTimeError);
  EXPECT_EQ(stored(), Lines());
}

}  // namespace
}  // namespace dorvane::sqlite
