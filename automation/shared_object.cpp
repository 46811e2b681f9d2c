#include "automation/shared_object.h"

#if defined(_WIN32)
#include <windows.h>

#include <array>
#else
#include <dlfcn.h>
#endif

namespace automation {

#if defined(_WIN32)

std::string shared_object_path(const void* address) {
  HMODULE module = nullptr;
  std::array<char, MAX_PATH> path{};
  const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  if (!GetModuleHandleExA(flags, static_cast<LPCSTR>(address), &module) ||
      GetModuleFileNameA(module, path.data(), MAX_PATH) == 0)
    return {};
  return path.data();
}

std::string load_shared_object(const std::string& path) {
  return LoadLibraryA(path.c_str()) ? "" : "error " + std::to_string(GetLastError());
}

#else

std::string shared_object_path(const void* address) {
  Dl_info info{};
  if (dladdr(address, &info) == 0 || !info.dli_fname) return {};
  return info.dli_fname;
}

std::string load_shared_object(const std::string& path) {
  // Never unloaded: objects and errors of its classes may outlive whoever asked for it.
  return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL) ? "" : dlerror();
}

#endif

std::string shared_object_folder(const void* address) {
  const std::string path = shared_object_path(address);
  const auto end = path.find_last_of("/\\");
  return end == std::string::npos ? "." : path.substr(0, end);
}

}  // namespace automation
