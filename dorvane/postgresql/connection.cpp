#include "dorvane/postgresql/connection.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>
#include <vector>

#include "automation/text.h"
#include "dorvane/postgresql/dialect.h"
#include "dorvane/postgresql/errors.h"
#include "dorvane/postgresql/reading.h"
#include "dorvane/postgresql/result.h"
#include "dorvane/statement.h"

namespace dorvane::postgresql {

using automation::concatenated;

namespace {

const Engine registered("postgresql", "postgresql://user@host/database",
                        [](const Url& url) -> std::unique_ptr<Connection> {
                          return std::make_unique<PostgresqlConnection>(server_settings(url));
                        });

/// What does more than compute, by the server's own word, but for what every program may know.
constexpr std::string_view volatile_functions =
    "SELECT DISTINCT lower(proname) FROM pg_catalog.pg_proc WHERE provolatile='v' AND NOT (pronamespace="
    "'pg_catalog'::pg_catalog.regnamespace AND proname IN ('random','clock_timestamp','timeofday','gen_random_uuid',"
    "'system','bernoulli','pg_table_size','pg_relation_size','pg_indexes_size','pg_total_relation_size',"
    "'pg_database_size'))";

void require_no_nul(const std::string& statement) {
  if (statement.find('\0') != std::string::npos)
    throw refused_statement("postgresql", "holds a NUL character", statement);
}

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
  if (settings.must_encrypt() && PQsslInUse(session.get()) == 0) throw not_encrypted("postgresql", settings.tls);
  PQsetNoticeProcessor(
      session.get(), [](void*, const char*) {}, nullptr);
  return session;
}

}  // namespace

PostgresqlConnection::PostgresqlConnection(const ServerSettings& settings)
    : ServerConnection(dialect(), settings.read_only ? Access::read_only : Access::read_write),
      session_(opened(settings)) {
  run("SET standard_conforming_strings=on");
  fix_search_path();
  run("SET DateStyle=ISO");
  run("SET default_transaction_isolation='read committed'");
  run("SET default_transaction_read_only=on");
  run(concatenated({"SET lock_timeout=", std::to_string(settings.timeout)}));
  run(concatenated({"SET statement_timeout=", std::to_string(settings.statement_timeout)}));
  // Faster for statements like ours; other servers of this protocol may not know them.
  prefer("SET jit=off");
  prefer("SET work_mem='64MB'");
  refuse_functions(column_of(volatile_functions));
}

/// The server hears nothing of this: it goes on speaking with the process that the session belongs to.
void PostgresqlConnection::leave() noexcept {
  close(PQsocket(session_.get()));
  static_cast<void>(session_.release());
}

bool PostgresqlConnection::is_alive() const { return PQstatus(session_.get()) == CONNECTION_OK; }

bool PostgresqlConnection::transaction_is_whole() const {
  return PQtransactionStatus(session_.get()) == PQTRANS_INTRANS;
}

Result PostgresqlConnection::answer(std::string_view statement) {
  const std::string text(statement);
  require_no_nul(text);
  // This way of asking takes one statement and no more.
  Result result(PQexecParams(session_.get(), text.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0));
  require_answer(result.get(), statement);
  return result;
}

void PostgresqlConnection::require_answer(const PGresult* result, std::string_view statement) {
  const auto status = PQresultStatus(result);
  if (status == PGRES_TUPLES_OK || status == PGRES_COMMAND_OK) return;
  if (status == PGRES_EMPTY_QUERY) throw refused_statement("postgresql", "is empty", statement);
  if (status == PGRES_COPY_IN || status == PGRES_COPY_OUT) {
    session_ = nullptr;
    throw automation::invalid_call("postgresql: COPY is not for this connection, which is closed now");
  }
  throw failure(session_.get(), result, statement);
}

int64_t PostgresqlConnection::run(std::string_view statement) {
  return std::strtoll(PQcmdTuples(answer(statement).get()), nullptr, 10);
}

/// The server answers a commit of a transaction that failed with a rollback, and without an error.
void PostgresqlConnection::keep() {
  const Result result = answer("COMMIT");
  if (std::string_view(PQcmdStatus(result.get())) != "COMMIT")
    throw ServerError(Refusal::statement, "postgresql", "the transaction was rolled back", {});
}

