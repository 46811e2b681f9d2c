#include "dorvane/postgresql/reading.h"

#include <initializer_list>
#include <utility>

namespace dorvane::postgresql {
namespace {

bool is_error(const PGresult* result) {
  const auto status = PQresultStatus(result);
  return status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK && status != PGRES_PIPELINE_ABORTED;
}

void run(PGconn* session, const char* statement) { const Result result(PQexec(session, statement)); }

/// The result of the statement at this place, or the first error. Reads up to the end of the pipeline.
Result take_result(PGconn* session, int wanted) {
  Result kept;
  int place = 0;
  for (;;) {
    Result result(PQgetResult(session));
    if (!result) {
      if (PQstatus(session) == CONNECTION_BAD) return kept;
      ++place;
    } else if (PQresultStatus(result.get()) == PGRES_PIPELINE_SYNC) {
      return kept;
    } else if (kept ? !is_error(kept.get()) && is_error(result.get()) : place == wanted || is_error(result.get())) {
      kept = std::move(result);
    }
  }
}

Result in_pipeline(PGconn* session, std::initializer_list<const char*> statements, int wanted) {
  if (PQenterPipelineMode(session) == 0) return nullptr;
  bool sent = true;
  for (const char* statement : statements)
    sent = sent && PQsendQueryParams(session, statement, 0, nullptr, nullptr, nullptr, nullptr, 0) != 0;
  Result result = PQpipelineSync(session) != 0 ? take_result(session, wanted) : nullptr;
  PQexitPipelineMode(session);
  return sent ? std::move(result) : nullptr;
}

}  // namespace

Result read_only_result(PGconn* session, const std::string& statement) {
  if (PQtransactionStatus(session) == PQTRANS_INTRANS)
    return in_pipeline(session,
                       {"SAVEPOINT vestara_reading", "SET LOCAL transaction_read_only=on", statement.c_str(),
                        "ROLLBACK TO vestara_reading", "RELEASE vestara_reading"},
                       2);
  Result result = in_pipeline(session, {"BEGIN READ ONLY", statement.c_str(), "ROLLBACK"}, 1);
  if (PQtransactionStatus(session) == PQTRANS_INERROR) run(session, "ROLLBACK");
  return result;
}

void return_to_transaction(PGconn* session) {
  if (PQtransactionStatus(session) != PQTRANS_INERROR) return;
  run(session, "ROLLBACK TO vestara_reading");
  run(session, "RELEASE vestara_reading");
}

}  // namespace dorvane::postgresql
