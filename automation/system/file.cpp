#include "automation/system/file.h"

#include <cstdlib>

namespace automation {

std::FILE* open_file(const std::string& path, const char* mode) { return std::fopen(path.c_str(), mode); }

std::string environment_variable(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : std::string();
}

}  // namespace automation
