#include "hosts/idl/idl_text.h"

#include <algorithm>
#include <array>

#include "automation/classes/uuid.h"
#include "automation/describe.h"

namespace vestara::idl {
namespace {

using automation::ClassDescription;
using automation::Member;
using automation::MemberKind;
using automation::Parameter;
using automation::RegisteredClass;
using automation::ValueType;

/// The types of automation are known by their names; what they are made of does not matter here.
constexpr std::string_view prelude = R"(typedef short VARIANT_BOOL;
typedef wchar_t* BSTR;
typedef struct tagVARIANT VARIANT;
typedef double DATE;
interface IUnknown;
interface IDispatch;

)";

std::string joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text.append(text.empty() ? "" : ", ").append(part);
  return text;
}

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') result += '\\';
    result += c;
  }
  return result += '"';
}

std::string uuid_attribute(std::string_view library, std::string_view name) {
  std::string full(library);
  if (!name.empty()) full.append(".").append(name);
  return "uuid(" + automation::uuid_text(automation::uuid_of(full)) + ")";
}

std::string attributes(const std::vector<std::string>& parts) { return "[" + joined(parts) + "]"; }

std::string help_attribute(std::string_view help) { return "helpstring(" + quoted(help) + ")"; }

/// Writes one library. A class of its own is known by its interface. A class of another library is an object that any
/// host may bring along, so its name stands for every object.
class Writer {
 public:
  explicit Writer(std::span<const RegisteredClass> classes) : classes_(classes) {}

  std::string body() const;

 private:
  const ClassDescription* own_class(std::string_view name) const {
    for (const RegisteredClass& known : classes_)
      if (known.description->name == name) return known.description;
    return nullptr;
  }
  std::vector<std::string_view> foreign_classes() const;
  std::string type_text(ValueType type, std::string_view class_name) const;
  std::string parameter_text(const Parameter& row) const;
  std::string parameter_list(std::span<const Parameter> rows) const;
  std::string member_text(const Member& row) const;
  std::string interface_text(const ClassDescription& surface) const;
  std::string events_text(const ClassDescription& surface) const;

  std::span<const RegisteredClass> classes_;
};

std::vector<std::string_view> Writer::foreign_classes() const {
  std::vector<std::string_view> names;
  const auto add = [&](std::string_view name) {
    if (!name.empty() && !own_class(name) && std::find(names.begin(), names.end(), name) == names.end())
      names.push_back(name);
  };
  for (const RegisteredClass& known : classes_)
    for (const Member& row : known.description->members) {
      add(row.result_class);
      for (const Parameter& parameter : row.parameters()) add(parameter.class_name);
    }
  return names;
}

std::string Writer::type_text(ValueType type, std::string_view class_name) const {
  constexpr std::array<std::string_view, 11> names{
      "void", "VARIANT",    "VARIANT_BOOL",      "short", "long", "float", "double", "DATE",
      "BSTR", "IDispatch*", "SAFEARRAY(VARIANT)"};
  if (class_name.empty()) return std::string(names.at(static_cast<size_t>(type)));
  const ClassDescription* const own = own_class(class_name);
  return std::string(own ? own->interface_name : class_name) + "*";
}

std::string default_attribute(const Parameter& row) {
  const std::string value = automation::default_text(row.default_value);
  if (value.empty()) return {};
  if (row.type == ValueType::boolean) return value == "True" ? "defaultvalue(-1)" : "defaultvalue(0)";
  return "defaultvalue(" + value + ")";
}

std::string Writer::parameter_text(const Parameter& row) const {
  std::vector<std::string> marks{"in"};
  if (row.writes_back) marks.emplace_back("out");
  const bool variant = row.writes_back || row.type == ValueType::variant;
  if (row.optional || (row.missable && variant)) marks.emplace_back("optional");
  // A VARIANT that is left out says so itself.
  if (const std::string value = default_attribute(row); !value.empty() && !variant) marks.push_back(value);
  const std::string type = row.writes_back ? "VARIANT*" : type_text(row.type, row.class_name);
  return attributes(marks).append(" ").append(type).append(" ").append(row.name);
}

std::string Writer::parameter_list(std::span<const Parameter> rows) const {
  std::vector<std::string> parts;
  for (const Parameter& row : rows) parts.push_back(parameter_text(row));
  return "(" + joined(parts) + ")";
}

std::string Writer::member_text(const Member& row) const {
  std::vector<std::string> marks{"id(" + std::to_string(row.id) + ")"};
  if (row.kind != MemberKind::method) marks.push_back("prop" + std::string(automation::kind_name(row.kind)));
  marks.push_back(help_attribute(row.help));
  return "    " + attributes(marks) + " " + type_text(row.result, row.result_class) + " " + std::string(row.name) +
         parameter_list(row.parameters()) + ";\n";
}

std::string Writer::interface_text(const ClassDescription& surface) const {
  std::string text =
      attributes({uuid_attribute(surface.library, surface.interface_name), help_attribute(surface.help)});
  text.append("\n  dispinterface ").append(surface.interface_name).append(" {\n    properties:\n    methods:\n");
  for (const Member& row : surface.members) text += member_text(row);
  if (surface.first_item) text += "    [id(-4), propget, restricted] IUnknown* _NewEnum();\n";
  return "  " + text + "  };\n";
}

std::string Writer::events_text(const ClassDescription& surface) const {
  std::string text = attributes({uuid_attribute(surface.library, surface.event_interface), "helpstring(\"Events.\")"});
  text.append("\n  dispinterface ").append(surface.event_interface).append(" {\n    properties:\n    methods:\n");
  for (const automation::Event& row : surface.events)
    text += "    " + attributes({"id(" + std::to_string(row.id) + ")", help_attribute(row.help)}) + " void " +
            std::string(row.name) + parameter_list(row.parameters()) + ";\n";
  return "  " + text + "  };\n";
}

std::string class_text(const RegisteredClass& known) {
  const ClassDescription& surface = *known.description;
  std::vector<std::string> marks{uuid_attribute(surface.library, surface.name), help_attribute(surface.help)};
  if (!known.is_creatable()) marks.emplace_back("noncreatable");
  std::string text = "  " + attributes(marks);
  text.append("\n  coclass ").append(surface.name).append(" {\n    [default] dispinterface ");
  text.append(surface.interface_name).append(";\n");
  if (!surface.event_interface.empty())
    text.append("    [default, source] dispinterface ").append(surface.event_interface).append(";\n");
  return text += "  };\n";
}

std::string Writer::body() const {
  std::string text;
  // Not of IDispatch*: as the type of a parameter, the compiler would make a broken copy of the name.
  for (const std::string_view name : foreign_classes())
    text.append("  [public] typedef IDispatch ").append(name).append(";\n");
  // Members may name interfaces that come later.
  for (const RegisteredClass& known : classes_)
    text.append("  dispinterface ").append(known.description->interface_name).append(";\n");
  for (const RegisteredClass& known : classes_) {
    text += interface_text(*known.description);
    if (!known.description->event_interface.empty()) text += events_text(*known.description);
  }
  for (const RegisteredClass& known : classes_) text += class_text(known);
  return text;
}

}  // namespace

std::string idl_text(std::string_view library, std::string_view help, std::span<const RegisteredClass> classes) {
  std::string text(prelude);
  text += attributes({uuid_attribute(library, ""), "version(1.0)", help_attribute(help)});
  text.append("\nlibrary ").append(library).append(" {\n  importlib(\"stdole2.tlb\");\n");
  text += Writer(classes).body();
  return text += "};\n";
}

}  // namespace vestara::idl
