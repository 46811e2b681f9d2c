#include "hosts/cli/command.h"
#include "hosts/cli/commands/saved_searches.h"
#include "hosts/cli/commands/search_result.h"
#include "hosts/cli/commands/stored_request.h"

namespace vestara::host {
namespace {

struct SavedRunOptions {
  std::string id;
};

void add_saved_run(CLI::App& app, SavedRunOptions& options) { add_search_id(app, options.id); }

/// Failure (database) when it is none that `vestara search` could make.
SearchRequest request_with_id(const StoredSearch& stored, int32_t id) {
  try {
    return request_of(stored);
  } catch (const Failure& failure) {
    throw Failure(FailureKind::database, "saved search " + std::to_string(id) + " cannot be run: " + failure.what());
  }
}

ExitCode run_saved_run(const SavedRunOptions& options, const Context& context) {
  const int32_t id = search_id(options.id);
  const auto stored = search_with_id(context.open_archive(), id);
  return show_search(request_with_id(stored, id), {}, context);
}

}  // namespace

extern const Command saved_run_command{"run", Group::questions, "Search again", "vestara saved run 1",
                                       bound<add_saved_run, run_saved_run>};

}  // namespace vestara::host
