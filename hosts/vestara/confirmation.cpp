#include "hosts/vestara/confirmation.h"

#include <unistd.h>

#include <iostream>

#include "automation/text.h"
#include "hosts/vestara/failure.h"
#include "hosts/vestara/terminal.h"

namespace vestara::host {
namespace {

bool says_yes(std::istream& in) {
  std::string answer;
  std::getline(in, answer);
  const std::string word = automation::lower_case(automation::trim(answer));
  return word == "y" || word == "yes";
}

}  // namespace

void require_consent(Consent consent, const std::string& change, std::ostream& err) {
  if (consent == Consent::given) return;
  if (!is_terminal(err) || ::isatty(STDIN_FILENO) != 1)
    throw Failure(ExitCode::usage, "there is no terminal to ask whether to " + change +
                                       ", nothing was changed; --yes does it without asking");
  err << "vestara: " << change << "? [y/N] " << std::flush;
  if (!says_yes(std::cin)) throw Failure(ExitCode::usage, "nothing was changed; y or yes does it");
}

}  // namespace vestara::host
