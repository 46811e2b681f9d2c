#include "automation/registration.h"

// Here classes are found through the registry, by the system: no files say where they are.

namespace automation {

std::vector<std::string> libraries_for(std::string_view) { return {}; }
std::vector<std::string> refused_class_files(std::string_view) { return {}; }
std::string searched_places() { return "this library"; }

}  // namespace automation
