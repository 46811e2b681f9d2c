#include "dorvane/connector.h"

#include <exception>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "automation/error.h"
#include "automation/file.h"
#include "automation/report.h"
#include "dorvane/connection.h"

namespace dorvane {

using automation::Ref;
using automation::RunTimeError;

namespace {

constexpr const char* nothing_open = "no archive is open";
constexpr const char* opened_elsewhere =
    "the archive was opened by the process that this one was forked from; open it again here";

RunTimeError changes_are_open() {
  return {automation::unspecified_failure,
          "a transaction with changes is open: CommitTrans keeps them, RollbackTrans takes them back"};
}

RunTimeError changes_were_lost() {
  return {automation::unspecified_failure,
          "the archive was closed inside a transaction and its changes were taken back; CommitTrans keeps them"};
}

/// The connections of other processes, as long as this one lasts: to destroy one would speak in their name.
void put_aside(Connection* connection) noexcept {
  static std::vector<Connection*> aside;
  try {
    aside.push_back(connection);
  } catch (const std::bad_alloc&) {
    return;  // nobody asks for it again
  }
}

}  // namespace

DbConnector::DbConnector() : closed_because_(nothing_open), last_error_(std::make_shared<std::string>()) {}
DbConnector::~DbConnector() { close_at("DbConnector.Class_Terminate"); }

void DbConnector::leave_elsewhere() noexcept {
  if (!connection_ || home_.is_here()) return;
  connection_->leave();
  put_aside(connection_.release());
  closed_because_ = opened_elsewhere;
}

Connection& DbConnector::connection() {
  leave_elsewhere();
  if (!connection_) throw RunTimeError(automation::unspecified_failure, closed_because_);
  return *connection_;
}

/// Runs a call; what it raises is an error of ours, and LastError has it.
template <class Body>
auto DbConnector::noted(Body&& body) {
  try {
    return body();
  } catch (const RunTimeError& error) {
    *last_error_ = error.description();
    throw;
  } catch (const std::bad_alloc&) {
    // The standard library has no words for its shortage.
    *last_error_ = "there is not enough memory";
    throw RunTimeError(automation::out_of_memory().number(), *last_error_);
  } catch (const std::exception& error) {
    *last_error_ = error.what();
    throw RunTimeError(automation::unspecified_failure, error.what());
  }
}

/// The one trap of the connector: a failure becomes a result, its reason LastError.
template <class Result, class Body>
Result DbConnector::guarded(Result on_failure, Body&& body) {
  try {
    return noted(std::forward<Body>(body));
  } catch (const RunTimeError&) {
    return on_failure;
  }
}

/// True when changes went with the connection, which is then in the error log under `place`.
bool DbConnector::close_at(const char* place) noexcept {
  leave_elsewhere();
  closed_because_ = nothing_open;
  const bool loses = connection_ && connection_->has_changes();
  connection_ = nullptr;
  try {
    if (loses) automation::report(place, changes_were_lost());
  } catch (const std::bad_alloc&) {
    return loses;  // no memory for the entry
  }
  return loses;
}

bool DbConnector::Open(const std::string& url) {
  const std::string loss = close_at("DbConnector.Open") ? changes_were_lost().description() : "";
  *last_error_ = loss;
  const bool is_open = guarded(false, [&] {
    connection_ = open_connection(parse_url(url.empty() ? automation::environment_variable("VESTARA_DB") : url));
    home_ = HomeProcess();
    return true;
  });
  if (!is_open && !loss.empty()) last_error_->append("; ").append(loss);
  return is_open;
}

void DbConnector::Close() {
  if (close_at("DbConnector.Close")) *last_error_ = changes_were_lost().description();
}

std::string DbConnector::LastError() const { return *last_error_; }

bool DbConnector::CreateSchema() {
  return guarded(false, [&] {
    connection().create_schema();
    return true;
  });
}

std::string DbConnector::CheckSchema() {
  return guarded(std::string("the archive cannot be checked"), [&] {
    std::string lines;
    for (const std::string& line : connection().check_schema()) lines.append(lines.empty() ? "" : "\n").append(line);
    return lines;
  });
}

std::vector<std::string> DbConnector::CheckFile() {
  auto findings =
      guarded(std::optional<std::vector<std::string>>(), [&] { return std::optional(connection().check_file()); });
  if (!findings) return {"the archive's file cannot be checked: " + *last_error_};
  return std::move(*findings);
}

int32_t DbConnector::ConnectionState() {
  const bool is_open = connection_ && home_.is_here() && connection_->is_alive();
  return is_open ? vestara::connection_open : 0;
}

bool DbConnector::OpenRecordset(Ref<vestara::RecordSet>& rows, std::string_view statement) {
  rows = GetRecordset(statement);
  return static_cast<bool>(rows);
}

void DbConnector::CloseRecordset(Ref<vestara::RecordSet>& rows) {
  if (rows) rows->close();
  rows = nullptr;
}

bool DbConnector::ExecuteSql(std::string_view statement) {
  return guarded(false, [&] {
    connection().execute(statement);
    return true;
  });
}

bool DbConnector::InsertRows(const vestara::NewRows& rows) {
  return guarded(false, [&] {
    connection().insert(rows);
    return true;
  });
}

int32_t DbConnector::GetMaxId(std::string_view table, std::string_view column) {
  return guarded(0, [&] { return connection().max_id(table, column); });
}

Ref<vestara::RecordSet> DbConnector::GetRecordset(std::string_view statement) {
  return guarded(Ref<vestara::RecordSet>(), [&]() -> Ref<vestara::RecordSet> {
    const Ref<StaticRecordSet> rows = connection().query(statement);
    rows->note_failures_in(last_error_);
    return rows;
  });
}

// These three have no result that could carry a failure: they raise it, after LastError has it.

void DbConnector::BeginTrans() {
  noted([&] {
    if (connection().has_changes()) throw changes_are_open();
    connection().begin();
  });
}

void DbConnector::CommitTrans() {
  noted([&] { connection().commit(); });
}

void DbConnector::RollbackTrans() {
  noted([&] { connection().rollback(); });
}

}  // namespace dorvane
