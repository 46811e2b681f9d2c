#include "automation/com/system/type_library.h"

#include "automation/com/system/failure.h"
#include "automation/com/system/module.h"
#include "automation/com/system/pointer.h"

namespace automation::com {

HRESULT own_type_library(ITypeLib** library) noexcept {
  if (!library) return E_POINTER;
  return guarded([&] { return LoadTypeLibEx(path_of(own_module()).c_str(), REGKIND_NONE, library); });
}

HRESULT type_info(const GUID& id, ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  *info = nullptr;
  Pointer<ITypeLib> library;
  const HRESULT result = own_type_library(library.put());
  return FAILED(result) ? result : library->GetTypeInfoOfGuid(id, info);
}

}  // namespace automation::com
