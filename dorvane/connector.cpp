#include "dorvane/connector.h"

#include <exception>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "automation/error.h"
#include "automation/report.h"
#include "automation/system/file.h"
#include "automation/text.h"
#include "dorvane/connection.h"
#include "dorvane/failure_note.h"

namespace dorvane {

using automation::failure;
using automation::FailureKind;
using automation::Ref;
using automation::RunTimeError;
using vestara::SchemaGap;

namespace {

constexpr const char* nothing_open = "no archive is open";
constexpr const char* opened_elsewhere =
    "the archive was opened by the process that this one was forked from; open it again here";

RunTimeError changes_are_open() {
  return failure(FailureKind::database,
                 "a transaction with changes is open: CommitTrans keeps them, RollbackTrans takes them back");
}

RunTimeError changes_were_lost() {
  return failure(FailureKind::database,
                 "the archive was closed inside a transaction and its changes were taken back; CommitTrans keeps them");
}

std::string sentence_about(const SchemaGap& gap) {
  using automation::concatenated;
  switch (gap.kind) {
    case SchemaGap::Kind::table:
      return concatenated({"table ", gap.table, " is missing; CreateSchema makes it"});
    case SchemaGap::Kind::column:
      return concatenated({"column ", gap.table, ".", gap.name, " is missing"});
    case SchemaGap::Kind::index:
      return concatenated({"index ", gap.name, " is missing: answers are right but slow; CreateSchema makes it"});
    case SchemaGap::Kind::wheel:
      return concatenated({"wheel ", gap.name, " is missing from ", gap.table, "; CreateSchema adds it"});
  }
  return {};
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

DbConnector::DbConnector() : closed_because_(nothing_open), last_failure_(std::make_shared<FailureNote>()) {}
DbConnector::~DbConnector() { close_at("DbConnector.Class_Terminate"); }

void DbConnector::leave_elsewhere() noexcept {
  if (!connection_ || connection_->is_here()) return;
  connection_->leave();
  put_aside(connection_.release());
  closed_because_ = opened_elsewhere;
}

Connection& DbConnector::connection() {
  leave_elsewhere();
  if (!connection_) throw failure(FailureKind::database, closed_because_);
  return *connection_;
}

/// The one trap of the connector: runs a call, and notes why it failed. True when it did not.
template <class Body>
bool DbConnector::trapped(Body&& body) {
  try {
    body();
    return true;
  } catch (const RunTimeError& error) {
    last_failure_->note(error);
  } catch (const std::bad_alloc&) {
    last_failure_->note_shortage();
  } catch (const std::exception& error) {
    last_failure_->note_unforeseen(error);
  }
  return false;
}

/// For a call whose result carries the failure.
template <class Result, class Body>
Result DbConnector::result_of(Body&& body, Result on_failure) {
  Result result = std::move(on_failure);
  trapped([&] { result = body(); });
  return result;
}

/// For a call that has no result: the failure is raised, after LastError has it.
template <class Body>
void DbConnector::raising(Body&& body) {
  if (!trapped(body)) throw RunTimeError(*last_failure_->error());
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
  const bool loses = close_at("DbConnector.Open");
  last_failure_->clear();
  if (loses) last_failure_->note(changes_were_lost());
  const bool is_open = trapped([&] {
    connection_ = open_connection(parse_url(url.empty() ? automation::environment_variable("VESTARA_DB") : url));
  });
  if (!is_open && loses)
    last_failure_->note(last_failure_->error()->continued("; " + changes_were_lost().description()));
  return is_open;
}

void DbConnector::Close() {
  if (close_at("DbConnector.Close")) last_failure_->note(changes_were_lost());
}

std::string DbConnector::LastError() const { return last_failure_->text(); }
std::shared_ptr<const RunTimeError> DbConnector::LastFailure() const { return last_failure_->error(); }

bool DbConnector::CreateSchema() {
  return trapped([&] { connection().create_schema(); });
}

std::string DbConnector::CheckSchema() {
  const auto sentences = [&] {
    std::string lines;
    for (const SchemaGap& gap : connection().check_schema())
      lines.append(lines.empty() ? "" : "\n").append(sentence_about(gap));
    return lines;
  };
  return result_of(sentences, std::string("the archive cannot be checked"));
}

std::optional<std::vector<SchemaGap>> DbConnector::SchemaGaps() {
  return result_of([&] { return connection().check_schema(); }, std::optional<std::vector<SchemaGap>>());
}

std::vector<std::string> DbConnector::CheckFile() {
  auto findings = result_of([&] { return connection().check_file(); }, std::optional<std::vector<std::string>>());
  if (!findings) return {"the archive's file cannot be checked: " + LastError()};
  return std::move(*findings);
}

int32_t DbConnector::ConnectionState() {
  const bool is_open = connection_ && connection_->is_here() && connection_->is_alive();
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
  return trapped([&] { connection().execute(statement); });
}

bool DbConnector::InsertRows(const vestara::NewRows& rows) {
  return trapped([&] { connection().insert(rows); });
}

int32_t DbConnector::GetMaxId(std::string_view table, std::string_view column) {
  return result_of([&] { return connection().max_id(table, column); }, 0);
}

Ref<vestara::RecordSet> DbConnector::GetRecordset(std::string_view statement) {
  const auto started = [&]() -> Ref<vestara::RecordSet> {
    const Ref<records::StaticRecordSet> rows = connection().query(statement);
    rows->report_failures_to([note = last_failure_](const RunTimeError& error) { note->note(error); });
    return rows;
  };
  return result_of(started, Ref<vestara::RecordSet>());
}

std::optional<vestara::ChangeMark> DbConnector::change_mark() {
  leave_elsewhere();
  if (!connection_) return std::nullopt;
  return result_of([&] { return connection_->change_mark(); }, std::optional<vestara::ChangeMark>());
}

bool DbConnector::hand_over_draws(const vestara::TakeDraw& take) {
  try {
    leave_elsewhere();
    return connection_ && connection_->hand_over_draws(take);
  } catch (const RunTimeError&) {
    return false;  // the record set that is asked for next says why
  }
}

void DbConnector::BeginTrans() {
  raising([&] {
    if (connection().has_changes()) throw changes_are_open();
    connection().begin();
  });
}

void DbConnector::CommitTrans() {
  raising([&] { connection().commit(); });
}

void DbConnector::RollbackTrans() {
  raising([&] { connection().rollback(); });
}

}  // namespace dorvane
