#include "hosts/idl/manifest_text.h"

#include "automation/classes/uuid.h"
#include "automation/member.h"
#include "automation/registry.h"
#include "automation/text.h"

namespace vestara::idl {
namespace {

std::string uuid(std::string_view name) { return "{" + automation::uuid_text(automation::uuid_of(name)) + "}"; }

std::string attribute(std::string_view name, std::string_view value) {
  return std::string(" ").append(name).append("=\"").append(value).append("\"");
}

std::string class_text(const std::string& identifier, std::string_view library) {
  return "    <comClass" + attribute("clsid", uuid(identifier)) + attribute("progid", identifier) +
         attribute("threadingModel", "Apartment") + attribute("tlbid", uuid(library)) + ">\n      <progid>" +
         identifier + ".1</progid>\n    </comClass>\n";
}

std::string file_text(std::string_view library) {
  std::string text = "  <file" + attribute("name", automation::lower_case(library) + ".dll") + ">\n";
  for (const automation::RegisteredClass& entry : automation::loaded_classes())
    if (entry.description->library == library) text += class_text(entry.description->identifier(), library);
  return text + "    <typelib" + attribute("tlbid", uuid(library)) + attribute("version", "1.0") +
         attribute("helpdir", "") + "/>\n  </file>\n";
}

}  // namespace

std::string manifest_text(std::string_view architecture) {
  return R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <assemblyIdentity type="win32" name="Vestara" version="1.0.0.0")" +
         attribute("processorArchitecture", architecture) + "/>\n" + file_text("Vestara") + file_text("Dorvane") +
         "</assembly>\n";
}

}  // namespace vestara::idl
