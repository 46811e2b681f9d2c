#pragma once

#include <string>

#include "hosts/vestara/output.h"

// One function for each form; write_report chooses.

namespace vestara::host {

std::string report_as_table(const Report& report, const OutputStyle& style);
std::string report_as_markdown(const Report& report);
std::string report_as_csv(const Report& report);
std::string report_as_json(const Report& report);
std::string report_as_json_lines(const Report& report);

/// "" for an absent value.
std::string cell_text(const Cell& cell);
/// "held_before" as "held before".
std::string spaced(std::string name);

}  // namespace vestara::host
