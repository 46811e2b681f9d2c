#include "automation/com/items.h"

#include <algorithm>
#include <array>

#include "automation/coercion.h"
#include "automation/collection.h"
#include "automation/com/enumerator.h"
#include "automation/com/value.h"

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

bool is_walked(const ClassDescription& description) {
  const auto has = [&](auto&& fits) {
    return std::any_of(description.members.begin(), description.members.end(), fits);
  };
  return has([](const Member& row) { return row.id == DISPID_VALUE && row.name == "Item"; }) &&
         has([](const Member& row) { return row.name == "Count"; });
}

HRESULT new_enumerator(const Ref<Object>& object, VARIANT* result) {
  if (!result) return E_POINTER;
  const int32_t count = to_long(object->call("Count", InvokeKind::get, {}));
  const int32_t first = cast<Collection>(object) ? 1 : 0;
  VariantInit(result);
  result->punkVal = new Walk(static_cast<ULONG>(count), [object, first](ULONG place) {
    return item(*object, first + static_cast<int32_t>(place));
  });
  result->vt = VT_UNKNOWN;
  return S_OK;
}

}  // namespace automation::com
