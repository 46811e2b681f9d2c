#pragma once

#include <istream>
#include <ostream>
#include <string>

namespace vestara::host {

/// Whether a change that cannot be taken back was agreed to on the command line.
enum class Consent : bool { ask, given };

/// Returns when consent was given, or when the person at the terminal answers yes. `change` reads as in "delete the 11
/// rows of 2005-02-09". Failure (usage) when the answer is another one, or when nobody can be asked: `in` and `err`
/// are not both a terminal.
void require_consent(Consent consent, const std::string& change, std::istream& in, std::ostream& err);

/// The same, but where nobody can be asked the command line itself counts as consent.
void ask_at_terminal(Consent consent, const std::string& change, std::istream& in, std::ostream& err);

}  // namespace vestara::host
