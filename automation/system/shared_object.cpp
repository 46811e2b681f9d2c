#include "automation/system/shared_object.h"

#include <dlfcn.h>

namespace automation {

std::string shared_object_path(const void* address) {
  Dl_info info{};
  if (dladdr(address, &info) == 0 || !info.dli_fname) return {};
  return info.dli_fname;
}

std::string load_shared_object(const std::string& path) {
  // Never unloaded: objects and errors of its classes may outlive whoever asked for it.
  return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL) ? "" : dlerror();
}

std::string shared_object_folder(const void* address) {
  const std::string path = shared_object_path(address);
  const auto end = path.find_last_of("/\\");
  return end == std::string::npos ? "." : path.substr(0, end);
}

}  // namespace automation
