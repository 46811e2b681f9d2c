#pragma once

#include <string>
#include <vector>

#include "automation/registration.h"

namespace vestara::host {

/// What a registration says.
struct ClassFile {
  std::string identifier;
  std::string library;  ///< its path
};

/// The registrations of a scope, sorted by identifier; none when their folder cannot be read.
std::vector<ClassFile> class_files(automation::Scope scope);

}  // namespace vestara::host
