#include "automation/com/faces/faces.h"

#include <mutex>
#include <string>
#include <unordered_map>

#include "automation/classes/product.h"
#include "automation/com/faces/host_object.h"
#include "automation/com/system/identifiers.h"
#include "automation/com/system/pointer.h"
#include "automation/com/values/object_bridge.h"
#include "automation/error.h"
#include "automation/member.h"

namespace automation::com {
namespace {

/// The face of every object of this library that a host holds, and the sisters that gave objects in.
struct Known {
  std::mutex mutex;
  std::unordered_map<const Object*, Dispatch*> faces;
  std::unordered_map<HMODULE, NativeLibrary*> sisters;
};

Known& known() {
  // Never destroyed: hosts may release their last objects while the process ends.
  static auto* const everything = new Known;
  return *everything;
}

/// Lies in the library that has the object's class.
const void* home_of(const Object& object) { return &object.description(); }

class OwnLibrary final : public NativeLibrary {
 public:
  IDispatch* hand_out_own(Object& object) override {
    const std::lock_guard lock(known().mutex);
    Dispatch*& face = known().faces[&object];
    if (!face || !face->share()) face = new Dispatch(Ref<Object>(&object));
    return face;
  }
};

/// Sisters stay loaded from the first object on: what they gave in is counted as an object, not by COM.
void remember(NativeLibrary* sister, const void* address) {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     static_cast<LPCWSTR>(address), &module);
  const std::lock_guard lock(known().mutex);
  known().sisters[module] = sister;
}

NativeLibrary& library_of(const Object& object) {
  if (is_own(home_of(object))) return own_library();
  const HMODULE module = module_of(home_of(object));
  const std::lock_guard lock(known().mutex);
  const auto found = known().sisters.find(module);
  return found == known().sisters.end() ? own_library() : *found->second;
}

Ref<Object> native_object(IUnknown* given) {
  Pointer<NativeObject> native;
  if (FAILED(given->QueryInterface(native_object_id(), native.out()))) return {};
  NativeLibrary* library = nullptr;
  const Ref<Object> object(native->object(&library));
  if (library == &own_library()) return object;
  if (!sisters_share_objects) return {};
  remember(library, home_of(*object));
  return object;
}

}  // namespace

const GUID& native_object_id() {
  static const GUID id =
      guid_of(uuid_of(std::string("object of ").append(product().version).append(" by " __VERSION__)));
  return id;
}

NativeLibrary& own_library() {
  static OwnLibrary library;
  return library;
}

void forget_face(const Object& object, const Dispatch& face) {
  const std::lock_guard lock(known().mutex);
  const auto found = known().faces.find(&object);
  if (found != known().faces.end() && found->second == &face) known().faces.erase(found);
}

IDispatch* hand_out(const Ref<Object>& object) {
  if (!object) return nullptr;
  if (IDispatch* given = given_by_host(*object)) return given;
  return library_of(*object).hand_out_own(*object);
}

Ref<Object> take_in(IUnknown* given) {
  if (!given) return {};
  if (Ref<Object> native = native_object(given)) return native;
  return host_object(given);
}

}  // namespace automation::com
