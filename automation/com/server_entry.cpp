// The entry points of a library as a COM server. Compiled into every library that has classes.

#include "automation/com/factory.h"
#include "automation/com/module.h"
#include "automation/com/server_registration.h"

extern "C" {

HRESULT STDMETHODCALLTYPE DllGetClassObject(REFCLSID class_id, REFIID id, void** factory) {
  return automation::com::class_object(class_id, id, factory);
}

HRESULT STDMETHODCALLTYPE DllCanUnloadNow() { return automation::com::KeepsLoaded::none() ? S_OK : S_FALSE; }

HRESULT STDMETHODCALLTYPE DllRegisterServer() { return automation::com::register_server(); }

HRESULT STDMETHODCALLTYPE DllUnregisterServer() { return automation::com::unregister_server(); }

}  // extern "C"
