#include "hosts/cli/commands/registration.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "automation/error.h"
#include "automation/system/shared_object.h"

namespace vestara::host {
namespace {

using automation::RegisteredClass;
using automation::Scope;

const void* address_in(const RegisteredClass& entry) { return reinterpret_cast<const void*>(entry.create); }

/// Does it once for every library that has classes, and says for which.
Report for_all_libraries(RegisterClasses change, const RegistrationOptions& options, const std::string& done) {
  std::vector<std::vector<Cell>> rows;
  std::vector<std::string> libraries;
  for (const RegisteredClass& entry : automation::loaded_classes()) {
    const std::string library = library_of(entry);
    if (std::find(libraries.begin(), libraries.end(), library) != libraries.end()) continue;
    libraries.push_back(library);
    for (const std::string& identifier : change(address_in(entry), options.scope))
      rows.push_back({identifier, library});
  }
  Report report = class_report(std::move(rows), {"class", "library"});
  report.facts = {{"result", done}, {"folder", automation::registration_folder(options.scope)}};
  return report;
}

}  // namespace

void add_registration(CLI::App& app, RegistrationOptions& options) {
  app.add_flag_callback(
      "--system", [&options] { options.scope = Scope::system; }, "for all users rather than this one");
}

ExitCode change_registration(RegisterClasses change, const RegistrationOptions& options, const std::string& done,
                             const Context& context) {
  try {
    context.show(for_all_libraries(change, options, done));
  } catch (const automation::RunTimeError& error) {
    throw Failure(FailureKind::file,
                  error.description() + (options.scope == Scope::system ? "; the system's folder takes an administrator"
                                                                        : "; XDG_DATA_HOME names another folder"));
  }
  return ExitCode::ok;
}

Report class_report(std::vector<std::vector<Cell>> rows, std::vector<std::string> columns) {
  std::sort(rows.begin(), rows.end(), [](const auto& left, const auto& right) { return left[0] < right[0]; });
  Report report;
  report.listing = "classes";
  report.row_kind = "class";
  report.columns = std::move(columns);
  report.rows = std::move(rows);
  return report;
}

std::string tidy_path(const std::string& path) {
  std::error_code unknown;
  const auto tidy = std::filesystem::weakly_canonical(path, unknown);
  return unknown ? path : tidy.string();
}

std::string library_of(const RegisteredClass& entry) {
  return tidy_path(automation::shared_object_path(address_in(entry)));
}

}  // namespace vestara::host
