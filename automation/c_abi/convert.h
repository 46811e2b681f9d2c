#pragma once

#include "automation/c_abi/automation.h"
#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"

/// The body of an au_value that holds an array.
struct au_array {
  automation::Array array;
};

namespace automation::c_abi {

/// The object behind a handle. Misuse for null, and for one that is not live where handles are watched.
Object& object_of(au_object* handle);
/// A handle that holds one count more. Null for nothing.
au_object* hand_out(const Ref<Object>& object);
/// Gives the count of a handle back.
void take_back(au_object* handle);
/// A further count for a handle that the host holds already.
void share(au_object* handle);

/// Misuse for a kind that there is not, or a text without bytes.
Variant from_value(const au_value& value);
/// True when the value is this one already; compared in place, without a copy of its text or array.
bool holds(const au_value& value, const Variant& wanted);
/// Gives back what `target` held, which `source` may be part of; what it then holds is owned.
void to_value(const Variant& source, au_value& target);
/// The array in a value. Misuse when it holds none.
Array& array_of(const au_value& value);

}  // namespace automation::c_abi
