#include "bench/bare_servers.h"

#include <cstring>

#include "dorvane/mariadb/dialect.h"
#include "dorvane/mariadb/handles.h"
#include "dorvane/postgresql/dialect.h"
#include "dorvane/postgresql/handles.h"
#include "dorvane/server_address.h"

namespace bench {
namespace {

class BarePostgresql final : public BareClient {
 public:
  explicit BarePostgresql(const std::string& url) {
    const auto settings = dorvane::server_settings(dorvane::parse_url(url));
    const std::string parameters =
        "host=" + settings.socket + " user=" + settings.address.user + " dbname=" + settings.address.database;
    session_.reset(PQconnectdb(parameters.c_str()));
    if (PQstatus(session_.get()) != CONNECTION_OK) stop(PQerrorMessage(session_.get()));
    run("SET jit=off");
    run("SET work_mem='64MB'");
  }

  void run(const std::string& statement) override { answer(statement, PGRES_COMMAND_OK); }

  void read(const std::string& statement) override {
    const auto result = answer(dorvane::postgresql::translate_reading(statement), PGRES_TUPLES_OK);
    const int columns = PQnfields(result.get());
    for (int row = 0; row < PQntuples(result.get()); ++row)
      for (int i = 0; i < columns; ++i) seen_ += static_cast<unsigned char>(*PQgetvalue(result.get(), row, i));
  }

  void bulk_load(const std::vector<std::string>& tuples) override {
    answer("COPY storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5) FROM STDIN WITH (FORMAT csv)",
           PGRES_COPY_IN);
    for (const std::string& tuple : tuples) {
      const std::string line = csv_line(tuple);
      if (PQputCopyData(session_.get(), line.data(), static_cast<int>(line.size())) != 1)
        stop(PQerrorMessage(session_.get()));
    }
    if (PQputCopyEnd(session_.get(), nullptr) != 1) stop(PQerrorMessage(session_.get()));
    while (const dorvane::postgresql::Result result{PQgetResult(session_.get())})
      if (PQresultStatus(result.get()) != PGRES_COMMAND_OK) stop(PQerrorMessage(session_.get()));
  }

  void analyze() override { run("VACUUM ANALYZE storico"); }

 private:
  dorvane::postgresql::Result answer(const std::string& statement, ExecStatusType expected) {
    dorvane::postgresql::Result result(PQexec(session_.get(), statement.c_str()));
    if (PQresultStatus(result.get()) != expected) stop(PQerrorMessage(session_.get()));
    return result;
  }

  dorvane::postgresql::Session session_;
  size_t seen_ = 0;
};

class BareMariadb final : public BareClient {
 public:
  explicit BareMariadb(const std::string& url) : session_(mysql_init(nullptr)) {
    const auto settings = dorvane::server_settings(dorvane::parse_url(url));
    const unsigned files = 1;
    mysql_optionsv(session_.get(), MYSQL_OPT_LOCAL_INFILE, &files);
    if (!mysql_real_connect(session_.get(), nullptr, settings.address.user.c_str(), nullptr,
                            settings.address.database.c_str(), 0, settings.socket.c_str(), 0))
      stop(mysql_error(session_.get()));
    run("SET NAMES utf8mb4 COLLATE utf8mb4_nopad_bin");
    run("SET SESSION TRANSACTION ISOLATION LEVEL READ COMMITTED");
    run("SET SESSION sort_buffer_size=268435456");
  }

  void run(const std::string& statement) override {
    if (mysql_real_query(session_.get(), statement.data(), statement.size()) != 0) stop(mysql_error(session_.get()));
  }

  void read(const std::string& statement) override {
    run(dorvane::mariadb::translate(statement));
    const dorvane::mariadb::Result result(mysql_store_result(session_.get()));
    if (!result) stop(mysql_error(session_.get()));
    const unsigned columns = mysql_num_fields(result.get());
    while (MYSQL_ROW const row = mysql_fetch_row(result.get()))
      for (unsigned i = 0; i < columns; ++i) seen_ += row[i] ? static_cast<unsigned char>(*row[i]) : 0;
  }

  void bulk_load(const std::vector<std::string>& tuples) override {
    const ArchiveFile file("load");
    std::FILE* const text = std::fopen(file.path().c_str(), "w");
    if (!text) stop("cannot write " + file.path());
    for (const std::string& tuple : tuples) std::fputs(csv_line(tuple).c_str(), text);
    std::fclose(text);
    run("LOAD DATA LOCAL INFILE '" + file.path() +
        "' INTO TABLE storico FIELDS TERMINATED BY ',' (concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)");
  }

  void analyze() override {
    run("ANALYZE TABLE storico");
    const dorvane::mariadb::Result report(mysql_store_result(session_.get()));
  }

 private:
  dorvane::mariadb::Session session_;
  size_t seen_ = 0;
};

}  // namespace

std::string csv_line(const std::string& tuple) {
  std::string line;
  for (const char c : tuple)
    if (std::strchr("()'", c) == nullptr) line += c;
  return line + "\n";
}

std::unique_ptr<BareClient> bare_postgresql(const std::string& url) { return std::make_unique<BarePostgresql>(url); }
std::unique_ptr<BareClient> bare_mariadb(const std::string& url) { return std::make_unique<BareMariadb>(url); }

}  // namespace bench
