#include <cstdio>

#include "automation/com/system/text.h"
#include "tests/windows/client.h"

// without_registration.exe Vestara.manifest: the classes are found through the manifest, and only through it.

namespace {

using com_client::create;

bool answers() {
  const auto connector = com_client::small_archive();
  if (!connector) return false;
  const auto lotto = com_client::lotto_on(connector.get());
  com_client::Call newest(lotto.get(), "GetMaxDateStorico", DISPATCH_METHOD, {});
  return newest.answer() == automation::Variant("14/01/1871");
}

}  // namespace

int main(int count, char** arguments) {
  const com_client::Apartment apartment;
  if (count != 2 || create("Vestara.cLotto")) return 2;
  const std::wstring manifest = automation::com::to_wide(arguments[1]);
  ACTCTXW context{};
  context.cbSize = sizeof context;
  context.lpSource = manifest.c_str();
  const HANDLE handle = CreateActCtxW(&context);
  ULONG_PTR cookie = 0;
  if (handle == INVALID_HANDLE_VALUE || !ActivateActCtx(handle, &cookie)) return 3;
  const bool fine = answers();
  std::puts(fine ? "the classes answer without registration" : "no answer");
  DeactivateActCtx(0, cookie);
  return fine ? 0 : 1;
}
