#include "hosts/cli/options/saved_arguments.h"

#include "hosts/cli/options/command_parts.h"

namespace vestara::host {
namespace {

void add_id(CLI::App& app, SavedArguments& given) {
  app.add_option("ID", given.id, "as in vestara saved list")->type_name("")->required();
}

void add_yes(CLI::App& app, SavedArguments& given, const char* help) { app.add_flag("--yes", given.yes, help); }

Consent consent_of(const SavedArguments& given) { return given.yes ? Consent::given : Consent::ask; }

void add_save(CLI::App& saved, SavedArguments& given) {
  CLI::App& app = add_command(saved, "save", "Keep a search, and say under which ID",
                              "vestara saved save 5,12,33 --name \"first try\" --hits ambo --wheels BA,NA");
  app.add_option("NUMBERS", given.search.numbers, "1 to 90: 53, or 5,12,33, or 5 12 33")->type_name("")->required();
  value_option(app, "--name", given.name, "TEXT", "what lists show; any text")->required();
  add_hits_and_wheels(app, given.search.hits, given.search.wheels);
  add_range(app, given.search.from, given.search.to);
  value_option(app, "--id", given.id, "ID", "in place of this search; asks first");
  add_yes(app, given, "replace without asking");
}

SavedSaveOptions save_options(const SavedArguments& given) {
  SavedSaveOptions options{0, given.name, search_question(given.search), consent_of(given)};
  if (!given.id.empty()) options.id = whole_value("--id", given.id, 1, largest_id);
  return options;
}

}  // namespace

void add_saved(CLI::App& program, SavedArguments& given) {
  CLI::App& saved = add_group(program, "saved", "Keep searches and repeat them", "vestara saved run 1");
  add_command(saved, "list", "List the searches that are kept, newest first", "vestara saved list --format json");
  add_id(add_command(saved, "show", "Show one of them as it is stored", "vestara saved show 1"), given);
  add_save(saved, given);
  add_id(add_command(saved, "run", "Search again", "vestara saved run 1"), given);
  CLI::App& remove = add_command(saved, "delete", "Forget a search", "vestara saved delete 1 --yes");
  add_id(remove, given);
  add_yes(remove, given, "delete without asking");
}

SavedOptions saved_options(const std::string& command, const SavedArguments& given) {
  if (command == "list") return SavedListOptions{};
  if (command == "save") return save_options(given);
  const int32_t id = whole_value("ID", given.id, 0, largest_id);
  if (command == "show") return SavedShowOptions{id};
  if (command == "run") return SavedRunOptions{id};
  return SavedDeleteOptions{id, consent_of(given)};
}

}  // namespace vestara::host
