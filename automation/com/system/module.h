#pragma once

#include <string>

#include "automation/com/system/platform.h"

namespace automation::com {

/// The library that this code is part of.
HMODULE own_module();
/// The one that holds an address; null for none.
HMODULE module_of(const void* address);
/// True when the address lies inside this library. Much cheaper than comparing the two above.
bool is_own(const void* address);
/// Full path of a library's file.
std::wstring path_of(HMODULE module);

/// Counts what keeps this library loaded: objects in the hands of hosts, class factories, locks.
class KeepsLoaded {
 public:
  KeepsLoaded() { add(); }
  KeepsLoaded(const KeepsLoaded&) = delete;
  KeepsLoaded& operator=(const KeepsLoaded&) = delete;
  ~KeepsLoaded() { remove(); }
  static void add();
  static void remove();
  /// True when nothing does.
  static bool none();
};

}  // namespace automation::com
