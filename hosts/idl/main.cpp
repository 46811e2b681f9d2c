#include <array>
#include <iostream>
#include <string_view>
#include <vector>

#include "automation/collection.h"
#include "automation/registry.h"
#include "hosts/idl/idl_text.h"
#include "hosts/idl/manifest_text.h"

// Prints what the COM servers are built with, from the member rows:
//   vestara_idl Vestara           the interface definition of a library, from which its type library is made
//   vestara_idl manifest amd64    the manifest of both libraries, for use without registration

namespace {

using automation::InvokeKind;
using automation::Object;
using automation::Ref;
using automation::Variant;
using vestara::idl::Origin;
using vestara::idl::SurfaceClass;

Ref<Object> ask(const Ref<Object>& object, std::string_view member, InvokeKind kind, std::vector<Variant> arguments) {
  return *object->call(member, kind, arguments).get_if<Ref<Object>>();
}

/// One object of every class that is only handed out. Descriptions outlive their objects.
std::vector<Ref<Object>> handed_out() {
  const Ref<Object> connector = automation::create_object("Dorvane.DbConnector");
  std::array<Variant, 1> url{"sqlite::memory:"};
  connector->call("Open", InvokeKind::method, url);
  const auto rows = ask(connector, "GetRecordset", InvokeKind::method, {"SELECT 1 AS n"});
  const auto fields = ask(rows, "Fields", InvokeKind::get, {});
  return {automation::make<automation::Collection>(), rows, fields, ask(fields, "Item", InvokeKind::get, {int32_t{0}})};
}

/// The classes of a library; the component model's own go with Vestara.
std::vector<SurfaceClass> classes_of(std::string_view library) {
  std::vector<SurfaceClass> classes;
  const auto add = [&](const Object& object, Origin origin) {
    const auto& description = object.description();
    const auto home = description.library == "Automation" ? "Vestara" : description.library;
    if (home == library) classes.push_back({&description, origin});
  };
  for (const automation::RegisteredClass& entry : automation::loaded_classes()) add(*entry.create(), Origin::by_name);
  for (const Ref<Object>& object : handed_out()) add(*object, Origin::handed_out);
  return classes;
}

int usage() {
  std::cerr << "usage: vestara_idl Vestara|Dorvane|manifest amd64|manifest x86\n";
  return 2;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string_view what = count > 1 ? arguments[1] : "";
  if (what == "manifest" && count == 3) {
    std::cout << vestara::idl::manifest_text(arguments[2]);
    return 0;
  }
  const auto classes = classes_of(what);
  if (classes.empty()) return usage();
  const std::string_view help =
      what == "Dorvane" ? "Dorvane 1.0: the connector" : "Vestara 1.0: the archive of the Italian Lotto";
  std::cout << vestara::idl::idl_text(what, help, classes);
  return 0;
}
