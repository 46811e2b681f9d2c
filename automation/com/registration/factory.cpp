#include "automation/com/registration/factory.h"

#include "automation/com/registration/message_pump.h"
#include "automation/com/system/failure.h"
#include "automation/com/system/identifiers.h"
#include "automation/com/system/pointer.h"
#include "automation/com/values/object_bridge.h"

namespace automation::com {

HRESULT Factory::CreateInstance(IUnknown* outer, REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  return guarded([&] {
    const auto face = Pointer<IDispatch>::adopt(hand_out(entry_.create()));
    return face->QueryInterface(id, object);
  });
}

HRESULT Factory::LockServer(BOOL lock) {
  lock ? KeepsLoaded::add() : KeepsLoaded::remove();
  return S_OK;
}

HRESULT class_object(REFCLSID class_id, REFIID id, void** factory) noexcept {
  if (!factory) return E_POINTER;
  *factory = nullptr;
  return guarded([&]() -> HRESULT {
    install_message_pump();
    for (const RegisteredClass& entry : loaded_classes()) {
      if (identifiers_of(*entry.description).class_id != class_id) continue;
      const auto made = Pointer<Factory>::adopt(new Factory(entry));
      return made->QueryInterface(id, factory);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
  });
}

}  // namespace automation::com
