#include "automation/com/values/safe_array.h"

#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include "automation/com/values/value.h"
#include "automation/error.h"

namespace automation::com {
namespace {

VariantKind kind_of(VARTYPE element) {
  switch (element) {
    case VT_BOOL:
      return VariantKind::boolean;
    case VT_I1:
    case VT_UI1:
    case VT_I2:
      return VariantKind::integer;
    case VT_UI2:
    case VT_I4:
    case VT_INT:
      return VariantKind::long_integer;
    case VT_R4:
      return VariantKind::single;
    case VT_R8:
    case VT_CY:
      return VariantKind::double_precision;
    case VT_DATE:
      return VariantKind::date;
    case VT_BSTR:
      return VariantKind::text;
    case VT_DISPATCH:
      return VariantKind::object;
    default:
      return VariantKind::empty;
  }
}

/// The elements of an array while they are read or written.
class Access {
 public:
  explicit Access(SAFEARRAY* array) : array_(array) {
    if (FAILED(SafeArrayAccessData(array, &data_))) throw array_is_locked();
  }
  Access(const Access&) = delete;
  Access& operator=(const Access&) = delete;
  ~Access() { SafeArrayUnaccessData(array_); }
  char* at(size_t place) const { return static_cast<char*>(data_) + place * SafeArrayGetElemsize(array_); }

 private:
  SAFEARRAY* array_;
  void* data_ = nullptr;
};

std::vector<Array::Bound> bounds_of(SAFEARRAY* array) {
  std::vector<Array::Bound> bounds;
  for (UINT dimension = 1; dimension <= SafeArrayGetDim(array); ++dimension) {
    LONG lower = 0;
    LONG upper = -1;
    SafeArrayGetLBound(array, dimension, &lower);
    SafeArrayGetUBound(array, dimension, &upper);
    bounds.push_back({static_cast<int32_t>(lower), static_cast<int32_t>(upper - lower + 1)});
  }
  return bounds;
}

Variant element_at(char* place, VARTYPE type) {
  VARIANT reference;
  VariantInit(&reference);
  reference.vt = type | VT_BYREF;
  reference.byref = place;
  return from_value(reference);
}

/// Puts one value in its place, whose memory is all zero.
void put_element(const Variant& value, char* place, VARTYPE type) {
  Value stored;
  to_typed_value(value, type, stored.get());
  const bool whole = type == VT_VARIANT || type == VT_DECIMAL;
  std::memcpy(place, whole ? static_cast<void*>(stored.put()) : &stored->byref, size_of(type));
  stored->vt = VT_EMPTY;
}

struct Destroy {
  void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};

}  // namespace

Array from_safe_array(SAFEARRAY* array) {
  if (!array) return {};
  VARTYPE type = VT_EMPTY;
  if (FAILED(SafeArrayGetVartype(array, &type)) || size_of(type) == 0) throw unsupported_type();
  Array result(kind_of(type), bounds_of(array));
  if (result.items().empty()) return result;
  const Access elements(array);
  for (size_t i = 0; i < result.items().size(); ++i) result.items()[i] = element_at(elements.at(i), type);
  return result;
}

SAFEARRAY* to_safe_array(const Array& array, VARTYPE element) {
  std::vector<SAFEARRAYBOUND> bounds;
  for (const Array::Bound& bound : array.bounds()) bounds.push_back({static_cast<ULONG>(bound.count), bound.lower});
  if (bounds.empty()) bounds.push_back({0, 0});
  std::unique_ptr<SAFEARRAY, Destroy> result(SafeArrayCreate(element, static_cast<UINT>(bounds.size()), bounds.data()));
  if (!result) throw std::bad_alloc();
  if (array.items().empty()) return result.release();
  const Access elements(result.get());
  for (size_t i = 0; i < array.items().size(); ++i) put_element(array.items()[i], elements.at(i), element);
  return result.release();
}

}  // namespace automation::com
