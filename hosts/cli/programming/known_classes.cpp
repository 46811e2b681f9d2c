#include "hosts/cli/programming/known_classes.h"

#include <algorithm>
#include <optional>

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/programming/near_names.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

using automation::Object;
using automation::Ref;
using automation::RegisteredClass;

std::optional<RegisteredClass> find_class(const std::string& text) {
  for (const RegisteredClass& known : known_classes())
    if (automation::equal_ignoring_case(known.description->identifier(), text) ||
        automation::equal_ignoring_case(known.description->name, text))
      return known;
  return std::nullopt;
}

/// `reason` tells where an identifier was looked for; a plain name was not.
Failure unknown_class(const std::string& text, const std::string& reason) {
  std::vector<std::string> names;
  for (const RegisteredClass& known : known_classes()) {
    names.push_back(known.description->identifier());
    names.emplace_back(known.description->name);
  }
  const std::string near = near_names(text, names);
  return {FailureKind::argument, "class " + shown(text) + " is unknown" + (near.empty() ? "" : "; near are " + near) +
                                     "; vestara classes lists all" +
                                     (text.find('.') == std::string::npos ? "" : "\n  " + reason)};
}

}  // namespace

std::vector<RegisteredClass> known_classes() {
  std::vector<RegisteredClass> classes = automation::described_classes();
  const auto key = [](const RegisteredClass& entry) { return automation::lower_case(entry.description->identifier()); };
  std::sort(classes.begin(), classes.end(),
            [&](const RegisteredClass& left, const RegisteredClass& right) { return key(left) < key(right); });
  return classes;
}

RegisteredClass class_named(const std::string& text) {
  if (const auto known = find_class(text)) return *known;
  return automation::class_of(*object_of_class(text));
}

Ref<Object> object_of_class(const std::string& text) {
  const auto known = find_class(text);
  if (known && !known->is_creatable())
    throw Failure(FailureKind::argument,
                  "objects of " + known->description->identifier() +
                      " are only handed out; reach one with --on, as in call DbConnector Name --on "
                      "\"GetRecordset('SELECT 1 AS n').Fields.Item(0)\"");
  try {
    return automation::create_object(known ? known->description->identifier() : text);
  } catch (const automation::RunTimeError& error) {
    throw unknown_class(text, error.description());
  }
}

}  // namespace vestara::host
