#pragma once

#include <compare>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vestara::host {

/// No value. Tables and Markdown may say why in a word ("open"); the other forms have it empty or null.
struct Absent {
  std::string_view word;
  auto operator<=>(const Absent&) const = default;  // NOLINT(modernize-use-nullptr): the check misreads it
};

/// A value of a result: absent, a number or a text.
using Cell = std::variant<Absent, int64_t, double, std::string>;

struct Fact {
  std::string name;  ///< words joined by "_"; tables show blanks instead
  Cell value;
};

/// Facts under a name of their own.
struct FactBlock {
  std::string name;  ///< "statistics"
  std::vector<Fact> facts;
};

/// What a command has to say: single facts, then perhaps a listing, then perhaps further facts.
struct Report {
  std::vector<Fact> facts;
  std::string listing;   ///< "draws": the listing's name; empty when there is none
  std::string row_kind;  ///< "draw": what one of its rows is
  std::vector<std::string> columns;
  std::vector<std::vector<Cell>> rows;
  std::vector<FactBlock> blocks;
};

enum class OutputFormat { table, csv, json, jsonl, markdown };

struct OutputStyle {
  OutputFormat format = OutputFormat::table;
  bool colour = false;                                     ///< headings of tables
  size_t table_rows = std::numeric_limits<size_t>::max();  ///< rows of the listing that a table shows
};

/// Writes a result; parts stand between empty lines where a form has lines:
///   table     facts line by line, then the listing; numbers right-aligned, six digits of those with a fraction
///   csv       a block name,value of the facts, the listing with a header, such a block for each block of facts
///   json      one object: the facts, the listing as an array of objects and each block as an object under its name
///   jsonl     one object a line: first the facts with "kind": "summary", then rows and blocks with their kind
///   markdown  a table of the facts, one of the listing, one for each block
void write_report(std::ostream& out, const Report& report, const OutputStyle& style);

}  // namespace vestara::host
