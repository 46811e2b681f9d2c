#include "automation/registry.h"

#include <algorithm>
#include <utility>

#include "automation/error.h"
#include "automation/process_wide.h"
#include "automation/registration.h"
#include "automation/shared_object.h"
#include "automation/text.h"

namespace automation {
namespace {

using Classes = std::vector<RegisteredClass>;

/// Never destroyed: another thread may still create objects while the process ends.
ProcessWide<Classes>& classes() {
  // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
  static auto* const known = new ProcessWide<Classes>;
  return *known;
}

Classes::const_iterator find_class(const Classes& known, std::string_view identifier) {
  return std::find_if(known.begin(), known.end(),
                      [&](const RegisteredClass& entry) { return equal_ignoring_case(entry.identifier, identifier); });
}

using Create = Ref<Object> (*)();

/// Null when no loaded library has the class.
Create creator_of(std::string_view identifier) {
  Create create = nullptr;
  classes().update([&](const Classes& known) {
    const auto found = find_class(known, identifier);
    if (found != known.end()) create = found->create;
  });
  return create;
}

std::string_view without_version(std::string_view identifier) {
  return identifier.ends_with(".1") ? identifier.substr(0, identifier.size() - 2) : identifier;
}

}  // namespace

void register_class(RegisteredClass entry) {
  classes().update([&](Classes& known) {
    if (find_class(known, entry.identifier) == known.end()) known.push_back(std::move(entry));
  });
}

std::vector<RegisteredClass> loaded_classes() { return classes().get(); }

Ref<Object> create_object(std::string_view identifier) {
  const std::string_view name = without_version(identifier);
  if (const Create create = creator_of(name)) return create();
  std::string reasons;
  for (const std::string& library : libraries_for(name)) {
    const std::string reason = load_shared_object(library);
    if (const Create create = creator_of(name)) return create();
    reasons += "; " + library + ": " + (reason.empty() ? "has no such class" : reason);
  }
  for (const std::string& refused : refused_class_files(name)) reasons += "; " + refused;
  if (reasons.empty()) reasons = "; looked in " + searched_places();
  throw RunTimeError(429, std::string(standard_description(429)) + ": '" + std::string(identifier) + "'" + reasons);
}

}  // namespace automation
