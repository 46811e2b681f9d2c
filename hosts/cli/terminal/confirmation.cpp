#include "hosts/cli/terminal/confirmation.h"

#include <unistd.h>

#include <iostream>

#include "automation/text.h"
#include "automation/text/shown_text.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/terminal/terminal.h"

namespace vestara::host {
namespace {

bool says_yes(std::istream& in) {
  std::string answer;
  std::getline(in, answer);
  const std::string word = automation::lower_case(automation::trim(answer));
  return word == "y" || word == "yes";
}

bool can_ask(const std::ostream& err) { return is_terminal(err) && ::isatty(STDIN_FILENO) == 1; }

void ask(const std::string& change, std::ostream& err) {
  err << "vestara: " << automation::shown_text(change) << "? [y/N] " << std::flush;
  if (!says_yes(std::cin)) throw Failure(ExitCode::usage, "nothing was changed; y or yes does it");
}

}  // namespace

void require_consent(Consent consent, const std::string& change, std::ostream& err) {
  if (consent == Consent::given) return;
  if (!can_ask(err))
    throw Failure(ExitCode::usage, "there is no terminal to ask whether to " + change +
                                       ", nothing was changed; --yes does it without asking");
  ask(change, err);
}

void ask_at_terminal(Consent consent, const std::string& change, std::ostream& err) {
  if (consent == Consent::ask && can_ask(err)) ask(change, err);
}

}  // namespace vestara::host
