#include "hosts/cli/programming/call_arguments.h"

#include <algorithm>
#include <optional>

#include "automation/text.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/programming/literal.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

using automation::InvokeKind;
using automation::Member;
using automation::MemberKind;
using automation::Parameter;

const Parameter* parameter_named(const Member& row, std::string_view name) {
  const auto rows = row.parameters();
  const auto found = std::find_if(rows.begin(), rows.end(), [&](const Parameter& parameter) {
    return automation::equal_ignoring_case(parameter.name, name);
  });
  return found == rows.end() ? nullptr : &*found;
}

struct NamedWord {
  std::string name;
  std::string_view value;
};

std::optional<NamedWord> named_word(const Member& row, std::string_view word) {
  const auto sign = word.find('=');
  if (sign == std::string_view::npos || sign == 0) return std::nullopt;
  const bool is_explicit = word[sign - 1] == ':';
  const std::string_view name = word.substr(0, is_explicit ? sign - 1 : sign);
  const Parameter* parameter = parameter_named(row, name);
  if (!parameter && !is_explicit) return std::nullopt;
  return NamedWord{std::string(parameter ? parameter->name : name), word.substr(sign + 1)};
}

bool comes_back(const Parameter& row) {
  return row.writes_back && row.optional && row.default_value.kind != automation::VariantKind::missing;
}

void pass_what_comes_back(const Member& row, CallArguments& arguments) {
  const size_t positional = arguments.values.size() - arguments.names.size();
  const auto rows = row.parameters();
  for (size_t i = 0; i < rows.size(); ++i) {
    if (!comes_back(rows[i])) continue;
    const std::string name(rows[i].name);
    if (i < positional) {
      if (arguments.values[i].is_missing()) arguments.values[i] = rows[i].default_value.value();
    } else if (std::find(arguments.names.begin(), arguments.names.end(), name) == arguments.names.end()) {
      arguments.values.push_back(rows[i].default_value.value());
      arguments.names.push_back(name);
    }
  }
}

}  // namespace

const Member* row_for(const automation::ClassDescription& surface, std::string_view member, InvokeKind kind) {
  const bool assigns = kind == InvokeKind::put || kind == InvokeKind::putref;
  const Member* any = nullptr;
  for (const Member& row : surface.members) {
    if (!automation::equal_ignoring_case(row.name, member)) continue;
    if ((row.kind == MemberKind::put || row.kind == MemberKind::putref) == assigns) return &row;
    any = &row;
  }
  return any;
}

CallArguments call_arguments(const Member& row, const std::vector<std::string>& words) {
  CallArguments arguments;
  for (const std::string& word : words) {
    const auto named = named_word(row, word);
    if (!named && !arguments.names.empty())
      throw Failure(FailureKind::argument,
                    "argument " + shown(word) + " stands behind a named one; named ones go last");
    arguments.values.push_back(literal(named ? named->value : word));
    if (named) arguments.names.push_back(named->name);
  }
  pass_what_comes_back(row, arguments);
  return arguments;
}

std::string parameter_at(const Member& row, const CallArguments& arguments, size_t place) {
  const size_t positional = arguments.values.size() - arguments.names.size();
  if (place >= positional) return arguments.names.at(place - positional);
  const auto rows = row.parameters();
  return place < rows.size() ? std::string(rows[place].name) : std::string();
}

}  // namespace vestara::host
