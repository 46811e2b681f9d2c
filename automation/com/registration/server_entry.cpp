// The entry points of a library as a COM server. Compiled into every library that has classes.

#include "automation/com/registration/factory.h"
#include "automation/com/registration/server_registration.h"
#include "automation/com/system/module.h"

extern "C" {

HRESULT STDMETHODCALLTYPE DllGetClassObject(REFCLSID class_id, REFIID id, void** factory) {
  return automation::com::class_object(class_id, id, factory);
}

HRESULT STDMETHODCALLTYPE DllCanUnloadNow() { return automation::com::KeepsLoaded::none() ? S_OK : S_FALSE; }

HRESULT STDMETHODCALLTYPE DllRegisterServer() { return automation::com::register_server(); }

HRESULT STDMETHODCALLTYPE DllUnregisterServer() { return automation::com::unregister_server(); }

}  // extern "C"
