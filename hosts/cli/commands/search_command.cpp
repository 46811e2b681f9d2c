#include "hosts/cli/command.h"
#include "hosts/cli/commands/search_result.h"
#include "hosts/cli/options/command_parts.h"

namespace vestara::host {
namespace {

struct SearchOptions {
  SearchWords words;
  SearchView view;
  std::string limit;
};

void add_search(CLI::App& app, SearchOptions& options) {
  add_search_words(app, options.words);
  app.add_flag("--asc", options.view.oldest_first, "oldest draw first");
  value_option(app, "--limit", options.limit, "N", "list N dates at most, in a table");
  app.add_flag("--statistics", options.view.statistics,
               "also say what the search amounts to: percentages, draws per hit, gaps; chance gives expected_…, "
               "the archive plain_effective_…; theoretical_… and effective_… are the library's");
}

ExitCode run_search(const SearchOptions& options, const Context& context) {
  const SearchRequest request = search_request(options.words);
  SearchView view = options.view;
  if (!options.limit.empty()) view.table_rows = count_value("--limit", options.limit);
  return show_search(request, view, context);
}

}  // namespace

extern const Command search_command{"search", Group::questions, "Find the draws that hold the numbers",
                                    "vestara search 5,12,33 --hits ambo --wheels BA,NA --from 2005-01-01",
                                    bound<add_search, run_search>};

}  // namespace vestara::host
