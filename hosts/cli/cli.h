#pragma once

#include <istream>
#include <ostream>

namespace vestara::host {

/// The whole program: answers of a person from `in`, results to `out`, everything else to `err`. Returns the exit code;
/// nothing is thrown.
int run(int argc, const char* const* argv, std::istream& in, std::ostream& out, std::ostream& err);

}  // namespace vestara::host
