#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

#include "automation/registration.h"
#include "automation/registry.h"
#include "hosts/cli/context.h"
#include "hosts/cli/failure.h"

// What `vestara register`, `unregister` and `classes` share.

namespace vestara::host {

struct RegistrationOptions {
  automation::Scope scope = automation::Scope::user;
};

void add_registration(CLI::App& app, RegistrationOptions& options);

/// Writes or removes the registration of the library that an address lies in; returns the identifiers of its classes.
using RegisterClasses = std::vector<std::string> (*)(const void* address, automation::Scope scope);

/// Does it for every library that has classes, and shows for which; `done` is the result in a word. Failure (file).
ExitCode change_registration(RegisterClasses change, const RegistrationOptions& options, const std::string& done,
                             const Context& context);

/// A listing of classes, sorted by its first column.
Report class_report(std::vector<std::vector<Cell>> rows, std::vector<std::string> columns);

/// The path without links and dots; as it is when it leads nowhere.
std::string tidy_path(const std::string& path);
/// The library of a class that is loaded.
std::string library_of(const automation::RegisteredClass& entry);

}  // namespace vestara::host
