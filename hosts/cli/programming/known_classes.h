#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/member.h"
#include "automation/object.h"
#include "automation/ref.h"

namespace vestara::host {

/// How hosts come by an object of a class.
enum class Origin { by_name, handed_out };

struct KnownClass {
  std::string identifier;  ///< "Vestara.cLotto"
  const automation::ClassDescription* description;
  Origin origin;
};

/// The classes of both libraries, sorted by identifier.
std::vector<KnownClass> known_classes();

/// The class of an identifier ("Vestara.cLotto") or of a name ("cLotto"), in any case; an identifier may also be one
/// that another library registered. Failure (usage) naming those that are near.
KnownClass class_named(const std::string& text);

/// A new object of such a class. Failure (usage) also for classes that are only handed out.
automation::Ref<automation::Object> object_of_class(const std::string& text);

}  // namespace vestara::host
