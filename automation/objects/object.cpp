#include "automation/object.h"

#include <algorithm>
#include <array>
#include <utility>

#include "automation/error.h"
#include "automation/member.h"
#include "automation/objects/call_depth.h"
#include "automation/text.h"
#include "automation/variant.h"

namespace automation {
namespace {

constexpr int32_t default_member = 0;

bool answers(MemberKind kind, InvokeKind wanted) {
  const bool assigns = kind == MemberKind::put || kind == MemberKind::putref;
  return assigns == (wanted == InvokeKind::put || wanted == InvokeKind::putref);
}

const Member& find_row(const ClassDescription& description, int32_t id, InvokeKind kind) {
  const Member* assignable = nullptr;
  bool known = false;
  for (const Member& row : description.members) {
    if (row.id != id) continue;
    known = true;
    if (!answers(row.kind, kind)) continue;
    // Where a property has both forms of assignment, the caller's own form goes first.
    const bool exact = (row.kind == MemberKind::putref) == (kind == InvokeKind::putref);
    if (exact || row.kind == MemberKind::method || row.kind == MemberKind::get) return row;
    assignable = &row;
  }
  if (assignable) return *assignable;
  throw known ? wrong_argument_count() : no_such_member();
}

Variant index_into(const Variant& value, std::span<Variant> indexes, std::span<const std::string_view> names) {
  const auto* object = value.get_if<Ref<Object>>();
  if (!object) throw no_object_returned();
  if (!*object) throw object_not_set();
  return (*object)->invoke(default_member, InvokeKind::get, indexes, names);
}

size_t place_of(const Member& row, std::string_view name) {
  const auto parameters = row.parameters();
  for (size_t i = 0; i < parameters.size(); ++i)
    if (equal_ignoring_case(parameters[i].name, name)) return i;
  throw named_argument_not_found();
}

/// The caller's arguments laid out as the row declares them, and put back after the call.
class Frame {
 public:
  Frame(const Member& row, std::span<Variant> given, std::span<const std::string_view> names)
      : parameters_(row.parameters()) {
    if (names.size() > given.size() || given.size() > parameters_.size()) throw wrong_argument_count();
    const size_t positional = given.size() - names.size();
    for (size_t i = 0; i < positional; ++i) place(i, given[i]);
    for (size_t i = 0; i < names.size(); ++i) place(place_of(row, names[i]), given[positional + i]);
    for (size_t i = 0; i < parameters_.size(); ++i)
      if (!sources_[i] && !parameters_[i].optional && !parameters_[i].missable) throw argument_not_optional();
    // Nothing can fail from here on, so the caller's values may move in.
    for (size_t i = 0; i < parameters_.size(); ++i)
      slots_[i] = sources_[i] ? std::move(*sources_[i]) : parameters_[i].default_value.value();
  }

  std::span<Variant> arguments() { return {slots_.data(), parameters_.size()}; }

  void give_back() {
    for (size_t i = 0; i < parameters_.size(); ++i)
      if (sources_[i]) *sources_[i] = std::move(slots_[i]);
  }

 private:
  /// Missing, said in so many words, counts as left out.
  void place(size_t at, Variant& given) {
    if (sources_[at]) throw wrong_argument_count();
    if (!given.is_missing()) sources_[at] = &given;
  }

  std::span<const Parameter> parameters_;
  std::array<Variant, most_parameters> slots_;
  std::array<Variant*, most_parameters> sources_{};
};

}  // namespace

Object::~Object() = default;

std::optional<int32_t> Object::id_of(std::string_view member) const {
  for (const Member& row : description().members)
    if (equal_ignoring_case(row.name, member)) return row.id;
  return std::nullopt;
}

Variant Object::invoke(int32_t id, InvokeKind kind, std::span<Variant> arguments,
                       std::span<const std::string_view> names) {
  const CallDepth inside(Caller::host);
  const Member& row = find_row(description(), id, kind);
  const bool in_order =
      names.empty() && arguments.size() == row.parameter_count &&
      std::none_of(arguments.begin(), arguments.end(), [](const Variant& v) { return v.is_missing(); });
  if (in_order) return row.thunk(*this, arguments);
  // A plain property with an index means the default member of what it returns: Fields("dtEstr").
  if (row.kind == MemberKind::get && row.parameter_count == 0 && !arguments.empty())
    return index_into(row.thunk(*this, {}), arguments, names);
  Frame frame(row, arguments, names);
  try {
    Variant result = row.thunk(*this, frame.arguments());
    frame.give_back();
    return result;
  } catch (...) {
    frame.give_back();
    throw;
  }
}

Variant Object::call(std::string_view member, InvokeKind kind, std::span<Variant> arguments,
                     std::span<const std::string_view> names) {
  const CallDepth inside(Caller::library);
  const auto id = id_of(member);
  if (!id) throw no_such_member();
  return invoke(*id, kind, arguments, names);
}

Ref<Object> Object::host_object() { return Ref<Object>(this); }

Variant Object::default_value() {
  const CallDepth inside(Caller::library);
  return invoke(default_member, InvokeKind::get, {});
}

}  // namespace automation
