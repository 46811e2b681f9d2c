#include "automation/com/system/identifiers.h"

#include <cstring>
#include <mutex>
#include <string>
#include <unordered_map>

namespace automation::com {
namespace {

GUID guid_of(std::string_view library, std::string_view name) {
  if (name.empty()) return GUID_NULL;
  return com::guid_of(uuid_of(std::string(library).append(".").append(name)));
}

}  // namespace

GUID guid_of(const Uuid& uuid) {
  const auto at = [&](size_t place) { return static_cast<unsigned long>(uuid[place]); };
  GUID guid{};
  guid.Data1 = at(0) << 24 | at(1) << 16 | at(2) << 8 | at(3);
  guid.Data2 = static_cast<unsigned short>(at(4) << 8 | at(5));
  guid.Data3 = static_cast<unsigned short>(at(6) << 8 | at(7));
  std::memcpy(guid.Data4, &uuid[8], sizeof guid.Data4);
  return guid;
}

std::string guid_text(const GUID& guid) {
  wchar_t text[40] = {};
  const int length = StringFromGUID2(guid, text, 40);
  return {text, text + (length > 0 ? length - 1 : 0)};
}

const Identifiers& identifiers_of(const ClassDescription& description) {
  static std::mutex mutex;
  static std::unordered_map<const ClassDescription*, Identifiers> known;
  const std::lock_guard lock(mutex);
  const auto found = known.find(&description);
  if (found != known.end()) return found->second;
  const auto named = [&](std::string_view name) { return guid_of(description.library, name); };
  return known
      .emplace(&description, Identifiers{named(description.name), named(description.interface_name),
                                         named(description.event_interface)})
      .first->second;
}

GUID type_library_id(std::string_view library) { return guid_of(uuid_of(library)); }

}  // namespace automation::com
