#include "automation/registry.h"

#include <algorithm>
#include <utility>

#include "automation/error.h"
#include "automation/registration.h"
#include "automation/shared_object.h"
#include "automation/text.h"

namespace automation {
namespace {

std::vector<RegisteredClass>& classes() {
  static std::vector<RegisteredClass> known;
  return known;
}

const RegisteredClass* find_class(std::string_view identifier) {
  const auto found = std::find_if(classes().begin(), classes().end(), [&](const RegisteredClass& entry) {
    return equal_ignoring_case(entry.identifier, identifier);
  });
  return found == classes().end() ? nullptr : &*found;
}

std::string_view without_version(std::string_view identifier) {
  return identifier.ends_with(".1") ? identifier.substr(0, identifier.size() - 2) : identifier;
}

}  // namespace

void register_class(RegisteredClass entry) {
  if (!find_class(entry.identifier)) classes().push_back(std::move(entry));
}

const std::vector<RegisteredClass>& loaded_classes() { return classes(); }

Ref<Object> create_object(std::string_view identifier) {
  const std::string_view name = without_version(identifier);
  if (const RegisteredClass* entry = find_class(name)) return entry->create();
  std::string reasons;
  for (const std::string& library : libraries_for(name)) {
    const std::string reason = load_shared_object(library);
    if (const RegisteredClass* entry = find_class(name)) return entry->create();
    reasons += "; " + library + ": " + (reason.empty() ? "has no such class" : reason);
  }
  for (const std::string& refused : refused_class_files(name)) reasons += "; " + refused;
  if (reasons.empty()) reasons = "; looked in " + searched_places();
  throw RunTimeError(429, std::string(standard_description(429)) + ": '" + std::string(identifier) + "'" + reasons);
}

}  // namespace automation
