#include "hosts/cli/commands/saved_searches.h"

#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"

namespace vestara::host {

void add_search_id(CLI::App& app, std::string& place) {
  argument(app, "ID", place, "as in vestara saved list")->required();
}

int32_t search_id(const std::string& text) { return whole_value("ID", text, 0, largest_id); }

StoredSearch search_with_id(const ArchiveSession& session, int32_t id) {
  const auto searches = stored_searches(session, id);
  if (!searches.empty()) return searches.front();
  throw Failure(FailureKind::nothing_found,
                "no search is saved as " + std::to_string(id) + "; vestara saved list shows those that are");
}

ExitCode report_done(const Context& context, const std::string& result, int32_t id) {
  Report report;
  report.facts = {{"result", result}, {"id", int64_t{id}}};
  context.show(report);
  return ExitCode::ok;
}

}  // namespace vestara::host
