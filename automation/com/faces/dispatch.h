#pragma once

#include <atomic>
#include <memory>

#include "automation/com/faces/connection_points.h"
#include "automation/com/faces/native.h"
#include "automation/com/system/module.h"
#include "automation/com/system/platform.h"
#include "automation/object.h"
#include "automation/ref.h"

namespace automation::com {

/// The face that an object shows to COM: calls by name from its member rows, its type, its events.
class Dispatch final : public IDispatch, public IProvideClassInfo2, public ISupportErrorInfo, public NativeObject {
 public:
  /// Begins with one count for the creator.
  explicit Dispatch(Ref<Object> object);
  Dispatch(const Dispatch&) = delete;
  Dispatch& operator=(const Dispatch&) = delete;

  /// One count more, unless the last is gone already.
  bool share();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT place, LCID, ITypeInfo** info) override;
  /// Ids of a member and of its parameters, the latter their places from 0.
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given, VARIANT* result,
                                   EXCEPINFO* failure, UINT* bad_argument) override;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) override;
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override;
  Object* STDMETHODCALLTYPE object(NativeLibrary** library) override;

 private:
  ~Dispatch();
  void* interface_of(REFIID id);

  Ref<Object> object_;
  const ClassDescription& description_;
  std::unique_ptr<ConnectionPoints> connection_points_;  ///< empty when the class raises no events
  std::atomic<ULONG> count_{1};
  KeepsLoaded keeps_loaded_;
};

}  // namespace automation::com
