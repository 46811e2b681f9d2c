#include "hosts/cli/command.h"
#include "hosts/cli/commands/saved_searches.h"

namespace vestara::host {
namespace {

struct SavedShowOptions {
  std::string id;
};

void add_saved_show(CLI::App& app, SavedShowOptions& options) { add_search_id(app, options.id); }

ExitCode run_saved_show(const SavedShowOptions& options, const Context& context) {
  const int32_t id = search_id(options.id);
  const auto search = search_with_id(context.open_archive(), id);
  const auto names = stored_names();
  const auto values = stored_values(search);
  Report report;
  for (size_t i = 0; i < names.size(); ++i) report.facts.push_back({names[i], values[i]});
  context.show(report);
  return ExitCode::ok;
}

}  // namespace

extern const Command saved_show_command{"show", Group::questions, "Show one of them as it is stored",
                                        "vestara saved show 1", bound<add_saved_show, run_saved_show>};

}  // namespace vestara::host
