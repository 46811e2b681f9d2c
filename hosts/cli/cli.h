#pragma once

#include <ostream>

namespace vestara::host {

/// The whole program: results to `out`, everything else to `err`. Returns the exit code; nothing is thrown.
int run(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

}  // namespace vestara::host
