#include <cstring>
#include <new>

#include "automation/coercion.h"
#include "automation/com/system/text.h"
#include "automation/com/values/object_bridge.h"
#include "automation/com/values/safe_array.h"
#include "automation/com/values/value.h"
#include "automation/error.h"

namespace automation::com {
namespace {

/// Stores a value of each type in a VARIANT that holds nothing.
struct Store {
  VARIANT& target;

  void operator()(Empty) const {}
  void operator()(Null) const { target.vt = VT_NULL; }
  void operator()(Missing) const {
    target.vt = VT_ERROR;
    target.scode = DISP_E_PARAMNOTFOUND;
  }
  void operator()(bool value) const {
    target.vt = VT_BOOL;
    target.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
  void operator()(int16_t value) const {
    target.vt = VT_I2;
    target.iVal = value;
  }
  void operator()(int32_t value) const {
    target.vt = VT_I4;
    target.lVal = value;
  }
  void operator()(float value) const {
    target.vt = VT_R4;
    target.fltVal = value;
  }
  void operator()(double value) const {
    target.vt = VT_R8;
    target.dblVal = value;
  }
  void operator()(Date value) const {
    target.vt = VT_DATE;
    target.date = value.serial();
  }
  void operator()(const std::string& value) const {
    target.bstrVal = to_bstr(value);
    target.vt = VT_BSTR;
  }
  void operator()(const Ref<Object>& value) const {
    target.pdispVal = hand_out(value);
    target.vt = VT_DISPATCH;
  }
  void operator()(const Array& value) const {
    target.parray = to_safe_array(value, VT_VARIANT);
    target.vt = VT_ARRAY | VT_VARIANT;
  }
};

/// The value as the kind of a type that has one; as it is for the others.
Variant coerced(const Variant& value, VARTYPE type) {
  switch (type) {
    case VT_BOOL:
      return to_boolean(value);
    case VT_I2:
      return to_integer(value);
    case VT_I4:
      return to_long(value);
    case VT_R4:
      return to_single(value);
    case VT_R8:
      return to_double(value);
    case VT_DATE:
      return to_date(value);
    case VT_BSTR:
      return to_text(value);
    default:
      return value;
  }
}

void change_type(VARIANT& value, VARTYPE type) {
  const HRESULT result = VariantChangeTypeEx(&value, &value, LOCALE_INVARIANT, 0, type);
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  if (result == DISP_E_OVERFLOW) throw overflow();
  if (FAILED(result)) throw type_mismatch();
}

/// Replaces what a variable of a fixed type holds; `value` is of that type and is moved in.
void replace(VARIANT& variable, VARIANT& value) {
  const VARTYPE type = variable.vt & static_cast<VARTYPE>(~VT_BYREF);
  VARIANT before;
  VariantInit(&before);
  if (type == VT_BSTR || type == VT_DISPATCH || type == VT_UNKNOWN || (type & VT_ARRAY) != 0) {
    before.vt = type;
    std::memcpy(&before.byref, variable.byref, sizeof(void*));
  }
  std::memcpy(variable.byref, type == VT_DECIMAL ? static_cast<void*>(&value) : &value.byref, size_of(type));
  value.vt = VT_EMPTY;
  VariantClear(&before);
}

}  // namespace

void to_value(const Variant& value, VARIANT& target) {
  VariantInit(&target);
  std::visit(Store{target}, value.storage());
}

void to_typed_value(const Variant& value, VARTYPE type, VARIANT& target) {
  VariantInit(&target);
  const auto* array = value.get_if<Array>();
  if (array && (type & VT_ARRAY) != 0) {
    target.parray = to_safe_array(*array, type & VT_TYPEMASK);
    target.vt = type;
    return;
  }
  to_value(coerced(value, type), target);
  if (type == VT_VARIANT || target.vt == type) return;
  try {
    change_type(target, type);
  } catch (...) {
    VariantClear(&target);
    throw;
  }
}

void write_back(const Variant& value, VARIANT& argument) {
  if (argument.vt == (VT_BYREF | VT_VARIANT)) {
    VARIANT& variable = *argument.pvarVal;
    if ((variable.vt & VT_BYREF) != 0) return write_back(value, variable);
    Value stored;
    to_value(value, stored.get());
    VariantClear(&variable);
    std::swap(variable, stored.get());
    return;
  }
  const VARTYPE type = argument.vt & static_cast<VARTYPE>(~VT_BYREF);
  Value stored;
  to_typed_value(value, type, stored.get());
  replace(argument, stored.get());
}

}  // namespace automation::com
