#pragma once  // installed

#include <atomic>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "automation/export.h"

namespace automation {

class EventSource;
class Variant;
struct ClassDescription;
template <class T>
class Ref;

/// What a caller by name wants of a member. A method and a property get are interchangeable, and so are the two forms
/// of assignment.
enum class InvokeKind : uint8_t { method, get, put, putref };

/// Base of everything that hosts hold: counted, and callable by name. An object may also live on the stack,
/// where its scope holds the first count.
class AUTOMATION_API Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object();

  void retain() const { count_.fetch_add(1, std::memory_order_relaxed); }
  void release() const {
    if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
  }

  virtual const ClassDescription& description() const = 0;

  /// The stable id of a member, found without regard to case; nothing when there is none.
  virtual std::optional<int32_t> id_of(std::string_view member) const;

  /// Calls a member by id. `arguments` are positional; the last `names.size()` of them are named instead. An
  /// assignment carries its new value last. Members that write back change `arguments` in place. Arguments of a
  /// property that has none go to the default member of the object it returns; error 451 when it returns no object.
  /// Errors: 28 (call_depth.h), 438, 448 to 450, conversion errors 6, 13, 91, 94, and whatever the member raises.
  virtual Variant invoke(int32_t id, InvokeKind kind, std::span<Variant> arguments,
                         std::span<const std::string_view> names = {});

  /// The same by name.
  Variant call(std::string_view member, InvokeKind kind, std::span<Variant> arguments,
               std::span<const std::string_view> names = {});

  /// The value of the default member (id 0). Error 438 when the class has none.
  Variant default_value();

  /// Where sinks connect; null when the class raises no events.
  virtual EventSource* event_source() { return nullptr; }
  /// The object as its host knows it: itself, or the host's own object that this one stands for.
  virtual Ref<Object> host_object();

 private:
  mutable std::atomic<int32_t> count_{1};
};

}  // namespace automation
