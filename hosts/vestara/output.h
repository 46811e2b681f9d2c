#pragma once

#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vestara::host {

/// A value of a result: absent, a whole number or a text.
using Cell = std::variant<std::monostate, int64_t, std::string>;

struct Fact {
  std::string name;  ///< words joined by "_"; tables show blanks instead
  Cell value;
};

/// What a command has to say: single facts, then perhaps a listing.
struct Report {
  std::vector<Fact> facts;
  std::string listing;   ///< "draws": the listing's name; empty when there is none
  std::string row_kind;  ///< "draw": what one of its rows is
  std::vector<std::string> columns;
  std::vector<std::vector<Cell>> rows;
};

enum class OutputFormat { table, csv, json, jsonl, markdown };

struct OutputStyle {
  OutputFormat format = OutputFormat::table;
  bool colour = false;                                     ///< headings of tables
  size_t table_rows = std::numeric_limits<size_t>::max();  ///< rows of the listing that a table shows
};

/// Writes a result:
///   table     facts line by line, then the listing; numbers right-aligned
///   csv       a block name,value of the facts, an empty line, the listing with a header
///   json      one object: the facts, and the listing as an array of objects under its name
///   jsonl     one object a line: first the facts with "kind": "summary", then each row with its kind
///   markdown  two tables
void write_report(std::ostream& out, const Report& report, const OutputStyle& style);

}  // namespace vestara::host
