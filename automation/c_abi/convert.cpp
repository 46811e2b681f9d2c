#include "automation/c_abi/convert.h"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <mutex>
#include <string>
#include <unordered_map>

#include "automation/c_abi/failure.h"

namespace automation::c_abi {
namespace {

/// Counts that hosts hold, by handle: watched in debug builds or on request, because it costs a look-up a call.
class HandleWatch {
 public:
  HandleWatch() : active_(wanted()) {}
  bool active() const { return active_; }
  void add(au_object* handle) {
    const std::lock_guard lock(mutex_);
    ++counts_[handle];
  }
  void require(au_object* handle) {
    const std::lock_guard lock(mutex_);
    if (counts_.find(handle) == counts_.end()) throw Misuse{AU_BAD_HANDLE, "not a live object"};
  }
  void remove(au_object* handle) {
    const std::lock_guard lock(mutex_);
    const auto found = counts_.find(handle);
    if (found == counts_.end()) throw Misuse{AU_BAD_HANDLE, "the object was released already"};
    if (--found->second == 0) counts_.erase(found);
  }

 private:
  static bool wanted() {
    const char* setting = std::getenv("AUTOMATION_CHECK_HANDLES");
    if (setting) return *setting == '1';
#if defined(NDEBUG)
    return false;
#else
    return true;
#endif
  }

  bool active_;
  std::mutex mutex_;
  std::unordered_map<au_object*, int64_t> counts_;
};

HandleWatch& watch() {
  // Never destroyed: hosts may release their last objects while the process ends.
  static auto* const handles = new HandleWatch;
  return *handles;
}

Object* raw(au_object* handle) { return reinterpret_cast<Object*>(handle); }

au_array* new_array(const Array& array) { return new au_array{array}; }

void store_text(std::string_view text, au_value& target) {
  auto* bytes = static_cast<char*>(std::malloc(text.size() + 1));
  if (!bytes) throw std::bad_alloc();
  if (!text.empty()) std::memcpy(bytes, text.data(), text.size());
  bytes[text.size()] = '\0';
  target.kind = AU_TEXT;
  target.owned = 1;
  target.as.text = {bytes, text.size()};
}

/// Stores a value of each type; `target` is Empty before.
struct Store {
  au_value& target;

