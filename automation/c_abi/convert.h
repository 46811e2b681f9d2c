#pragma once

#include <cstddef>
#include <span>
#include <vector>

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

/// Misuse for a kind that does not exist, or a text without bytes.
Variant from_value(const au_value& value);
/// True when the value is this one already; compared in place, without a copy of its text or array.
bool holds(const au_value& value, const Variant& wanted);
/// Gives back what `target` held, which `source` may be part of; what it then holds is owned.
void to_value(const Variant& source, au_value& target);
/// The array in a value. Misuse when it holds none.
Array& array_of(const au_value& value);

/// What a host's callback is given: the values of the arguments, one after the other, and `more` empty ones after them.
/// All are given back at the end, also when one cannot be made.
class Values {
 public:
  explicit Values(std::span<const Variant> arguments, size_t more = 0);
  ~Values();
  Values(const Values&) = delete;
  Values& operator=(const Values&) = delete;

  au_value* data() { return values_.data(); }
  const au_value* data() const { return values_.data(); }
  au_value& at(size_t place) { return values_[place]; }

 private:
  explicit Values(size_t count) : values_(count) {}

  std::vector<au_value> values_;
};

}  // namespace automation::c_abi
