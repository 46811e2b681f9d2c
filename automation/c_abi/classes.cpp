#include <mutex>
#include <string>
#include <unordered_map>

#include "automation/c_abi/convert.h"
#include "automation/c_abi/failure.h"
#include "automation/describe.h"
#include "automation/error.h"
#include "automation/member.h"
#include "automation/registry.h"

namespace automation::c_abi {
namespace {

/// The names that were asked for. Their bytes stay where they are: each is a node of its own.
class ClassNames {
 public:
  const char* name_of(const ClassDescription& description) {
    const std::lock_guard lock(mutex_);
    const auto found = names_.find(&description);
    if (found != names_.end()) return found->second.c_str();
    return names_.emplace(&description, description.identifier()).first->second.c_str();
  }

 private:
  std::mutex mutex_;
  std::unordered_map<const ClassDescription*, std::string> names_;
};

ClassNames& class_names() {
  // Never destroyed: hosts keep the names, and may ask while the process ends.
  static auto* const names = new ClassNames;
  return *names;
}

/// A host's own object is of no library's class.
bool is_of_host(const ClassDescription& description) { return description.library.empty(); }

}  // namespace
}  // namespace automation::c_abi

using namespace automation::c_abi;

const char* au_class_name(au_object* object) {
  const char* name = nullptr;
  guarded([&] {
    const automation::ClassDescription& description = object_of(object).description();
    if (!is_of_host(description)) name = class_names().name_of(description);
  });
  return name;
}

au_status au_describe(au_object* object, au_value* json) {
  return guarded([&] {
    const automation::RegisteredClass entry = automation::class_of(object_of(object));
    if (is_of_host(*entry.description)) throw automation::no_such_member();
    to_value(automation::Variant(automation::describe_json(entry)), required(json));
  });
}

au_status au_first_item(au_object* object, int32_t* index) {
  return guarded([&] {
    const automation::ClassDescription& description = object_of(object).description();
    if (!description.first_item) throw automation::no_such_member();
    required(index) = *description.first_item;
  });
}

au_status au_class_at(size_t place, au_value* json) {
  return guarded([&] {
    const auto classes = automation::described_classes();
    if (place >= classes.size()) throw automation::subscript_out_of_range();
    to_value(automation::Variant(automation::describe_json(classes[place])), required(json));
  });
}
