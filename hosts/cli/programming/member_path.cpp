#include "hosts/cli/programming/member_path.h"

#include <cstdint>
#include <utility>

#include "automation/error.h"
#include "automation/ref.h"
#include "automation/text.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/programming/literal.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

using automation::Object;
using automation::Ref;
using automation::Variant;

[[noreturn]] void refuse(std::string_view text) {
  throw Failure(FailureKind::argument, shown(text) + " is no way to an object; write it as Fields.Item(0)");
}

/// The pieces between separators that stand outside of quotes and parentheses. An open quote or parenthesis is
/// refused.
std::vector<std::string_view> pieces_of(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  char quote = 0;
  int depth = 0;
  size_t start = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '(') {
      ++depth;
    } else if (c == ')') {
      if (--depth < 0) refuse(text);
    } else if (c == separator && depth == 0) {
      pieces.push_back(text.substr(start, i - start));
      start = i + 1;
    }
  }
  if (quote != 0 || depth != 0) refuse(text);
  pieces.push_back(text.substr(start));
  return pieces;
}

bool is_name(std::string_view text) {
  constexpr std::string_view allowed = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
  return !text.empty() && text.find_first_not_of(allowed) == std::string_view::npos;
}

MemberStep parse_step(std::string_view text) {
  const auto open = text.find('(');
  const std::string_view name = automation::trim(text.substr(0, open));
  if (!is_name(name)) refuse(text);
  MemberStep step{std::string(name), {}};
  if (open == std::string_view::npos) return step;
  if (text.back() != ')') refuse(text);
  const std::string_view inside = text.substr(open + 1, text.size() - open - 2);
  if (automation::is_blank(inside)) return step;
  for (const std::string_view piece : pieces_of(inside, ',')) {
    const std::string_view word = automation::trim(piece);
    step.arguments.push_back(word.empty() ? Variant(automation::Missing{}) : literal(word));
  }
  return step;
}

}  // namespace

std::vector<MemberStep> parse_member_path(std::string_view text) {
  std::vector<MemberStep> path;
  for (const std::string_view piece : pieces_of(text, '.')) path.push_back(parse_step(automation::trim(piece)));
  return path;
}

Variant follow(Object& start, const std::vector<MemberStep>& path) {
  Variant value{Ref<Object>(&start)};
  for (MemberStep step : path) {
    const auto* object = value.get_if<Ref<Object>>();
    if (!object || !*object) throw automation::object_not_set();
    const Ref<Object> held = *object;
    value = held->call(step.name, automation::InvokeKind::get, step.arguments);
  }
  return value;
}

Variant follow(Object& start, std::string_view path) { return follow(start, parse_member_path(path)); }

}  // namespace vestara::host
