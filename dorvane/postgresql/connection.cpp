#include "dorvane/postgresql/connection.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "automation/text.h"
#include "dorvane/postgresql/dialect.h"
#include "dorvane/postgresql/errors.h"
#include "dorvane/postgresql/result.h"

namespace dorvane::postgresql {

using automation::concatenated;
using automation::RunTimeError;

namespace {

const Engine registered("postgresql", "postgresql://user@host/database",
                        [](const Url& url) -> std::unique_ptr<Connection> {
                          return std::make_unique<PostgresqlConnection>(server_settings(url));
                        });

/// Tables whose keys the engine hands out, with their key columns, folded as the engine folds them.
constexpr std::array<std::pair<std::string_view, std::string_view>, 4> keyed{
    {{"storico", "id"}, {"tricerche", "idricerca"}, {"tsistemi", "idsis"}, {"tsistemadetail", "id"}}};

std::string tls_mode(const std::string& tls) { return tls == "verify" ? "verify-full" : tls; }

/// Whole seconds, at least two: less the client library does not wait.
std::string seconds(int milliseconds) { return std::to_string(std::max(2, (milliseconds + 999) / 1000)); }

/// Empty values leave the choice to the client library, its service and password files and its variables.
Session opened(const ServerSettings& settings) {
  const std::string host = settings.socket.empty() ? settings.address.host : settings.socket;
  const std::string wait = seconds(settings.timeout);
  const std::string tls = tls_mode(settings.tls);
  // A server that vanished without a word is noticed within half a minute, also in the middle of a statement.
  const std::array<std::pair<const char*, const char*>, 14> parameters{{{"host", host.c_str()},
                                                                        {"port", settings.address.port.c_str()},
                                                                        {"user", settings.address.user.c_str()},
                                                                        {"password", settings.address.password.c_str()},
                                                                        {"dbname", settings.address.database.c_str()},
                                                                        {"sslmode", tls.c_str()},
                                                                        {"sslrootcert", settings.tls_ca.c_str()},
                                                                        {"connect_timeout", wait.c_str()},
                                                                        {"client_encoding", "UTF8"},
                                                                        {"fallback_application_name", "vestara"},
                                                                        {"keepalives_idle", "10"},
                                                                        {"keepalives_interval", "5"},
                                                                        {"keepalives_count", "3"},
                                                                        {"tcp_user_timeout", "30000"}}};
  std::vector<const char*> keywords;
  std::vector<const char*> values;
  for (const auto& [keyword, value] : parameters) {
    if (*value == '\0') continue;
    keywords.push_back(keyword);
    values.push_back(value);
  }
  keywords.push_back(nullptr);
  values.push_back(nullptr);
  Session session(PQconnectdbParams(keywords.data(), values.data(), 0));
  if (PQstatus(session.get()) != CONNECTION_OK) throw connection_failure(session.get());
  PQsetNoticeProcessor(
      session.get(), [](void*, const char*) {}, nullptr);
  return session;
}

}  // namespace

PostgresqlConnection::PostgresqlConnection(const ServerSettings& settings)
    : ServerConnection(dialect(), settings.read_only ? Access::read_only : Access::read_write),
      session_(opened(settings)) {
  run("SET standard_conforming_strings=on");
  run("SET DateStyle=ISO");
  run("SET default_transaction_isolation='read committed'");
  run("SET default_transaction_read_only=on");
  run(concatenated({"SET lock_timeout=", std::to_string(settings.timeout)}));
  run(concatenated({"SET statement_timeout=", std::to_string(settings.statement_timeout)}));
  // Faster for statements like ours; other servers of this protocol may not know them.
  prefer("SET jit=off");
  prefer("SET work_mem='64MB'");
}

bool PostgresqlConnection::is_alive() const { return PQstatus(session_.get()) == CONNECTION_OK; }

bool PostgresqlConnection::transaction_is_whole() const {
  return PQtransactionStatus(session_.get()) == PQTRANS_INTRANS;
}

Result PostgresqlConnection::answer(std::string_view statement) {
  if (statement.find('\0') != std::string_view::npos)
    throw RunTimeError(5, "postgresql: the statement holds a NUL character");
  const std::string text(statement);
  // This way of asking takes one statement and no more.
  Result result(PQexecParams(session_.get(), text.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0));
  const auto status = PQresultStatus(result.get());
  if (status == PGRES_TUPLES_OK || status == PGRES_COMMAND_OK) return result;
  if (status == PGRES_EMPTY_QUERY) throw RunTimeError(5, "postgresql: the statement is empty");
  if (status == PGRES_COPY_IN || status == PGRES_COPY_OUT) {
    session_ = nullptr;
    throw RunTimeError(5, "postgresql: COPY is not for this connection, which is closed now");
  }
  throw failure(session_.get(), result.get(), statement);
}

void PostgresqlConnection::run(std::string_view statement) {
  const Result result = answer(statement);
  // The server answers a commit of a transaction that failed with a rollback, and without an error.
  if (statement == "COMMIT" && std::string_view(PQcmdStatus(result.get())) != "COMMIT")
    throw ServerError(Refusal::statement, "postgresql", "the transaction was rolled back", {});
}

ServerRows PostgresqlConnection::rows(std::string_view statement) {
  Result result = answer(statement);
  if (PQnfields(result.get()) == 0)
    throw RunTimeError(5, concatenated({"postgresql: the statement returns no rows: ", statement}));
  ServerRows answer;
  answer.headers = headers_of(result.get());
  answer.source = std::make_unique<Rows>(std::move(result));
  return answer;
}

void PostgresqlConnection::take_schema_turn() {
  // Any number will do, as long as every program of ours takes the same.
  rows("SELECT pg_advisory_xact_lock(1871010701)");
}

/// Only the sequence's owner may do this, and only where the draws have one; a refusal must not cost the transaction.
void PostgresqlConnection::after_emptying() {
  const auto sequence = column_of(
      "SELECT pg_get_serial_sequence('storico','id') FROM pg_class WHERE oid=to_regclass('storico')"
      " AND pg_has_role(relowner,'USAGE')");
  if (!sequence.empty()) run(concatenated({"ALTER SEQUENCE ", sequence.front(), " RESTART"}));
}

/// The rows that went are still in the way of every search, and plans are those of the old table, until the server's
/// own cleaning comes round. For the table's owner only: others get a warning, which is nothing.
void PostgresqlConnection::after_refilling() { run("VACUUM ANALYZE storico"); }

std::vector<std::string> PostgresqlConnection::key_repairs() {
  std::vector<std::string> repairs;
  for (const auto& [table, column] : keyed) {
    const std::string sequence = concatenated({"pg_get_serial_sequence('", table, "','", column, "')"});
    if (column_of(concatenated({"SELECT 1 WHERE has_sequence_privilege(", sequence,
                                ",'UPDATE') AND has_sequence_privilege(", sequence, ",'SELECT')"}))
            .empty())
      continue;
    const std::string name = column_of("SELECT " + sequence).front();
    const std::string largest = std::to_string(single_number(concatenated({"SELECT max(", column, ") FROM ", table})));
    if (!column_of(concatenated({"SELECT 1 FROM ", name, " WHERE last_value<", largest})).empty())
      repairs.push_back(concatenated({"SELECT setval('", name, "',", largest, ")"}));
  }
  return repairs;
}

}  // namespace dorvane::postgresql
