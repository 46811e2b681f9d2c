#include "automation/describe.h"

#include <array>
#include <cstdio>

namespace automation {
namespace {

std::string json_text(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      result += '\\';
      result += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      std::array<char, 8> escape{};
      std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(c));
      result += escape.data();
    } else {
      result += c;
    }
  }
  return result += '"';
}

std::string field(std::string_view name, std::string_view json) { return json_text(name).append(":").append(json); }

std::string_view truth(bool value) { return value ? "true" : "false"; }

template <class Rows, class Write>
std::string list(const Rows& rows, Write write) {
  std::string json = "[";
  for (const auto& row : rows) json.append(json.size() == 1 ? "" : ",").append(write(row));
  return json += "]";
}

std::string parameter_json(const Parameter& row) {
  const std::string value = default_text(row.default_value);
  return "{" + field("name", json_text(row.name)) + "," +
         field("type", json_text(type_name(row.type, row.class_name))) + "," +
         field("passing", row.passing == Passing::by_value ? "\"by value\"" : "\"by reference\"") + "," +
         field("optional", truth(row.optional)) + "," + field("default", value.empty() ? "null" : json_text(value)) +
         "," + field("writes_back", truth(row.writes_back)) + "}";
}

std::string member_json(const Member& row) {
  return "{" + field("id", std::to_string(row.id)) + "," + field("kind", json_text(kind_name(row.kind))) + "," +
         field("name", json_text(row.name)) + "," + field("parameters", list(row.parameters(), parameter_json)) + "," +
         field("result", json_text(type_name(row.result, row.result_class))) + "," +
         field("help", json_text(row.help)) + "}";
}

std::string event_json(const Event& row) {
  return "{" + field("id", std::to_string(row.id)) + "," + field("name", json_text(row.name)) + "," +
         field("parameters", list(row.parameters(), parameter_json)) + "," + field("help", json_text(row.help)) + "}";
}

}  // namespace

std::string type_name(ValueType type, std::string_view class_name) {
  constexpr std::array<std::string_view, 11> names{"Nothing", "Variant", "Boolean", "Integer", "Long", "Single",
                                                   "Double",  "Date",    "String",  "Object",  "Array"};
  if (type == ValueType::object && !class_name.empty()) return std::string(class_name);
  return std::string(names.at(static_cast<size_t>(type)));
}

std::string_view kind_name(MemberKind kind) {
  constexpr std::array<std::string_view, 4> names{"method", "get", "put", "putref"};
  return names.at(static_cast<size_t>(kind));
}

std::string default_text(const DefaultValue& value) {
  switch (value.kind) {
    case VariantKind::boolean:
      return value.number != 0 ? "True" : "False";
    case VariantKind::integer:
    case VariantKind::long_integer:
      return std::to_string(value.number);
    case VariantKind::text:
      return "\"" + std::string(value.text) + "\"";
    default:
      return {};
  }
}

std::string describe_json(const RegisteredClass& entry) {
  const ClassDescription& description = *entry.description;
  const std::string first_item = description.first_item ? std::to_string(*description.first_item) : "null";
  return "{" + field("library", json_text(description.library)) + "," + field("class", json_text(description.name)) +
         "," + field("interface", json_text(description.interface_name)) + "," +
         field("event_interface", json_text(description.event_interface)) + "," +
         field("creatable", truth(entry.is_creatable())) + "," + field("first_item", first_item) + "," +
         field("help", json_text(description.help)) + "," + field("members", list(description.members, member_json)) +
         "," + field("events", list(description.events, event_json)) + "}";
}

}  // namespace automation
