#include "automation/com/values/host_arguments.h"

#include <utility>

#include "automation/com/values/frame.h"
#include "automation/com/values/value.h"

namespace automation::com {
namespace {

VARIANT reference_to(VARIANT& value, Reference reference) {
  VARIANT result;
  VariantInit(&result);
  if (reference == Reference::variant) {
    result.vt = VT_BYREF | VT_VARIANT;
    result.pvarVal = &value;
  } else {
    result.vt = VT_BYREF | VT_DISPATCH;
    result.ppdispVal = &value.pdispVal;
  }
  return result;
}

}  // namespace

HostArguments::HostArguments(std::span<const Variant> arguments, InvokeKind kind, Reference reference)
    : values_(arguments.size()), handed_(arguments.size()) {
  const size_t count = arguments.size();
  for (size_t i = 0; i < count; ++i) {
    const bool is_reference = arguments[i].is_object() && !assigns(kind);
    to_value(arguments[i], values_[i]);
    handed_[count - 1 - i] = is_reference ? reference_to(values_[i], reference) : values_[i];
    references_ = references_ || is_reference;
  }
  parameters_ = {handed_.data(), assigns(kind) ? &new_value_ : nullptr, static_cast<UINT>(count),
                 assigns(kind) ? 1U : 0U};
}

HostArguments::~HostArguments() {
  for (VARIANT& value : values_) VariantClear(&value);
}

void HostArguments::give_back(std::span<Variant> arguments) const {
  for (size_t i = 0; i < arguments.size(); ++i)
    if (arguments[i].is_object()) arguments[i] = from_value(values_[i]);
}

}  // namespace automation::com
