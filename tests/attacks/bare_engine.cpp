#include "tests/attacks/bare_engine.h"

#include <gtest/gtest.h>
#include <libpq-fe.h>
#include <mysql.h>
#include <sqlite3.h>

#include "dorvane/server_address.h"
#include "dorvane/url.h"

namespace attacks {
namespace {

class Sqlite final : public BareEngine {
 public:
  Sqlite() { EXPECT_EQ(sqlite3_open(":memory:", &database_), SQLITE_OK); }
  ~Sqlite() override { sqlite3_close(database_); }
  Sqlite(const Sqlite&) = delete;
  Sqlite& operator=(const Sqlite&) = delete;

  std::string answer(const std::string& statement) override {
    sqlite3_stmt* prepared = nullptr;
    const int code =
        sqlite3_prepare_v2(database_, statement.data(), static_cast<int>(statement.size()), &prepared, nullptr);
    std::string values = "refused";
    if (code == SQLITE_OK && prepared && sqlite3_step(prepared) == SQLITE_ROW) {
      values.clear();
      for (int i = 0; i < sqlite3_column_count(prepared); ++i)
        if (sqlite3_column_type(prepared, i) == SQLITE_NULL)
          values.append("Null|");
        else
          values.append(reinterpret_cast<const char*>(sqlite3_column_text(prepared, i))).append("|");
    }
    sqlite3_finalize(prepared);
    return values;
  }

 private:
  sqlite3* database_ = nullptr;
};

class Postgresql final : public BareEngine {
 public:
  explicit Postgresql(const dorvane::ServerSettings& settings)
      : session_(PQsetdbLogin(settings.socket.c_str(), settings.address.port.c_str(), nullptr, nullptr,
                              settings.address.database.c_str(), settings.address.user.c_str(),
                              settings.address.password.c_str())) {
    EXPECT_EQ(PQstatus(session_), CONNECTION_OK);
    PQclear(PQexec(session_, "SET client_encoding=UTF8"));
  }
  ~Postgresql() override { PQfinish(session_); }
  Postgresql(const Postgresql&) = delete;
  Postgresql& operator=(const Postgresql&) = delete;

  std::string answer(const std::string& statement) override {
    PGresult* const result = PQexecParams(session_, statement.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0);
    std::string values = "refused";
    if (PQresultStatus(result) == PGRES_TUPLES_OK) {
      values.clear();
      for (int i = 0; i < PQnfields(result); ++i) values.append(PQgetvalue(result, 0, i)).append("|");
    }
    PQclear(result);
    return values;
  }

 private:
  PGconn* session_;
};

class Mariadb final : public BareEngine {
 public:
  explicit Mariadb(const dorvane::ServerSettings& settings) : session_(mysql_init(nullptr)) {
    EXPECT_TRUE(mysql_real_connect(session_, nullptr, settings.address.user.c_str(), settings.address.password.c_str(),
                                   settings.address.database.c_str(), 0, settings.socket.c_str(), 0));
    mysql_query(session_, "SET NAMES utf8mb4");
    mysql_query(session_, "SET sql_mode='NO_BACKSLASH_ESCAPES,ANSI_QUOTES,PIPES_AS_CONCAT'");
  }
  ~Mariadb() override { mysql_close(session_); }
  Mariadb(const Mariadb&) = delete;
  Mariadb& operator=(const Mariadb&) = delete;

  std::string answer(const std::string& statement) override {
    if (mysql_real_query(session_, statement.data(), static_cast<unsigned long>(statement.size())) != 0)
      return "refused";
    MYSQL_RES* const result = mysql_store_result(session_);
    if (!result) return "refused";
    std::string values;
    if (const char* const* const row = mysql_fetch_row(result))
      for (unsigned i = 0; i < mysql_num_fields(result); ++i) values.append(row[i] ? row[i] : "Null").append("|");
    mysql_free_result(result);
    return values;
  }

 private:
  MYSQL* session_;
};

}  // namespace

std::unique_ptr<BareEngine> bare_engine(conformance::Engine engine, const std::string& url) {
  if (engine == conformance::Engine::sqlite) return std::make_unique<Sqlite>();
  const auto settings = dorvane::server_settings(dorvane::parse_url(url));
  if (engine == conformance::Engine::postgresql) return std::make_unique<Postgresql>(settings);
  return std::make_unique<Mariadb>(settings);
}

}  // namespace attacks
