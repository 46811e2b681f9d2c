#include "dorvane/server_error.h"

#include <array>

#include "automation/text.h"

namespace dorvane {
namespace {

struct Advice {
  int32_t number;
  std::string_view text;
};

/// By refusal.
constexpr std::array<Advice, 8> advices{{
    {automation::unspecified_failure, ""},
    {70, "; ask for the right to do this, or open with a user who has it"},
    {automation::unspecified_failure, "; CreateSchema makes the tables that are missing"},
    {70, "; another program is changing the archive, try again when it is done"},
    {automation::unspecified_failure, "; statement_timeout in the URL says how long one may take"},
    {61, "; free some space on the server, nothing was changed"},
    {automation::unspecified_failure, "; what was not kept is lost, open the archive again"},
    {automation::unspecified_failure, "; look whether the server runs, and at user, password and database"},
}};

const Advice& advice_for(Refusal refusal) { return advices[static_cast<size_t>(refusal)]; }

/// One line of it, without the line feeds that servers put behind and between.
std::string one_line(std::string_view reason) {
  std::string line;
  for (const char c : reason) line += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
  const auto end = line.find_last_not_of(' ');
  return line.substr(0, end == std::string::npos ? 0 : end + 1);
}

std::string described(Refusal refusal, std::string_view engine, std::string_view reason, std::string_view statement) {
  constexpr size_t shown = 160;
  std::string text = automation::concatenated({engine, ": ", one_line(reason), advice_for(refusal).text});
  if (statement.empty()) return text;
  text.append("; in: ").append(statement.substr(0, shown));
  if (statement.size() > shown) text += "…";
  return text;
}

}  // namespace

ServerError::ServerError(Refusal refusal, std::string_view engine, std::string_view reason, std::string_view statement)
    : RunTimeError(advice_for(refusal).number, described(refusal, engine, reason, statement)), refusal_(refusal) {}

automation::RunTimeError not_encrypted(std::string_view engine, std::string_view tls) {
  return {automation::unspecified_failure,
          automation::concatenated({engine, ": the connection is not encrypted, and tls=", tls,
                                    " takes no other; the server has no encryption, or it was reached over a socket "
                                    "of this machine"})};
}

}  // namespace dorvane
