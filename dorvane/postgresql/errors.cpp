#include "dorvane/postgresql/errors.h"

#include <string>

namespace dorvane::postgresql {
namespace {

constexpr std::string_view engine = "postgresql";

std::string_view text(const char* field) { return field ? field : ""; }

}  // namespace

Refusal refusal_of(std::string_view state) {
  const std::string_view kind = state.substr(0, 2);
  if (state == "42P01" || state == "42703" || state == "3F000") return Refusal::missing;
  if (state == "42501" || state == "25006" || kind == "28") return Refusal::permission;
  if (state == "55P03" || kind == "40") return Refusal::busy;
  if (state == "57014") return Refusal::too_long;
  if (state == "53100" || state == "53200") return Refusal::full;
  if (kind == "08" || state == "57P01" || state == "57P02" || state == "57P03") return Refusal::connection;
  return Refusal::statement;
}

ServerError failure(PGconn* session, const PGresult* result, std::string_view statement) {
  const bool lost = PQstatus(session) == CONNECTION_BAD;
  const std::string_view reason = text(PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY));
  const std::string_view state = text(PQresultErrorField(result, PG_DIAG_SQLSTATE));
  return {lost ? Refusal::connection : refusal_of(state), engine,
          reason.empty() ? std::string_view(PQerrorMessage(session)) : reason, statement};
}

ServerError connection_failure(PGconn* session) {
  return {Refusal::no_session, engine, session ? PQerrorMessage(session) : "out of memory", {}};
}

}  // namespace dorvane::postgresql
