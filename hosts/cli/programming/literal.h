#pragma once

#include <string_view>

#include "automation/variant.h"

namespace vestara::host {

/// The value that a word of a command line stands for, by the way it is written:
///   12                     Long; beyond 32 bits a Double
///   1.5  -2e3              Double; numbers are written as in JSON, so that 05 stays a text
///   true  false            Boolean, in any case, like the four words below
///   null  empty  missing   these values; missing leaves an optional argument out
///   nothing                no object
///   2005-02-09             Date, with a time of day after a blank or T
///   "text"  'text'         the text between the quotes, where a doubled quote is one
/// Anything else is a text as it stands.
automation::Variant literal(std::string_view word);

}  // namespace vestara::host
