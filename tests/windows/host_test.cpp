#include <gtest/gtest.h>

#include <map>

#include "automation/com/system/text.h"
#include "tests/windows/client.h"

namespace com_client {
namespace {

/// A connector as a compiler of the classic kind makes it: it takes a record set by reference as exactly that, and
/// forwards everything to a connector that works. Lives on the stack of its test.
class CompiledConnector final : public IDispatch {
 public:
  explicit CompiledConnector(IDispatch* inner) : inner_(inner) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool fits = id == IID_IUnknown || id == IID_IDispatch;
    *object = fits ? this : nullptr;
    if (!fits) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++count; }
  ULONG STDMETHODCALLTYPE Release() override { return --count; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* infos) override {
    *infos = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT number, LCID locale, DISPID* ids) override {
    return inner_->GetIDsOfNames(id, names, number, locale, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* given, VARIANT* result,
                                   EXCEPINFO* failure, UINT* bad) override {
    for (UINT i = 0; i < given->cArgs; ++i)
      if (given->rgvarg[i].vt == (VT_BYREF | VT_VARIANT)) return DISP_E_TYPEMISMATCH;
    if (bare != S_OK && id == 2) return bare;
    const HRESULT code = inner_->Invoke(id, iid, locale, flags, given, result, failure, bad);
    if (id == 2) last = Pointer<IDispatch>(*given->rgvarg[1].ppdispVal);
    return code;
  }

  ULONG count = 1;
  HRESULT bare = S_OK;
  Pointer<IDispatch> last;

 private:
  IDispatch* inner_;
};

TEST(Hosts, ACompiledConnectorTakesReferencesOfItsOwnType) {
  const auto inner = small_archive();
  CompiledConnector connector(inner.get());
  {
    const auto lotto = lotto_on(&connector);
    Call rows(lotto.get(), "LoadLottoEstr", DISPATCH_METHOD, {text("5,12"), whole(2)});
    ASSERT_EQ(rows.value->vt, VT_DISPATCH);
    EXPECT_EQ(rows.object().get(), connector.last.get());
    EXPECT_EQ(Call(rows.object().get(), "RecordCount", DISPATCH_PROPERTYGET, {}).answer(), Variant(int32_t{1}));
    EXPECT_GT(connector.count, 1U);
  }
  EXPECT_EQ(connector.count, 1U);
}

TEST(Hosts, ABareResultCodeIsTheErrorThatItStandsFor) {
  const auto inner = small_archive();
  CompiledConnector connector(inner.get());
  const auto lotto = create("Vestara.cLotto");
  connector.bare = static_cast<HRESULT>(0x800A0035);
  const Call failed(lotto.get(), "ActiveConnection", DISPATCH_PROPERTYPUTREF, {object(&connector)});
  // The wheel tables are loaded under a trap of their own; the search says what became of it.
  EXPECT_EQ(failed.result, S_OK);
  EXPECT_EQ(Call(lotto.get(), "GetMaxDateStorico", DISPATCH_METHOD, {}).answer(), Variant());
}

TEST(Hosts, AConnectorOfTheSameBuildIsTakenAsItIs) {
  const auto connector = small_archive();
  const auto frequencies = create("Vestara.cFrequenza");
  Call(frequencies.get(), "ActiveConnection", DISPATCH_PROPERTYPUTREF, {object(connector.get())});
  Call back(frequencies.get(), "ActiveConnection", DISPATCH_PROPERTYGET, {});
  EXPECT_EQ(back.object().get(), connector.get());
}

TEST(Hosts, ErrorsOfOneLibraryAreTrappedInTheOther) {
  const auto connector = small_archive();
  const auto lotto = lotto_on(connector.get());
  Call(connector.get(), "Close", DISPATCH_METHOD, {});
  // CommitTrans and BeginTrans raise what the member traps.
  const auto draw = create("Vestara.cEstrazione");
  Call(draw.get(), "DataEstrazione", DISPATCH_PROPERTYPUT, {text("01/01/2026")});
  EXPECT_EQ(Call(lotto.get(), "SalvaEstrazione", DISPATCH_METHOD, {object(draw.get())}).answer(), Variant(false));
}

}  // namespace
}  // namespace com_client
