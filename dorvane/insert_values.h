#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dorvane/tokens.h"
#include "vestara/foundation/connector.h"

namespace dorvane {

/// One literal of a VALUES list: a whole number, a text, or NULL.
using Literal = vestara::RowValue;

/// An INSERT … VALUES whose tuples hold nothing but plain literals.
struct InsertValues {
  std::string_view head;          ///< up to and including VALUES
  size_t columns = 0;             ///< literals in every tuple
  std::vector<Literal> literals;  ///< their texts point into the statement

  size_t rows() const { return columns == 0 ? 0 : literals.size() / columns; }
};

/// Recognises such a statement, so that its literals can be bound to a prepared one. False, whatever is in `result`,
/// for everything else: another statement, an expression, a mark or backslash inside a text, uneven tuples, a number
/// beyond 18 digits, anything after the last tuple. The text then goes to the engine as it is.
bool recognise_insert(std::string_view statement, const Syntax& syntax, InsertValues& result);

/// "INSERT INTO table(column,…)VALUES". Raises RunTimeError 5 for a name that is no plain word, for a text with a NUL
/// and for values that make no whole rows.
std::string insert_head(const vestara::NewRows& rows);
/// The whole statement that begins with this head, quotes doubled: for engines that read every other character of a
/// text as it stands.
std::string insert_text(std::string head, std::span<const Literal> values, size_t columns);

}  // namespace dorvane
