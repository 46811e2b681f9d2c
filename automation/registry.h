#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/export.h"
#include "automation/object.h"
#include "automation/ref.h"

// Any thread may call these, at the same time as others. The object that comes out belongs to the thread that asked
// for it.

namespace automation {

struct ClassDescription;

/// A class that hosts create by name.
struct RegisteredClass {
  std::string identifier;  ///< "Vestara.cLotto"
  Ref<Object> (*create)();
};

/// Makes a class known to this process. A library does this for its classes when it is loaded; a second class of the
/// same identifier is ignored.
AUTOMATION_API void register_class(RegisteredClass entry);

/// Creates an object by its programmatic identifier, without regard to case; a version behind it (".1") is accepted. A
/// class that no loaded library has is looked for where classes are registered (registration.h), and its library is
/// loaded. Error 429, naming the places, when there is none.
AUTOMATION_API Ref<Object> create_object(std::string_view identifier);

/// The classes of the loaded libraries, in the order in which they were registered.
AUTOMATION_API std::vector<RegisteredClass> loaded_classes();

/// Makes `Class` known: one static of this type per class, in the library that has it.
template <class Class>
struct ClassRegistrar {
  explicit ClassRegistrar(std::string identifier) {
    register_class({std::move(identifier), [] { return Ref<Object>(make<Class>()); }});
  }
};

}  // namespace automation
