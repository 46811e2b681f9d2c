#include "dorvane/mariadb/connection.h"

#include <errmsg.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <utility>

#include "automation/text.h"
#include "dorvane/mariadb/dialect.h"
#include "dorvane/mariadb/errors.h"
#include "dorvane/mariadb/result.h"
#include "dorvane/statement.h"

namespace dorvane::mariadb {

using automation::concatenated;

namespace {

const Engine registered("mariadb", "mariadb://user@host/database", [](const Url& url) -> std::unique_ptr<Connection> {
  return std::make_unique<MariadbConnection>(server_settings(url));
});

/// From here on a table that is filled anew inside a transaction gets low keys again: 32 bits are many imports, not
/// endlessly many.
constexpr int32_t high_key = 1 << 30;

const char* or_null(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

unsigned seconds(int milliseconds) { return static_cast<unsigned>(std::max(1, (milliseconds + 999) / 1000)); }

/// "1.500" for 1500 milliseconds.
std::string decimal_seconds(int milliseconds) {
  const std::string thousandths = std::to_string(milliseconds % 1000);
  const std::string zeros(3 - thousandths.size(), '0');
  return concatenated({std::to_string(milliseconds / 1000), ".", zeros, thousandths});
}

unsigned port_of(const std::string& text) {
  unsigned port = 0;
  std::from_chars(text.data(), text.data() + text.size(), port);
  return port;
}

void set_tls(MYSQL* session, const ServerSettings& settings, std::string_view tls) {
  my_bool on = 1;
  my_bool off = 0;
  mysql_optionsv(session, MYSQL_OPT_SSL_VERIFY_SERVER_CERT, tls == "verify" ? &on : &off);
  // A socket is this machine's own: there is nobody to keep out.
  if (tls == "disable" || !settings.socket.empty()) return;
  if (!settings.tls_ca.empty()) mysql_optionsv(session, MYSQL_OPT_SSL_CA, settings.tls_ca.c_str());
  // The client library takes this for a wish: with a server that has no encryption it goes on in clear text.
  mysql_optionsv(session, MYSQL_OPT_SSL_ENFORCE, &on);
}

/// A session with its settings, not connected yet. What the URL leaves out comes from the client's option files and
/// variables.
Session prepared(const ServerSettings& settings, std::string_view tls) {
  Session session(mysql_init(nullptr));
  if (!session) throw automation::out_of_memory();
  MYSQL* const client = session.get();
  mysql_optionsv(client, MYSQL_READ_DEFAULT_GROUP, "client");
  const unsigned wait = seconds(settings.timeout);
  mysql_optionsv(client, MYSQL_OPT_CONNECT_TIMEOUT, &wait);
  // A server that vanished without a word is noticed a while after its own limit ran out.
  const unsigned silence = settings.statement_timeout == 0 ? 0 : seconds(settings.statement_timeout) + 30;
  mysql_optionsv(client, MYSQL_OPT_READ_TIMEOUT, &silence);
  mysql_optionsv(client, MYSQL_OPT_WRITE_TIMEOUT, &silence);
  mysql_optionsv(client, MYSQL_SET_CHARSET_NAME, "utf8mb4");
  const my_bool off = 0;
  mysql_optionsv(client, MYSQL_OPT_RECONNECT, &off);
  const unsigned no_files = 0;
  mysql_optionsv(client, MYSQL_OPT_LOCAL_INFILE, &no_files);
  set_tls(client, settings, tls);
  return session;
}

bool connects(MYSQL* client, const ServerSettings& settings) {
  const ServerAddress& address = settings.address;
  return mysql_real_connect(client, or_null(address.host), or_null(address.user), or_null(address.password),
                            address.database.c_str(), port_of(address.port), or_null(settings.socket), 0) != nullptr;
}

Session opened(const ServerSettings& settings) {
  Session session = prepared(settings, settings.tls);
  if (!connects(session.get(), settings)) {
    // The two may have no version of the encryption in common: what is only preferred is then done without.
    const bool may_go_on = settings.tls == "prefer" && mysql_errno(session.get()) == CR_SSL_CONNECTION_ERROR;
    if (!may_go_on) throw connection_failure(session.get());
    session = prepared(settings, "disable");
    if (!connects(session.get(), settings)) throw connection_failure(session.get());
  }
  if (settings.must_encrypt() && !mysql_get_ssl_cipher(session.get())) throw not_encrypted("mariadb", settings.tls);
  return session;
}

}  // namespace

MariadbConnection::MariadbConnection(const ServerSettings& settings)
    : ServerConnection(dialect(), settings.read_only ? Access::read_only : Access::read_write),
      session_(opened(settings)) {
  run("SET NAMES utf8mb4 COLLATE utf8mb4_nopad_bin");
  // The modes against dates of zero are not among them: they cost a fifth of every search, and the table's own check
  // does the same.
  run("SET SESSION sql_mode='NO_BACKSLASH_ESCAPES,ANSI_QUOTES,PIPES_AS_CONCAT,STRICT_ALL_TABLES,"
      "ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION'");
  run("SET SESSION autocommit=1");
  run("SET SESSION TRANSACTION ISOLATION LEVEL READ COMMITTED");
  run("SET SESSION TRANSACTION READ ONLY");
  run(concatenated({"SET SESSION innodb_lock_wait_timeout=", std::to_string(seconds(settings.timeout))}));
  run(concatenated({"SET SESSION lock_wait_timeout=", std::to_string(seconds(settings.timeout))}));
  // Faster for statements like ours, or not every server's; without the first, large joins sort their rows in pieces.
  prefer("SET SESSION sort_buffer_size=268435456");
  prefer(concatenated({"SET SESSION max_statement_time=", decimal_seconds(settings.statement_timeout)}));
}

/// The server hears nothing of this: it goes on speaking with the process that the session belongs to.
void MariadbConnection::leave() noexcept {
  close(mysql_get_socket(session_.get()));
  static_cast<void>(session_.release());
}

Result MariadbConnection::answer(std::string_view statement) {
  if (statement.find_first_not_of(" \t\r\n") == std::string_view::npos)
    throw refused_statement("mariadb", "is empty", statement);
  MYSQL* const client = session_.get();
  Result result;
  if (mysql_real_query(client, statement.data(), static_cast<unsigned long>(statement.size())) == 0)
    result.reset(mysql_store_result(client));
  if (mysql_errno(client) == 0) return result;
  const ServerError failure = last_failure(client, statement);
  transaction_taken_ = transaction_taken_ || took_the_transaction(mysql_errno(client));
  alive_ = alive_ && failure.refusal() != Refusal::connection;
  throw failure;
}

int64_t MariadbConnection::run(std::string_view statement) {
  // A statement with an answer may have called what changes something.
  const Result result = answer(statement);
  return result ? 1 : static_cast<int64_t>(mysql_affected_rows(session_.get()));
}

void MariadbConnection::start() {
  transaction_taken_ = false;
  ServerConnection::start();
}

ServerRows MariadbConnection::rows(std::string_view statement) {
  Result result = answer(statement);
  if (!result) throw refused_statement("mariadb", concatenated({"returns no rows: ", statement}), statement);
  ServerRows answer;
  answer.headers = headers_of(result.get());
  answer.source = std::make_unique<Rows>(std::move(result));
  return answer;
}

/// Tables that are made outside transactions take no lock: what another program adds meanwhile is passed over.
std::string MariadbConnection::wheels_insertion() const {
  std::string statement = translate(wheels_statement());
  return statement.insert(statement.find(' '), " IGNORE");
}

/// Such a statement ends a transaction before it begins, so the session itself must let it through.
void MariadbConnection::define(std::string_view statement) {
  run("SET SESSION TRANSACTION READ WRITE");
  try {
    run(statement);
  } catch (...) {
    if (is_alive()) run("SET SESSION TRANSACTION READ ONLY");
    throw;
  }
  run("SET SESSION TRANSACTION READ ONLY");
}

/// A check ends a transaction. One that the user has no right to is none: who reads the table is told so.
std::vector<std::string> MariadbConnection::damage_of(std::string_view table) {
  std::vector<std::string> findings;
  try {
    ServerRows answer = rows(concatenated({"CHECK TABLE ", automation::lower_case(table)}));
    const auto found = automation::make<records::StaticRecordSet>(std::move(answer.headers), std::move(answer.source));
    const records::Column kind = found->column("Msg_type");
    const records::Column text = found->column("Msg_text");
    for (; !found->at_end(); found->move_next())
      if (found->text(kind) != "note" && found->text(text) != "OK")
        findings.push_back(concatenated({table, ": ", found->text(text)}));
  } catch (const ServerError& error) {
    if (error.refusal() != Refusal::permission) throw;
  }
  return findings;
}

/// The counter of keys cannot be set back while the old rows may return; the new rows' keys can.
void MariadbConnection::before_emptied_is_kept() {
  const int32_t lowest = single_number("SELECT min(id) FROM storico");
  if (lowest < high_key) return;
  run(concatenated({"UPDATE storico SET id=id-", std::to_string(lowest - 1), " ORDER BY id"}));
}

/// Sets the next key behind the largest there is, whatever number is given.
void MariadbConnection::after_emptied_was_kept() { define("ALTER TABLE storico AUTO_INCREMENT=1"); }

}  // namespace dorvane::mariadb
