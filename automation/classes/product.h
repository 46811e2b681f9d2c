#pragma once

#include <string_view>

#include "automation/classes/uuid.h"
#include "automation/export.h"

namespace automation {

/// What the component model needs to know of the product that it serves.
struct Product {
  std::string_view version;    ///< libraries of one version and compiler take each other's objects as they are
  const char* library_folder;  ///< the environment variable that names a folder of libraries (registration.h)
  Uuid name_space;             ///< of the identifiers that are derived from the names of its classes
};

/// Defined by the build, not here: each product compiles a source of its own into its libraries.
const Product& product();

}  // namespace automation
