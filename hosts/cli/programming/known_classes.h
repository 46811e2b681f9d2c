#pragma once

#include <string>
#include <vector>

#include "automation/member.h"
#include "automation/object.h"
#include "automation/ref.h"
#include "automation/registry.h"

namespace vestara::host {

/// The classes of both libraries, sorted by identifier.
std::vector<automation::RegisteredClass> known_classes();

/// The class of an identifier ("Vestara.cLotto") or of a name ("cLotto"), in any case; an identifier may also be one
/// that another library registered. Failure (usage) naming those that are near.
automation::RegisteredClass class_named(const std::string& text);

/// A new object of such a class. Failure (usage) also for classes that are only handed out.
automation::Ref<automation::Object> object_of_class(const std::string& text);

}  // namespace vestara::host
