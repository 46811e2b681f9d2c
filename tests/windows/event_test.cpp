#include <gtest/gtest.h>

#include <cstdio>
#include <functional>

#include "automation/classes/uuid.h"
#include "automation/com/system/identifiers.h"
#include "automation/com/system/text.h"
#include "tests/windows/client.h"

namespace com_client {
namespace {

const GUID events = automation::com::guid_of(automation::uuid_of("Vestara.__cLotto"));

/// Writes down what it is told. Lives on the stack of its test.
class Sink final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool fits = id == IID_IUnknown || id == (typed ? events : IID_IDispatch);
    *object = fits ? this : nullptr;
    if (!fits) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++count; }
  ULONG STDMETHODCALLTYPE Release() override { return --count; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    heard += std::to_string(id);
    for (UINT i = given->cArgs; i-- > 0;) heard += " " + std::to_string(given->rgvarg[i].lVal);
    heard += ";";
    if (then) then();
    return answer;
  }

  ULONG count = 1;
  bool typed = false;
  HRESULT answer = S_OK;
  std::function<void()> then;
  std::string heard;
};

class Events : public testing::Test {
 protected:
  Events() : path_("events.txt") {
    std::FILE* file = std::fopen(path_, "wb");
    std::fputs("#1#07/01/1871#FI#15#71#18#64#81*#2#14/01/1871#FI#5#12#33#40#41", file);
    std::fclose(file);
    Call(lotto_.get(), "DbType", DISPATCH_PROPERTYPUT, {whole(1)});
    Call(lotto_.get(), "FileUpdate", DISPATCH_PROPERTYPUT, {text(path_)});
    Pointer<IConnectionPointContainer>::query(lotto_.get())->FindConnectionPoint(events, point_.put());
  }
  ~Events() override { std::remove(path_); }

  void import() { EXPECT_EQ(Call(lotto_.get(), "UpdateTblStorico", DISPATCH_METHOD, {}).answer(), Variant(true)); }

  const char* path_;
  Pointer<IDispatch> connector_ = small_archive();
  Pointer<IDispatch> lotto_ = lotto_on(connector_.get());
  Pointer<IConnectionPoint> point_;
};

constexpr const char* whole_import = "1;2 0 1;2 1 1;3;";

TEST_F(Events, ReachEverySink) {
  ASSERT_TRUE(point_);
  Sink first;
  Sink second;
  second.typed = true;
  DWORD cookies[2] = {};
  EXPECT_EQ(point_->Advise(&first, &cookies[0]), S_OK);
  EXPECT_EQ(point_->Advise(&second, &cookies[1]), S_OK);
  import();
  EXPECT_EQ(first.heard, whole_import);
  EXPECT_EQ(second.heard, whole_import);
  EXPECT_EQ(point_->Unadvise(cookies[0]), S_OK);
  EXPECT_EQ(point_->Unadvise(cookies[0]), CONNECT_E_NOCONNECTION);
  import();
  EXPECT_EQ(first.heard, whole_import);
  EXPECT_EQ(point_->Unadvise(cookies[1]), S_OK);
  EXPECT_EQ(first.count, 1U);
  EXPECT_EQ(second.count, 1U);
}

TEST_F(Events, ASinkThatFailsBreaksNothing) {
  Sink sink;
  sink.answer = E_FAIL;
  DWORD cookie = 0;
  point_->Advise(&sink, &cookie);
  import();
  EXPECT_EQ(sink.heard, whole_import);
  point_->Unadvise(cookie);
}

TEST_F(Events, ASinkMayEndItsOwnConnection) {
  Sink sink;
  DWORD cookie = 0;
  sink.then = [&] { point_->Unadvise(cookie); };
  point_->Advise(&sink, &cookie);
  import();
  EXPECT_EQ(sink.heard, "1;");
  EXPECT_EQ(sink.count, 1U);
}

TEST_F(Events, SinksGoWithTheObject) {
  Sink sink;
  DWORD cookie = 0;
  point_->Advise(&sink, &cookie);
  EXPECT_GT(sink.count, 1U);
  point_ = {};
  lotto_ = {};
  EXPECT_EQ(sink.count, 1U);
}

TEST_F(Events, ThePointTellsWhatItIs) {
  GUID id{};
  EXPECT_EQ(point_->GetConnectionInterface(&id), S_OK);
  EXPECT_EQ(id, events);
  Pointer<IConnectionPointContainer> container;
  EXPECT_EQ(point_->GetConnectionPointContainer(container.put()), S_OK);
  Pointer<IEnumConnectionPoints> all;
  EXPECT_EQ(container->EnumConnectionPoints(all.put()), S_OK);
  Pointer<IConnectionPoint> only;
  ULONG count = 0;
  EXPECT_EQ(all->Next(1, only.put(), &count), S_OK);
  EXPECT_EQ(only.get(), point_.get());
  Sink sink;
  DWORD cookie = 0;
  point_->Advise(&sink, &cookie);
  Pointer<IEnumConnections> connections;
  EXPECT_EQ(point_->EnumConnections(connections.put()), S_OK);
  CONNECTDATA found{};
  EXPECT_EQ(connections->Next(1, &found, &count), S_OK);
  EXPECT_EQ(found.dwCookie, cookie);
  found.pUnk->Release();
  point_->Unadvise(cookie);
  Pointer<IConnectionPoint> none;
  EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, none.put()), CONNECT_E_NOCONNECTION);
}

TEST_F(Events, ObjectsWithoutEventsHaveNoPoints) {
  EXPECT_FALSE(Pointer<IConnectionPointContainer>::query(connector_.get()));
}

}  // namespace
}  // namespace com_client
