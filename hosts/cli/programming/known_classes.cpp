#include "hosts/cli/programming/known_classes.h"

#include <algorithm>
#include <optional>

#include "automation/error.h"
#include "automation/registry.h"
#include "automation/text.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/programming/member_path.h"
#include "hosts/cli/programming/near_names.h"
#include "vestara/foundation/message_text.h"
#include "vestara/statistics/statistics.h"

namespace vestara::host {
namespace {

using automation::Object;
using automation::Ref;

KnownClass class_of(const Object& object, Origin origin) {
  const automation::ClassDescription& description = object.description();
  return {std::string(description.library) + "." + std::string(description.name), &description, origin};
}

void add_handed_out(std::vector<KnownClass>& classes, const automation::Variant& value) {
  if (const auto* object = value.get_if<Ref<Object>>(); object && *object)
    classes.push_back(class_of(**object, Origin::handed_out));
}

/// The record set with its parts, met by opening one, and a collection. Descriptions outlive their objects.
std::vector<KnownClass> handed_out_classes() {
  std::vector<KnownClass> classes;
  const Ref<Object> connector = automation::create_object("Dorvane.DbConnector");
  follow(*connector, "Open('sqlite::memory:')");
  for (const char* path : {"", ".Fields", ".Fields.Item(0)"})
    add_handed_out(classes, follow(*connector, "GetRecordset('SELECT 1 AS n')" + std::string(path)));
  cStatistiche statistics;
  statistics.EstrNumeriString("1");
  statistics.EstrCombinazione(1);
  add_handed_out(classes, statistics.CombinazioniSempliciString());
  return classes;
}

std::optional<KnownClass> find_class(const std::string& text) {
  for (const KnownClass& known : known_classes())
    if (automation::equal_ignoring_case(known.identifier, text) ||
        automation::equal_ignoring_case(known.description->name, text))
      return known;
  return std::nullopt;
}

/// `reason` tells where an identifier was looked for; a plain name was not.
Failure unknown_class(const std::string& text, const std::string& reason) {
  std::vector<std::string> names;
  for (const KnownClass& known : known_classes()) {
    names.push_back(known.identifier);
    names.emplace_back(known.description->name);
  }
  const std::string near = near_names(text, names);
  return {ExitCode::usage, "class " + shown(text) + " is unknown" + (near.empty() ? "" : "; near are " + near) +
                               "; vestara classes lists all" +
                               (text.find('.') == std::string::npos ? "" : "\n  " + reason)};
}

}  // namespace

std::vector<KnownClass> known_classes() {
  std::vector<KnownClass> classes = handed_out_classes();
  for (const automation::RegisteredClass& entry : automation::loaded_classes())
    classes.push_back({entry.identifier, &entry.create()->description(), Origin::by_name});
  std::sort(classes.begin(), classes.end(), [](const KnownClass& left, const KnownClass& right) {
    return automation::lower_case(left.identifier) < automation::lower_case(right.identifier);
  });
  return classes;
}

KnownClass class_named(const std::string& text) {
  if (const auto known = find_class(text)) return *known;
  return class_of(*object_of_class(text), Origin::by_name);
}

Ref<Object> object_of_class(const std::string& text) {
  const auto known = find_class(text);
  if (known && known->origin == Origin::handed_out)
    throw Failure(ExitCode::usage, "objects of " + known->identifier +
                                       " are only handed out; reach one with --on, as in call DbConnector Name --on "
                                       "\"GetRecordset('SELECT 1 AS n').Fields.Item(0)\"");
  try {
    return automation::create_object(known ? known->identifier : text);
  } catch (const automation::RunTimeError& error) {
    throw unknown_class(text, error.description());
  }
}

}  // namespace vestara::host