  void number(au_kind kind, int32_t value) const {
    target.kind = kind;
    target.as.number = value;
  }
  void real(au_kind kind, double value) const {
    target.kind = kind;
    target.as.real = value;
  }
  void operator()(Empty) const {}
  void operator()(Null) const { target.kind = AU_NULL; }
  void operator()(Missing) const { target.kind = AU_MISSING; }
  void operator()(bool value) const { number(AU_BOOLEAN, value ? 1 : 0); }
  void operator()(int16_t value) const { number(AU_INTEGER, value); }
  void operator()(int32_t value) const { number(AU_LONG, value); }
  void operator()(float value) const { real(AU_SINGLE, value); }
  void operator()(double value) const { real(AU_DOUBLE, value); }
  void operator()(Date value) const { real(AU_DATE, value.serial()); }
  void operator()(const std::string& value) const { store_text(value, target); }
  void operator()(const Ref<Object>& value) const {
    target.as.described = {hand_out(value), value ? &value->description() : nullptr};
    target.kind = AU_OBJECT;
    target.owned = 1;
  }
  void operator()(const Array& value) const {
    target.as.array = new_array(value);
    target.kind = AU_ARRAY;
    target.owned = 1;
  }
};

int16_t sixteen_bits(int32_t number) {
  if (number < std::numeric_limits<int16_t>::min() || number > std::numeric_limits<int16_t>::max()) throw overflow();
  return static_cast<int16_t>(number);
}

Variant text_in(const au_value& value) {
  if (!value.as.text.bytes && value.as.text.length != 0) throw Misuse{AU_BAD_ARGUMENT, "a text without bytes"};
  return std::string(value.as.text.bytes ? value.as.text.bytes : "", value.as.text.length);
}

}  // namespace

Object& object_of(au_object* handle) {
  if (!handle) throw Misuse{AU_BAD_HANDLE, "the object is null"};
  if (watch().active()) watch().require(handle);
  return *raw(handle);
}

au_object* hand_out(const Ref<Object>& object) {
  if (!object) return nullptr;
  auto* handle = reinterpret_cast<au_object*>(object.get());
  if (watch().active()) watch().add(handle);
  object->retain();
  return handle;
}

void share(au_object* handle) {
  object_of(handle).retain();
  if (watch().active()) watch().add(handle);
}

void take_back(au_object* handle) {
  if (!handle) throw Misuse{AU_BAD_HANDLE, "the object is null"};
  if (watch().active()) watch().remove(handle);
  raw(handle)->release();
}

Array& array_of(const au_value& value) {
  if (value.kind != AU_ARRAY || !value.as.array) throw Misuse{AU_BAD_ARGUMENT, "the value holds no array"};
  return value.as.array->array;
}

Variant from_value(const au_value& value) {
  switch (value.kind) {
    case AU_EMPTY:
      return {};
    case AU_NULL:
      return Null{};
    case AU_MISSING:
      return Missing{};
    case AU_BOOLEAN:
      return value.as.number != 0;
    case AU_INTEGER:
      return sixteen_bits(value.as.number);
    case AU_LONG:
      return value.as.number;
    case AU_SINGLE:
      return static_cast<float>(value.as.real);
    case AU_DOUBLE:
      return value.as.real;
    case AU_DATE:
      return Date::from_serial(value.as.real);
    case AU_TEXT:
      return text_in(value);
    case AU_OBJECT:
      return value.as.object ? Ref<Object>(&object_of(value.as.object)) : Ref<Object>();
    case AU_ARRAY:
      return array_of(value);
    default:
      throw Misuse{AU_BAD_ARGUMENT, "a value of no known kind"};
  }
}

bool holds(const au_value& value, const Variant& wanted) {
  if (static_cast<au_kind>(wanted.kind()) != value.kind) return false;
  if (const auto* text = wanted.get_if<std::string>())
    return *text == std::string_view(value.as.text.bytes ? value.as.text.bytes : "", value.as.text.length);
  if (const auto* array = wanted.get_if<Array>()) return *array == array_of(value);
  return wanted == from_value(value);
}

void to_value(const Variant& source, au_value& target) {
  // The source may be what the target holds: an element of its array.
  au_value stored{};
  std::visit(Store{stored}, source.storage());
  au_clear(&target);
  target = stored;
}

// The other constructor has made the object: its destructor runs when an argument cannot be converted.
Values::Values(std::span<const Variant> arguments, size_t more) : Values(arguments.size() + more) {
  for (size_t i = 0; i < arguments.size(); ++i) to_value(arguments[i], values_[i]);
}

Values::~Values() {
  for (au_value& value : values_) au_clear(&value);
}

}  // namespace automation::c_abi

using automation::c_abi::guarded;
using automation::c_abi::required;

void au_clear(au_value* value) {
  if (!value) return;
  if (value->owned != 0) {
    guarded([&] {
      if (value->kind == AU_TEXT) std::free(const_cast<char*>(value->as.text.bytes));
      if (value->kind == AU_OBJECT && value->as.object) automation::c_abi::take_back(value->as.object);
      if (value->kind == AU_ARRAY) delete value->as.array;
    });
  }
  *value = au_value{};
}

au_status au_set_text(au_value* value, const char* bytes, size_t length) {
  return guarded([&] {
    const au_value borrowed{AU_TEXT, 0, {.text = {bytes, length}}};
    automation::c_abi::to_value(automation::c_abi::from_value(borrowed), required(value));
  });
}

au_status au_set_object(au_value* value, au_object* object) {
  return guarded([&] {
    const au_value borrowed{AU_OBJECT, 0, {.object = object}};
    automation::c_abi::to_value(automation::c_abi::from_value(borrowed), required(value));
  });
}
