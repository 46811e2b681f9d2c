#include <algorithm>
#include <filesystem>
#include <system_error>

#include "automation/error.h"
#include "automation/member.h"
#include "automation/registry.h"
#include "automation/system/shared_object.h"
#include "automation/text.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/programming/class_files.h"

namespace vestara::host {
namespace {

using automation::RegisteredClass;
using automation::Scope;

const void* address_in(const RegisteredClass& entry) { return reinterpret_cast<const void*>(entry.create); }

std::string tidy_path(const std::string& path) {
  std::error_code unknown;
  const auto tidy = std::filesystem::weakly_canonical(path, unknown);
  return unknown ? path : tidy.string();
}

std::string library_of(const RegisteredClass& entry) {
  return tidy_path(automation::shared_object_path(address_in(entry)));
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

using RegisterClasses = std::vector<std::string> (*)(const void* address, Scope scope);

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

ExitCode change_registration(RegisterClasses change, const RegistrationOptions& options, const std::string& done,
                             const Context& context) {
  try {
    write_report(context.out, for_all_libraries(change, options, done), context.style());
  } catch (const automation::RunTimeError& error) {
    throw Failure(ExitCode::file,
                  error.description() + (options.scope == Scope::system ? "; the system's folder takes an administrator"
                                                                        : "; XDG_DATA_HOME names another folder"));
  }
  return ExitCode::ok;
}

std::string scope_name(Scope scope) { return scope == Scope::user ? "user" : "system"; }

/// ", registered (user)", with the library where it is another one.
std::string registration_of(const std::string& identifier, const std::string& library, Scope scope) {
  for (const ClassFile& file : class_files(scope)) {
    if (!automation::equal_ignoring_case(file.identifier, identifier)) continue;
    const std::string registered = tidy_path(file.library);
    return ", registered (" + scope_name(scope) + ")" + (registered == library ? "" : " as " + registered);
  }
  return {};
}

/// How this program, and a host that has not loaded it yet, come by the class.
std::string found_by(const std::string& identifier, const std::string& library) {
  std::string found = "loaded";
  for (const Scope scope : {Scope::user, Scope::system}) found += registration_of(identifier, library, scope);
  const std::string component_model =
      automation::shared_object_path(reinterpret_cast<const void*>(&automation::libraries_for));
  if (std::filesystem::path(tidy_path(component_model)).parent_path() == std::filesystem::path(library).parent_path())
    found += ", beside the component model";
  return found;
}

bool is_loaded(const std::string& identifier) {
  const auto classes = automation::loaded_classes();
  return std::any_of(classes.begin(), classes.end(), [&](const RegisteredClass& entry) {
    return automation::equal_ignoring_case(entry.description->identifier(), identifier);
  });
}

}  // namespace

ExitCode run_register(const RegistrationOptions& options, const Context& context) {
  return change_registration(automation::register_library, options, "registered", context);
}

ExitCode run_unregister(const RegistrationOptions& options, const Context& context) {
  return change_registration(automation::unregister_library, options, "no longer registered", context);
}

ExitCode run_classes(const Context& context) {
  std::vector<std::vector<Cell>> rows;
  for (const RegisteredClass& entry : automation::loaded_classes())
    rows.push_back({entry.description->identifier(), library_of(entry),
                    found_by(entry.description->identifier(), library_of(entry))});
  for (const Scope scope : {Scope::user, Scope::system})
    for (const ClassFile& file : class_files(scope))
      if (!is_loaded(file.identifier))
        rows.push_back({file.identifier, file.library, "registered (" + scope_name(scope) + ")"});
  write_report(context.out, class_report(std::move(rows), {"class", "library", "found"}), context.style());
  return ExitCode::ok;
}

}  // namespace vestara::host
