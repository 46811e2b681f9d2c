#pragma once

#include <atomic>

#include "automation/com/system/module.h"
#include "automation/com/system/platform.h"

namespace automation::com {

/// The count of an object of COM that lives on the heap, beginning with one for its creator. The library stays loaded
/// as long as it lives. `Interface` is the one interface that it has besides IUnknown.
template <class Interface>
class Counted : public Interface {
 public:
  Counted() = default;
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  ULONG STDMETHODCALLTYPE AddRef() override { return ++count_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --count_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != __uuidof(Interface)) return E_NOINTERFACE;
    *object = static_cast<Interface*>(this);
    AddRef();
    return S_OK;
  }

 protected:
  virtual ~Counted() = default;

 private:
  std::atomic<ULONG> count_{1};
  KeepsLoaded keeps_loaded_;
};

}  // namespace automation::com
