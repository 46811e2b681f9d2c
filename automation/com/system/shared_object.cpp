#include "automation/system/shared_object.h"

#include "automation/com/system/module.h"
#include "automation/com/system/text.h"

namespace automation {

std::string shared_object_path(const void* address) {
  const HMODULE module = com::module_of(address);
  return module ? com::from_wide(com::path_of(module)) : std::string();
}

std::string shared_object_folder(const void* address) {
  const std::string path = shared_object_path(address);
  const auto end = path.find_last_of("/\\");
  return end == std::string::npos ? "." : path.substr(0, end);
}

std::string load_shared_object(const std::string& path) {
  return LoadLibraryW(com::to_wide(path).c_str()) ? "" : "error " + std::to_string(GetLastError());
}

}  // namespace automation
