#include "hosts/cli/programming/surface_text.h"

#include <algorithm>
#include <span>

#include "automation/describe.h"

namespace vestara::host {
namespace {

using automation::Member;
using automation::MemberKind;
using automation::Parameter;

std::string parameter_text(const Parameter& row) {
  std::string text;
  if (row.writes_back) text += "out ";
  if (row.passing == automation::Passing::by_value) text += "ByVal ";
  text.append(row.name).append(" As ").append(automation::type_name(row.type, row.class_name));
  if (!row.optional) return text;
  const std::string value = automation::default_text(row.default_value);
  if (!value.empty()) text.append(" = ").append(value);
  return "[" + text + "]";
}

std::string parameter_list(std::span<const Parameter> rows) {
  std::string text = "(";
  for (const Parameter& row : rows) text.append(text.size() == 1 ? "" : ", ").append(parameter_text(row));
  return text += ")";
}

std::string padded(std::string text, size_t width) {
  text.resize(std::max(width, text.size() + 1), ' ');
  return text;
}

std::string line(int32_t id, std::string_view kind, const std::string& text, std::string_view help) {
  constexpr size_t id_width = 4;
  constexpr size_t kind_width = 8;
  std::string result = padded(std::to_string(id), id_width) + padded(std::string(kind), kind_width) + text;
  if (!help.empty()) result.append("  ' ").append(help);
  return result += "\n";
}

}  // namespace

std::string signature(const Member& row) {
  std::string text(row.name);
  if (row.kind != MemberKind::get || row.parameter_count != 0) text += parameter_list(row.parameters());
  if (row.result != automation::ValueType::nothing)
    text.append(" As ").append(automation::type_name(row.result, row.result_class));
  return text;
}

std::string surface_text(const automation::RegisteredClass& known) {
  const automation::ClassDescription& surface = *known.description;
  std::string text = "class       " + surface.identifier();
  if (!known.is_creatable()) text += ", only handed out";
  text.append("  ' ").append(surface.help).append("\ninterface   ").append(surface.interface_name).append("\n");
  for (const Member& row : surface.members)
    text += line(row.id, automation::kind_name(row.kind), signature(row), row.help);
  if (surface.event_interface.empty()) return text;
  text.append("events      ").append(surface.event_interface).append("\n");
  for (const automation::Event& row : surface.events)
    text += line(row.id, "event", std::string(row.name) + parameter_list(row.parameters()), row.help);
  return text;
}

}  // namespace vestara::host
