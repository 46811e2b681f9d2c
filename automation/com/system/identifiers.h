#pragma once

#include "automation/classes/uuid.h"
#include "automation/com/system/platform.h"
#include "automation/member.h"

namespace automation::com {

GUID guid_of(const Uuid& uuid);
/// "{F0B69009-C135-5BAC-A0D1-35A405B8DA6D}", as the registry writes it.
std::string guid_text(const GUID& guid);

/// What COM calls the parts of a class. Computed once; the reference stays.
struct Identifiers {
  GUID class_id;
  GUID interface_id;
  GUID event_id;  ///< GUID_NULL when the class raises no events
};
const Identifiers& identifiers_of(const ClassDescription& description);

/// The type library of all classes of a library.
GUID type_library_id(std::string_view library);

}  // namespace automation::com