ServerRows PostgresqlConnection::rows_of(Result result, std::string_view statement) {
  if (PQnfields(result.get()) == 0)
    throw refused_statement("postgresql", concatenated({"returns no rows: ", statement}), statement);
  ServerRows answer;
  answer.headers = headers_of(result.get());
  answer.source = std::make_unique<Rows>(std::move(result));
  return answer;
}

ServerRows PostgresqlConnection::rows(std::string_view statement) { return rows_of(answer(statement), statement); }

ServerRows PostgresqlConnection::reading_rows(std::string_view statement, OnRefusal on_refusal) {
  const std::string text(statement);
  require_no_nul(text);
  const bool inside = transaction_is_whole();
  Result result = read_only_result(session_.get(), text);
  if (inside && on_refusal == OnRefusal::keep_transaction) return_to_transaction(session_.get());
  require_answer(result.get(), statement);
  return rows_of(std::move(result), statement);
}

/// What the user's path names now, the engine's own catalogue before it and what a session makes for itself behind it:
/// a table or function that somebody puts in front later is not taken for ours.
void PostgresqlConnection::fix_search_path() {
  rows(
      "SELECT pg_catalog.set_config('search_path',path||',pg_temp',false) FROM (SELECT pg_catalog.string_agg("
      "pg_catalog.quote_ident(name),',' ORDER BY place) AS path FROM pg_catalog.unnest(pg_catalog.current_schemas("
      "false)) WITH ORDINALITY AS schemas(name,place) WHERE name NOT LIKE 'pg!_%' ESCAPE '!') AS found WHERE path IS"
      " NOT NULL");
}

void PostgresqlConnection::take_schema_lock() {
  // Any number will do, as long as every program of ours takes the same.
  rows("SELECT pg_advisory_xact_lock(1871010701)");
}

std::string PostgresqlConnection::sequence_of(std::string_view table, std::string_view column) {
  constexpr std::string_view question =
      "SELECT format('%I.%I',nspname,relname) FROM pg_class JOIN pg_namespace n ON n.oid=relnamespace"
      " WHERE pg_class.oid=to_regclass(pg_get_serial_sequence(to_regclass('";
  const auto name = column_of(concatenated({question, table, "')::text,'", column, "'))"}));
  return name.empty() ? std::string() : name.front();
}

/// Only the sequence's owner may do this, and only where the draws have one; a refusal must not cost the transaction.
void PostgresqlConnection::on_emptied() {
  const bool owner =
      !column_of("SELECT 1 FROM pg_class WHERE oid=to_regclass('storico') AND pg_has_role(relowner,'USAGE')").empty();
  const std::string sequence = owner ? sequence_of("storico", "id") : std::string();
  if (!sequence.empty()) run(concatenated({"ALTER SEQUENCE ", sequence, " RESTART"}));
}

/// The rows that went are still in the way of every search, and plans are those of the old table, until the server's
/// own cleaning comes round. For the table's owner only: others get a warning, which is nothing.
void PostgresqlConnection::after_emptied_was_kept() { run("VACUUM ANALYZE storico"); }

std::vector<std::string> PostgresqlConnection::key_repairs() {
  std::vector<std::string> repairs;
  for (const vestara::ArchiveTable& keyed : vestara::archive_tables()) {
    if (keyed.keys != vestara::KeySource::database) continue;
    // As the engine folds them.
    const std::string table = automation::lower_case(keyed.name);
    const std::string column = automation::lower_case(keyed.key());
    const std::string name = sequence_of(table, column);
    if (name.empty()) continue;
    const std::string literal = column_of(concatenated({"SELECT quote_literal('", name, "')"})).front();
    if (column_of(concatenated({"SELECT 1 WHERE has_sequence_privilege(", literal,
                                ",'UPDATE') AND has_sequence_privilege(", literal, ",'SELECT')"}))
            .empty())
      continue;
    const std::string largest = std::to_string(single_number(concatenated({"SELECT max(", column, ") FROM ", table})));
    if (!column_of(concatenated({"SELECT 1 FROM ", name, " WHERE last_value<", largest})).empty())
      repairs.push_back(concatenated({"SELECT setval(", literal, ",", largest, ")"}));
  }
  return repairs;
}

}  // namespace dorvane::postgresql
