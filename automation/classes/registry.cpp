#include "automation/registry.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "automation/error.h"
#include "automation/member.h"
#include "automation/registration.h"
#include "automation/system/process_wide.h"
#include "automation/system/shared_object.h"
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

bool has_identifier(const RegisteredClass& entry, std::string_view identifier) {
  return equal_ignoring_case(entry.description->identifier(), identifier);
}

/// All classes that fit, in their order.
template <class Fits>
Classes classes_that(Fits fits) {
  Classes found;
  classes().update(
      [&](const Classes& known) { std::copy_if(known.begin(), known.end(), std::back_inserter(found), fits); });
  return found;
}

using Create = Ref<Object> (*)();

/// Null when no loaded library has the class.
Create creator_of(std::string_view identifier) {
  const Classes found = classes_that([&](const RegisteredClass& entry) { return has_identifier(entry, identifier); });
  return found.empty() ? nullptr : found.front().create;
}

std::string_view without_version(std::string_view identifier) {
  return identifier.ends_with(".1") ? identifier.substr(0, identifier.size() - 2) : identifier;
}

}  // namespace

void register_class(RegisteredClass entry) {
  const std::string identifier = entry.description->identifier();
  classes().update([&](Classes& known) {
    const auto same = [&](const RegisteredClass& other) { return has_identifier(other, identifier); };
    if (std::none_of(known.begin(), known.end(), same)) known.push_back(entry);
  });
}

std::vector<RegisteredClass> loaded_classes() { return classes_that(std::mem_fn(&RegisteredClass::is_creatable)); }

std::vector<RegisteredClass> described_classes() {
  Classes all = classes().get();
  std::stable_partition(all.begin(), all.end(), std::mem_fn(&RegisteredClass::is_creatable));
  return all;
}

RegisteredClass class_of(const Object& object) {
  const ClassDescription* const described = &object.description();
  const Classes found = classes_that([&](const RegisteredClass& entry) { return entry.description == described; });
  return found.empty() ? RegisteredClass{described, nullptr} : found.front();
}

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
  throw cannot_create_object().continued(concatenated({": '", identifier, "'", reasons}));
}

}  // namespace automation
