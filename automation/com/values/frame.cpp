#include "automation/com/values/frame.h"

#include "automation/com/values/value.h"
#include "automation/error.h"
#include "automation/text.h"

namespace automation::com {
namespace {

bool assigns(MemberKind kind) { return kind == MemberKind::put || kind == MemberKind::putref; }

bool is_object(const VARIANT& given) {
  const VARTYPE type = borrowed(given).vt;
  return type == VT_DISPATCH || type == VT_UNKNOWN;
}

}  // namespace

InvokeKind kind_of(WORD flags, const DISPPARAMS& given) {
  constexpr WORD both = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
  if ((flags & both) == both)
    return given.cArgs > 0 && is_object(given.rgvarg[0]) ? InvokeKind::putref : InvokeKind::put;
  if ((flags & DISPATCH_PROPERTYPUTREF) != 0) return InvokeKind::putref;
  if ((flags & DISPATCH_PROPERTYPUT) != 0) return InvokeKind::put;
  return (flags & DISPATCH_METHOD) != 0 ? InvokeKind::method : InvokeKind::get;
}

const Member* find_member(const ClassDescription& description, int32_t id, InvokeKind kind) {
  for (const Member& row : description.members)
    if (row.id == id && assigns(row.kind) == assigns(kind)) return &row;
  return nullptr;
}

Frame::Frame(const ClassDescription& description, int32_t id, InvokeKind kind, const DISPPARAMS& given)
    : description_(description), id_(id), kind_(kind), given_(given), count_(given.cArgs) {
  if (count_ > arguments_.size() || given.cNamedArgs > count_) throw wrong_argument_count();
  for (size_t i = 0; i < count_; ++i) {
    const VARIANT& argument = given_at(i);
    if ((argument.vt & VT_BYREF) != 0) any_reference_ = true;
    arguments_[i] = from_value(argument);
  }
  // The new value of an assignment bears a name of its own and is the last argument anyway.
  if (given.cNamedArgs == 0 || (assigns(kind) && given.cNamedArgs == 1)) return;
  if (assigns(kind)) throw no_named_arguments();
  named_ = given.cNamedArgs;
  const auto parameters = member().parameters();
  for (size_t i = 0; i < named_; ++i) {
    const auto place = static_cast<size_t>(given.rgdispidNamedArgs[named_ - 1 - i]);
    if (place >= parameters.size()) throw named_argument_not_found();
    names_[i] = parameters[place].name;
  }
}

const Member& Frame::member() const {
  if (const Member* row = find_member(description_, id_, kind_)) return *row;
  throw no_such_member();
}

const Parameter* Frame::parameter_of(const Member& row, size_t place) const {
  const auto parameters = row.parameters();
  const size_t positional = count_ - named_;
  if (place < positional) return place < parameters.size() ? &parameters[place] : nullptr;
  for (const Parameter& parameter : parameters)
    if (parameter.name == names_[place - positional]) return &parameter;
  return nullptr;
}

void Frame::give_back() {
  if (!any_reference_) return;
  const Member& row = member();
  for (size_t i = 0; i < count_; ++i) {
    VARIANT& argument = given_at(i);
    const Parameter* parameter = parameter_of(row, i);
    if ((argument.vt & VT_BYREF) == 0 || !parameter || !parameter->writes_back) continue;
    if (!(from_value(argument) == arguments_[i])) write_back(arguments_[i], argument);
  }
}

}  // namespace automation::com
