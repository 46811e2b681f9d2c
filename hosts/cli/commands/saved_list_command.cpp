#include "hosts/cli/archive/stored_searches.h"
#include "hosts/cli/command.h"
#include "vestara/keeping/saved_searches.h"

namespace vestara::host {
namespace {

ExitCode run_saved_list(const Context& context) {
  const auto searches = stored_searches(context.open_archive(), every_search);
  Report report;
  report.listing = "searches";
  report.row_kind = "search";
  report.columns = stored_names();
  for (const StoredSearch& search : searches) report.rows.push_back(stored_values(search));
  context.show(report);
  if (!searches.empty()) return ExitCode::ok;
  context.remark("no search is saved; vestara saved save NUMBERS --name TEXT saves one");
  return ExitCode::nothing_found;
}

}  // namespace

extern const Command saved_list_command{"list", Group::questions, "List the searches that are kept, newest first",
                                        "vestara saved list --format json", bound<run_saved_list>};

}  // namespace vestara::host
