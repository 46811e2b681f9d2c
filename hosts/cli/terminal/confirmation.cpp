#include "hosts/cli/terminal/confirmation.h"

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

bool can_ask(const std::istream& in, const std::ostream& err) { return is_terminal(err) && is_terminal(in); }

void ask(const std::string& change, std::istream& in, std::ostream& err) {
  err << "vestara: " << automation::shown_text(change) << "? [y/N] " << std::flush;
  if (!says_yes(in)) throw Failure(FailureKind::argument, "nothing was changed; y or yes does it");
}

}  // namespace

void require_consent(Consent consent, const std::string& change, std::istream& in, std::ostream& err) {
  if (consent == Consent::given) return;
  if (!can_ask(in, err))
    throw Failure(FailureKind::argument, "there is no terminal to ask whether to " + change +
                                             ", nothing was changed; --yes does it without asking");
  ask(change, in, err);
}

void ask_at_terminal(Consent consent, const std::string& change, std::istream& in, std::ostream& err) {
  if (consent == Consent::ask && can_ask(in, err)) ask(change, in, err);
}

}  // namespace vestara::host
