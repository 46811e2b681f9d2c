#pragma once  // for hosts

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "automation/export.h"

// Where a class is found that no loaded library has: one small text file per class, "identifier=…" and "library=…",
// in a folder of class files. Looked through in this order:
//   1. the folder of libraries (not of class files) that the product's own variable names (product.h)
//   2. the folders of class files that AUTOMATION_CLASS_PATH names, joined by ":"
//   3. the user's data folder (XDG_DATA_HOME or ~/.local/share) and the system's (XDG_DATA_DIRS or /usr/local/share,
//      /usr/share), each with "automation-classes" added
//   4. the folder of this library itself: a build tree, or an installation that nobody registered
// A class file names code that will run. So 2 and 3 take absolute paths only. A class file that somebody else than the
// user or root may have written is refused, by its own owner and mode or by those of the folder that it lies in.

namespace automation {

enum class Scope { user, system };

/// The folder that registrations of this scope are written to. Empty when neither XDG_DATA_HOME nor HOME names an
/// absolute path.
AUTOMATION_API std::string registration_folder(Scope scope);

/// The libraries that may hold a class, best first. Every one of them exists.
AUTOMATION_API std::vector<std::string> libraries_for(std::string_view identifier);
/// The same places in words, for an error.
AUTOMATION_API std::string searched_places();
/// A sentence for each class file of a class that is refused: the file, why, and what would be right.
AUTOMATION_API std::vector<std::string> refused_class_files(std::string_view identifier);

/// Writes the class files of all classes that the shared object around `address` has; each file appears whole or not at
/// all. Returns the identifiers. Errors 75, 76 naming the file, 70 for a folder whose class files would be refused.
AUTOMATION_API std::vector<std::string> register_library(const void* address, Scope scope);
/// Removes them; a file that is not there is no error.
AUTOMATION_API std::vector<std::string> unregister_library(const void* address, Scope scope);

enum class Registering : bool { remove, write };
/// The body of a library's own entry points: 0 when it worked, else the number of the error. `address` lies inside the
/// library.
AUTOMATION_API int32_t register_from_entry_point(const void* address, Scope scope, Registering what) noexcept;

}  // namespace automation
