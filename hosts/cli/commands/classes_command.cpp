#include <algorithm>
#include <filesystem>

#include "automation/member.h"
#include "automation/registry.h"
#include "automation/system/shared_object.h"
#include "automation/text.h"
#include "hosts/cli/command.h"
#include "hosts/cli/commands/registration.h"
#include "hosts/cli/programming/class_files.h"

namespace vestara::host {
namespace {

using automation::RegisteredClass;
using automation::Scope;

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

ExitCode run_classes(const Context& context) {
  std::vector<std::vector<Cell>> rows;
  for (const RegisteredClass& entry : automation::loaded_classes())
    rows.push_back({entry.description->identifier(), library_of(entry),
                    found_by(entry.description->identifier(), library_of(entry))});
  for (const Scope scope : {Scope::user, Scope::system})
    for (const ClassFile& file : class_files(scope))
      if (!is_loaded(file.identifier))
        rows.push_back({file.identifier, file.library, "registered (" + scope_name(scope) + ")"});
  context.show(class_report(std::move(rows), {"class", "library", "found"}));
  return ExitCode::ok;
}

}  // namespace

extern const Command classes_command{"classes", Group::programming,
                                     "List the classes that can be created by name, and where they are found",
                                     "vestara classes --format json", bound<run_classes>};

}  // namespace vestara::host
