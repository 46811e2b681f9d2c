#include <gtest/gtest.h>

#include "tests/windows/client.h"

namespace com_client {
namespace {

using CanUnload = HRESULT(STDMETHODCALLTYPE*)();

CanUnload can_unload() {
  const HMODULE library = GetModuleHandleW(L"vestara.dll");
  return library ? reinterpret_cast<CanUnload>(reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")))
                 : nullptr;
}

TEST(Lifetime, TheLibraryStaysWhileAnObjectIsHeld) {
  auto lotto = create("Vestara.cLotto");
  const CanUnload asked = can_unload();
  ASSERT_TRUE(asked);
  EXPECT_EQ(asked(), S_FALSE);
  Call statistics(lotto.get(), "Statistiche", DISPATCH_PROPERTYGET, {});
  lotto = {};
  EXPECT_EQ(asked(), S_OK);
}

TEST(Lifetime, FactoriesAndLocks) {
  CLSID id{};
  ASSERT_EQ(CLSIDFromProgID(L"Vestara.cLotto.1", &id), S_OK);
  Pointer<IClassFactory> factory;
  ASSERT_EQ(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.out()), S_OK);
  const CanUnload asked = can_unload();
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  Pointer<IUnknown> aggregate;
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, aggregate.out()), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, aggregate.out()), E_NOINTERFACE);
  factory->LockServer(FALSE);
  EXPECT_EQ(asked(), S_FALSE);
  factory = {};
  EXPECT_EQ(asked(), S_OK);
}

TEST(Lifetime, AnObjectKeepsOneFace) {
  const auto lotto = create("Vestara.cLotto");
  const auto statistics = create("Vestara.cStatistiche");
  Call(lotto.get(), "Statistiche", DISPATCH_PROPERTYPUTREF, {object(statistics.get())});
  Call back(lotto.get(), "Statistiche", DISPATCH_PROPERTYGET, {});
  EXPECT_EQ(back.object().get(), statistics.get());
  const auto unknown = Pointer<IUnknown>::query(Pointer<IConnectionPointContainer>::query(lotto.get()).get());
  EXPECT_EQ(unknown.get(), Pointer<IUnknown>::query(lotto.get()).get());
}

}  // namespace
}  // namespace com_client
