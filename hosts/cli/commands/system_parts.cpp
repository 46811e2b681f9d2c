#include "hosts/cli/commands/system_parts.h"

#include <limits>

#include "hosts/cli/archive/stored_systems.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/output/system_output.h"
#include "vestara/foundation/combination_lines.h"
#include "vestara/foundation/message_text.h"
#include "vestara/systems/start_numbers.h"

namespace vestara::host {

void add_system_id(CLI::App& app, std::string& place) {
  argument(app, "ID", place, "as in vestara system list")->required();
}

int32_t system_id(const std::string& text) { return whole_value("ID", text, 1, largest_id); }

std::string saved_system_in_words(const ArchiveSession& session, int32_t id) {
  system_with_id(session, id);
  return "the saved system " + std::to_string(id) + " with its " +
         counted(stored_combinations(session, id).count, "combination");
}

int16_t small_value(const std::string& option, const std::string& text, int32_t least) {
  if (text.empty()) return 0;
  return static_cast<int16_t>(whole_value(option, text, least, std::numeric_limits<int16_t>::max()));
}

void add_combination_output(CLI::App& app, std::string& place) {
  value_option(app, "--output", place, "FILE", "a combination a line into a file, - for standard output");
}

void list_combinations(Report& report, std::string_view combinations) {
  report.listing = "combinations";
  report.row_kind = "combination";
  report.columns = {"combination"};
  for (const std::string_view line : combination_lines(combinations)) report.rows.push_back({std::string(line)});
}

ExitCode no_combinations(const std::string& name, const Context& context) {
  context.remark(name + " holds no combinations");
  return ExitCode::nothing_found;
}

void show_numbers(Report report, const std::string& numbers, const Context& context) {
  report.facts.push_back({"count", static_cast<int64_t>(length_of(numbers))});
  report.facts.push_back({"numbers", numbers});
  context.show(report);
}

}  // namespace vestara::host
