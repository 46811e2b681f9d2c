#include "automation/com/values/value.h"

#include <cstring>
#include <limits>
#include <type_traits>

#include "automation/com/system/text.h"
#include "automation/com/values/object_bridge.h"
#include "automation/com/values/safe_array.h"
#include "automation/error.h"

namespace automation::com {
namespace {

/// Whole numbers as the smallest kind that script hosts would choose.
template <class Whole>
Variant whole(Whole value) {
  if (value <= static_cast<Whole>(std::numeric_limits<int32_t>::max()) &&
      (std::is_unsigned_v<Whole> || value >= static_cast<Whole>(std::numeric_limits<int32_t>::min())))
    return static_cast<int32_t>(value);
  return static_cast<double>(value);
}

Variant from_decimal(DECIMAL decimal) {
  double value = 0;
  if (FAILED(VarR8FromDec(&decimal, &value))) throw overflow();
  return value;
}

/// A date near a full second is that second, as scripts show it: the platform carries, also into the next day.
Date from_variant_time(DATE moment) {
  SYSTEMTIME parts{};
  Date::from_serial(moment);  // refuses what the platform's reading does not look at
  if (!VariantTimeToSystemTime(moment, &parts)) throw overflow();
  const auto date =
      Date::from_civil({parts.wYear, parts.wMonth, parts.wDay, parts.wHour, parts.wMinute, parts.wSecond});
  if (!date) throw overflow();
  return *date;
}

Variant from_error(SCODE code) {
  if (code == DISP_E_PARAMNOTFOUND) return Missing{};
  return static_cast<int32_t>(code);
}

}  // namespace

size_t size_of(VARTYPE type) {
  if ((type & VT_ARRAY) != 0) return sizeof(SAFEARRAY*);
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return sizeof(void*);
    case VT_DECIMAL:
      return sizeof(DECIMAL);
    case VT_VARIANT:
      return sizeof(VARIANT);
    default:
      return 0;
  }
}

VARIANT borrowed(const VARIANT& value) {
  if ((value.vt & VT_BYREF) == 0) return value;
  const VARTYPE type = value.vt & static_cast<VARTYPE>(~VT_BYREF);
  const size_t size = size_of(type);
  if (!value.byref || size == 0) throw unsupported_type();
  if (type == VT_VARIANT) return borrowed(*value.pvarVal);
  VARIANT plain;
  VariantInit(&plain);
  // A decimal fills the whole VARIANT, with the type where it keeps nothing.
  std::memcpy(type == VT_DECIMAL ? static_cast<void*>(&plain) : &plain.byref, value.byref, size);
  plain.vt = type;
  return plain;
}

Variant from_value(const VARIANT& given) {
  const VARIANT value = borrowed(given);
  if ((value.vt & VT_ARRAY) != 0) return from_safe_array(value.parray);
  switch (value.vt) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return Null{};
    case VT_ERROR:
      return from_error(value.scode);
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE;
    case VT_I1:
      return static_cast<int16_t>(static_cast<signed char>(value.cVal));
    case VT_UI1:
      return static_cast<int16_t>(value.bVal);
    case VT_I2:
      return static_cast<int16_t>(value.iVal);
    case VT_UI2:
      return static_cast<int32_t>(value.uiVal);
    case VT_I4:
    case VT_INT:
      return static_cast<int32_t>(value.lVal);
    case VT_UI4:
    case VT_UINT:
      return whole(value.ulVal);
    case VT_I8:
      return whole(value.llVal);
    case VT_UI8:
      return whole(value.ullVal);
    case VT_R4:
      return value.fltVal;
    case VT_R8:
      return value.dblVal;
    case VT_CY:
      return static_cast<double>(value.cyVal.int64) / 10000;
    case VT_DECIMAL:
      return from_decimal(value.decVal);
    case VT_DATE:
      return from_variant_time(value.date);
    case VT_BSTR:
      return from_bstr(value.bstrVal);
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return take_in(value.punkVal);
    default:
      throw unsupported_type();
  }
}

}  // namespace automation::com
