#include "automation/com/system/module.h"

#include <atomic>

/// Where the linker put the beginning of this library.
extern "C" const char __ImageBase[];

namespace automation::com {
namespace {

std::atomic<long> keepers{0};

size_t own_size() {
  const auto* start = reinterpret_cast<const IMAGE_DOS_HEADER*>(__ImageBase);
  return reinterpret_cast<const IMAGE_NT_HEADERS*>(__ImageBase + start->e_lfanew)->OptionalHeader.SizeOfImage;
}

}  // namespace

HMODULE own_module() { return module_of(__ImageBase); }

HMODULE module_of(const void* address) {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     static_cast<LPCWSTR>(address), &module);
  return module;
}

bool is_own(const void* address) {
  static const size_t size = own_size();
  const auto offset = reinterpret_cast<uintptr_t>(address) - reinterpret_cast<uintptr_t>(__ImageBase);
  return offset < size;
}

std::wstring path_of(HMODULE module) {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

void KeepsLoaded::add() { ++keepers; }
void KeepsLoaded::remove() { --keepers; }
bool KeepsLoaded::none() { return keepers == 0; }

}  // namespace automation::com
