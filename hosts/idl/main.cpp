#include <iostream>
#include <string_view>
#include <vector>

#include "automation/registry.h"
#include "hosts/idl/idl_text.h"
#include "hosts/idl/manifest_text.h"

// Prints what the COM servers are built with, from the member rows:
//   vestara_idl Vestara           the interface definition of a library, from which its type library is made
//   vestara_idl manifest amd64    the manifest of both libraries, for use without registration

namespace {

using automation::RegisteredClass;

/// The classes of a library; the component model's own go with Vestara.
std::vector<RegisteredClass> classes_of(std::string_view library) {
  auto classes = automation::described_classes();
  std::erase_if(classes, [&](const RegisteredClass& entry) {
    const std::string_view home = entry.description->library;
    return (home == "Automation" ? "Vestara" : home) != library;
  });
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
