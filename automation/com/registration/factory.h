#pragma once

#include "automation/com/system/counted.h"
#include "automation/registry.h"

namespace automation::com {

/// Creates the objects of one class.
class Factory final : public Counted<IClassFactory> {
 public:
  explicit Factory(const RegisteredClass& entry) : entry_(entry) {}
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  RegisteredClass entry_;
};

/// The factory of a class of this library.
HRESULT class_object(REFCLSID class_id, REFIID id, void** factory) noexcept;

}  // namespace automation::com
