#include "automation/com/faces/items.h"

#include <array>

#include "automation/coercion.h"
#include "automation/com/faces/enumerator.h"
#include "automation/com/values/value.h"
#include "automation/member.h"

namespace automation::com {
namespace {

using Walk = Enumerator<IEnumVARIANT, VARIANT>;

VARIANT item(Object& object, int32_t place) {
  std::array<Variant, 1> index{place};
  VARIANT value;
  to_value(object.invoke(DISPID_VALUE, InvokeKind::get, index), value);
  return value;
}

}  // namespace

HRESULT new_enumerator(const Ref<Object>& object, VARIANT* result) {
  if (!result) return E_POINTER;
  const int32_t count = to_long(object->call("Count", InvokeKind::get, {}));
  const int32_t first = *object->description().first_item;
  VariantInit(result);
  result->punkVal = new Walk(static_cast<ULONG>(count), [object, first](ULONG place) {
    return item(*object, first + static_cast<int32_t>(place));
  });
  result->vt = VT_UNKNOWN;
  return S_OK;
}

}  // namespace automation::com
