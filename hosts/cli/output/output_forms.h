#pragma once

#include <string>

#include "hosts/cli/output/output.h"

// One function for each form; write_report chooses.

namespace vestara::host {

std::string report_as_table(const Report& report, const OutputStyle& style);
std::string report_as_markdown(const Report& report);
std::string report_as_csv(const Report& report);
std::string report_as_json(const Report& report);
std::string report_as_json_lines(const Report& report);

/// For programs: "" for an absent value, numbers with all their digits.
std::string cell_text(const Cell& cell);
/// For people: the word of an absent value, six digits at least of numbers with a fraction, no exponent.
std::string readable_text(const Cell& cell);
inline bool is_number(const Cell& cell) {
  return std::holds_alternative<int64_t>(cell) || std::holds_alternative<double>(cell);
}
/// "held_before" as "held before".
std::string spaced(std::string name);

}  // namespace vestara::host
