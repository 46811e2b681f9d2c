#pragma once

#include <string>

#include "tests/support/random.h"

namespace attacks {

/// A text of pieces that engines read each in a way of its own: marks, comments, quotes, numbers, functions, halves of
/// statements, bytes of several encodings. "%F" and "%R" stand for files.
std::string attack_text(testing_support::Random& random);

}  // namespace attacks
