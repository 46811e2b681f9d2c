#include "automation/system/file.h"

#include "automation/com/system/text.h"

namespace automation {

std::FILE* open_file(const std::string& path, const char* mode) {
  return _wfopen(com::to_wide(path).c_str(), com::to_wide(mode).c_str());
}

std::string environment_variable(const char* name) {
  const wchar_t* const value = _wgetenv(com::to_wide(name).c_str());
  return value ? com::from_wide(value) : std::string();
}

}  // namespace automation
