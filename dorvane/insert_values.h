#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "dorvane/tokens.h"

namespace dorvane {

/// One literal of a VALUES list: a whole number, a text without marks inside, or NULL.
struct Literal {
  enum class Kind : uint8_t { null, whole, text };
  Kind kind = Kind::null;
  int64_t number = 0;
  std::string_view text;  ///< points into the statement
};

/// An INSERT … VALUES whose tuples hold nothing but plain literals.
struct InsertValues {
  std::string_view head;  ///< up to and including VALUES
  size_t columns = 0;     ///< literals in every tuple
  std::vector<Literal> literals;

  size_t rows() const { return columns == 0 ? 0 : literals.size() / columns; }
};

/// Recognises such a statement, so that its literals can be bound to a prepared one. False, whatever is in
/// `result`, for everything else: another statement, an expression, a mark or backslash inside a text, uneven
/// tuples, a number beyond 18 digits, anything behind the last tuple. The text then goes to the engine as it is.
bool recognise_insert(std::string_view statement, const Syntax& syntax, InsertValues& result);

}  // namespace dorvane
