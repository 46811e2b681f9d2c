#include "dorvane/server_error.h"

#include <utility>

#include "automation/text.h"
#include "dorvane/statement.h"

namespace dorvane {

using automation::RunTimeError;

namespace {

RunTimeError database_failure(std::string text) {
  return automation::failure(automation::FailureKind::database, std::move(text));
}

/// One line of it, without the line feeds that servers put behind and between.
std::string one_line(std::string_view reason) {
  std::string line;
  for (const char c : reason) line += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
  const auto end = line.find_last_not_of(' ');
  return line.substr(0, end == std::string::npos ? 0 : end + 1);
}

/// The platform's error for a refusal, with what to do about it behind the reason.
RunTimeError described(Refusal refusal, std::string_view engine, std::string_view reason, std::string_view statement) {
  const auto told = [&](std::string_view advice) {
    return automation::concatenated({engine, ": ", one_line(reason), advice, in_statement(statement)});
  };
  switch (refusal) {
    case Refusal::statement:
      return database_failure(told(""));
    case Refusal::permission:
      return automation::permission_denied(told("; ask for the right to do this, or open with a user who has it"));
    case Refusal::missing:
      return database_failure(told("; CreateSchema makes the tables that are missing"));
    case Refusal::busy:
      return automation::permission_denied(
          told("; another program is changing the archive, try again when it is done"));
    case Refusal::too_long:
      return database_failure(told("; statement_timeout in the URL says how long one may take"));
    case Refusal::full:
      return automation::disk_full(told("; free some space on the server, nothing was changed"));
    case Refusal::connection:
      return database_failure(told("; what was not kept is lost, open the archive again"));
    case Refusal::no_session:
      return database_failure(told("; look whether the server runs, and at user, password and database"));
  }
  return database_failure(told(""));
}

}  // namespace

ServerError::ServerError(Refusal refusal, std::string_view engine, std::string_view reason, std::string_view statement)
    : RunTimeError(described(refusal, engine, reason, statement)
                       .with_context({std::string(engine), std::string(statement), refusal})) {}

RunTimeError not_encrypted(std::string_view engine, std::string_view tls) {
  return database_failure(
      automation::concatenated({engine, ": the connection is not encrypted, and tls=", tls,
                                " takes no other; the server has no encryption, or it was reached over a socket "
                                "of this machine"}));
}

}  // namespace dorvane
