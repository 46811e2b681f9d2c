#include "automation/com/faces/dispatch.h"

#include <string>

#include "automation/com/faces/faces.h"
#include "automation/com/faces/items.h"
#include "automation/com/system/failure.h"
#include "automation/com/system/identifiers.h"
#include "automation/com/system/text.h"
#include "automation/com/system/type_library.h"
#include "automation/com/values/frame.h"
#include "automation/com/values/value.h"
#include "automation/text.h"

namespace automation::com {
namespace {

DISPID parameter_id(const ClassDescription& description, int32_t member, std::string_view name) {
  for (const Member& row : description.members) {
    if (row.id != member) continue;
    const auto parameters = row.parameters();
    for (size_t i = 0; i < parameters.size(); ++i)
      if (equal_ignoring_case(parameters[i].name, name)) return static_cast<DISPID>(i);
  }
  return DISPID_UNKNOWN;
}

/// What the member left in variables passed by reference goes back also when it raises.
Variant answer_of(Object& object, DISPID id, InvokeKind kind, Frame& frame) {
  try {
    return object.invoke(id, kind, frame.arguments(), frame.names());
  } catch (...) {
    frame.give_back();
    throw;
  }
}

}  // namespace

Dispatch::Dispatch(Ref<Object> object) : object_(std::move(object)), description_(object_->description()) {
  if (object_->event_source()) connection_points_ = std::make_unique<ConnectionPoints>(*this, *object_);
}

Dispatch::~Dispatch() = default;

bool Dispatch::share() {
  ULONG count = count_;
  while (count != 0)
    if (count_.compare_exchange_weak(count, count + 1)) return true;
  return false;
}

void* Dispatch::interface_of(REFIID id) {
  if (id == IID_IUnknown || id == IID_IDispatch) return static_cast<IDispatch*>(this);
  if (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2) return static_cast<IProvideClassInfo2*>(this);
  if (id == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
  if (id == native_object_id()) return static_cast<NativeObject*>(this);
  if (id == IID_IConnectionPointContainer)
    return connection_points_ ? static_cast<IConnectionPointContainer*>(connection_points_.get()) : nullptr;
  if (id == IID_IConnectionPoint)
    return connection_points_ ? static_cast<IConnectionPoint*>(connection_points_.get()) : nullptr;
  return id == identifiers_of(description_).interface_id ? static_cast<IDispatch*>(this) : nullptr;
}

HRESULT Dispatch::QueryInterface(REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = interface_of(id);
  if (!*object) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG Dispatch::AddRef() { return ++count_; }

ULONG Dispatch::Release() {
  const ULONG left = --count_;
  if (left == 0) {
    forget_face(*object_, *this);
    delete this;
  }
  return left;
}

HRESULT Dispatch::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT Dispatch::GetTypeInfo(UINT place, LCID, ITypeInfo** info) {
  if (place != 0) return DISP_E_BADINDEX;
  return type_info(identifiers_of(description_).interface_id, info);
}

HRESULT Dispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (!names || !ids || count == 0) return E_POINTER;
  return guarded([&]() -> HRESULT {
    const std::string member = from_wide(names[0]);
    if (const auto id = object_->id_of(member))
      ids[0] = *id;
    else
      ids[0] = description_.first_item && equal_ignoring_case(member, "_NewEnum") ? DISPID_NEWENUM : DISPID_UNKNOWN;
    bool all = ids[0] != DISPID_UNKNOWN;
    for (UINT i = 1; i < count; ++i) {
      ids[i] = parameter_id(description_, ids[0], from_wide(names[i]));
      all = all && ids[i] != DISPID_UNKNOWN;
    }
    return all ? S_OK : DISP_E_UNKNOWNNAME;
  });
}

HRESULT Dispatch::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given, VARIANT* result, EXCEPINFO* failure,
                         UINT*) {
  if (!given) return E_POINTER;
  // The member may let go what holds this face.
  const Ref<Object> object = object_;
  const ClassDescription& description = description_;
  try {
    if (id == DISPID_NEWENUM && description.first_item) return new_enumerator(object, result);
    const InvokeKind kind = kind_of(flags, *given);
    Frame frame(description, id, kind, *given);
    const Variant answer = answer_of(*object, id, kind, frame);
    frame.give_back();
    if (result) to_value(answer, *result);
    return S_OK;
  } catch (const RunTimeError& error) {
    return report(error, description.identifier(), failure);
  } catch (const std::bad_alloc&) {
    return report(out_of_memory(), description.identifier(), failure);
  } catch (const std::exception& error) {
    return report({unspecified_failure, error.what()}, description.identifier(), failure);
  } catch (...) {
    return E_UNEXPECTED;
  }
}

HRESULT Dispatch::GetClassInfo(ITypeInfo** info) { return type_info(identifiers_of(description_).class_id, info); }

HRESULT Dispatch::GetGUID(DWORD kind, GUID* id) {
  if (!id) return E_POINTER;
  *id = identifiers_of(description_).event_id;
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID || *id == GUID_NULL) return E_INVALIDARG;
  return S_OK;
}

HRESULT Dispatch::InterfaceSupportsErrorInfo(REFIID id) {
  return id == IID_IDispatch || id == identifiers_of(description_).interface_id ? S_OK : S_FALSE;
}

Object* Dispatch::object(NativeLibrary** library) {
  *library = &own_library();
  return object_.get();
}

}  // namespace automation::com
