#pragma once  // installed

#include <string_view>
#include <vector>

#include "automation/export.h"
#include "automation/object.h"
#include "automation/ref.h"

// Any thread may call these, at the same time as others. The object that comes out belongs to the thread that asked
// for it.

namespace automation {

struct ClassDescription;

/// A class that hosts can see.
struct RegisteredClass {
  const ClassDescription* description;
  Ref<Object> (*create)();  ///< null for a class whose objects members hand out and nobody creates

  bool is_creatable() const { return create != nullptr; }
};

/// Makes a class known to this process. A library does this for its classes when it is loaded; a second class of the
/// same identifier is ignored.
AUTOMATION_API void register_class(RegisteredClass entry);

/// Creates an object by its programmatic identifier, without regard to case; a version after it (".1") is accepted. A
/// class that no loaded library has is looked for where classes are registered (registration.h), and its library is
/// loaded. Error 429, naming the places, when there is none.
AUTOMATION_API Ref<Object> create_object(std::string_view identifier);

/// The classes of the loaded libraries that hosts create by name, in the order in which they were registered.
AUTOMATION_API std::vector<RegisteredClass> loaded_classes();

/// The same, and after them the classes that members hand out.
AUTOMATION_API std::vector<RegisteredClass> described_classes();

/// The entry of an object's class. One that nobody registered is not creatable.
AUTOMATION_API RegisteredClass class_of(const Object& object);

/// Makes `Class` known: one static of this type per class that hosts create, in the library that has it.
template <class Class>
struct ClassRegistrar {
  ClassRegistrar() {
    register_class({&Class::surface(), [] { return Ref<Object>(make<Class>()); }});
  }
};

/// The same for a class that members of the library hand out.
template <class Class>
struct HandedOut {
  HandedOut() { register_class({&Class::surface(), nullptr}); }
};

}  // namespace automation
