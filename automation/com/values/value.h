#pragma once

#include "automation/com/system/platform.h"
#include "automation/variant.h"

namespace automation::com {

/// A VARIANT that is cleared with its scope.
class Value {
 public:
  Value() { VariantInit(&value_); }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
  ~Value() { VariantClear(&value_); }
  VARIANT& get() { return value_; }
  VARIANT* put() { return &value_; }
  VARIANT* operator->() { return &value_; }

 private:
  VARIANT value_;
};

/// What a host's value says: references are followed, every numeric type is taken, an object of this library comes
/// back as itself and any other as one that calls its host. Error 458 for a type that has no meaning here, 6 for a date
/// out of range.
Variant from_value(const VARIANT& value);

/// Stores a value and does not clear what `target` held before. Arrays become arrays of VARIANT, the only ones that
/// scripts can index.
void to_value(const Variant& value, VARIANT& target);

/// The same as a value of this type. Error 13 when it does not fit, 6 when it is out of range.
void to_typed_value(const Variant& value, VARTYPE type, VARIANT& target);

/// Stores a value in the variable that a VT_BYREF argument points to, in that variable's own type. Errors as above.
void write_back(const Variant& value, VARIANT& argument);

/// A by-reference value as a plain one that borrows what the variable holds; any other as it is.
VARIANT borrowed(const VARIANT& value);

/// Bytes of one element of a type; 0 when it has no fixed size here.
size_t size_of(VARTYPE type);

}  // namespace automation::com
