#include "dorvane/connector.h"

#include <exception>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "automation/error.h"
#include "automation/file.h"
#include "dorvane/connection.h"

namespace dorvane {

using automation::Ref;
using automation::RunTimeError;

DbConnector::DbConnector() = default;
DbConnector::~DbConnector() = default;

namespace {

/// The standard library has no words for its shortage.
std::string reason_of(const std::exception& error) {
  return dynamic_cast<const std::bad_alloc*>(&error) ? "there is not enough memory" : error.what();
}

}  // namespace

/// The one trap of the connector: a failure becomes a result, its reason LastError.
template <class Result, class Body>
Result DbConnector::guarded(Result on_failure, Body&& body) {
  try {
    if (!connection_) throw RunTimeError(automation::unspecified_failure, "no archive is open");
    return body();
  } catch (const std::exception& error) {
    last_error_ = reason_of(error);
    return on_failure;
  }
}

bool DbConnector::Open(const std::string& url) {
  Close();
  last_error_.clear();
  try {
    connection_ = open_connection(parse_url(url.empty() ? automation::environment_variable("VESTARA_DB") : url));
    return true;
  } catch (const std::exception& error) {
    last_error_ = reason_of(error);
    return false;
  }
}

void DbConnector::Close() { connection_ = nullptr; }
std::string DbConnector::LastError() const { return last_error_; }

bool DbConnector::CreateSchema() {
  return guarded(false, [&] {
    connection_->create_schema();
    return true;
  });
}

std::string DbConnector::CheckSchema() {
  return guarded(std::string("the archive cannot be checked"), [&] {
    std::string lines;
    for (const std::string& line : connection_->check_schema()) lines.append(lines.empty() ? "" : "\n").append(line);
    return lines;
  });
}

std::vector<std::string> DbConnector::CheckFile() {
  auto findings =
      guarded(std::optional<std::vector<std::string>>(), [&] { return std::optional(connection_->check_file()); });
  if (!findings) return {"the archive's file cannot be checked: " + last_error_};
  return std::move(*findings);
}

int32_t DbConnector::ConnectionState() { return connection_ && connection_->is_alive() ? vestara::connection_open : 0; }

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
    connection_->execute(statement);
    return true;
  });
}

int32_t DbConnector::GetMaxId(std::string_view table, std::string_view column) {
  return guarded(0, [&] { return connection_->max_id(table, column); });
}

Ref<vestara::RecordSet> DbConnector::GetRecordset(std::string_view statement) {
  return guarded(Ref<vestara::RecordSet>(), [&] { return connection_->query(statement); });
}

// These three have no result that could carry a failure: they raise it, after LastError has it.

namespace {

template <class Body>
void raising(std::string& last_error, const std::unique_ptr<Connection>& connection, Body&& body) {
  try {
    if (!connection) throw RunTimeError(automation::unspecified_failure, "no archive is open");
    body(*connection);
  } catch (const RunTimeError& error) {
    last_error = error.description();
    throw;
  }
}

}  // namespace

void DbConnector::BeginTrans() {
  raising(last_error_, connection_, [](Connection& connection) { connection.begin(); });
}
void DbConnector::CommitTrans() {
  raising(last_error_, connection_, [](Connection& connection) { connection.commit(); });
}
void DbConnector::RollbackTrans() {
  raising(last_error_, connection_, [](Connection& connection) { connection.rollback(); });
}

}  // namespace dorvane
