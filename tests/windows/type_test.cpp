#include <gtest/gtest.h>

#include "automation/classes/uuid.h"
#include "automation/com/system/identifiers.h"
#include "automation/com/system/text.h"
#include "tests/windows/client.h"

namespace com_client {
namespace {

std::string name_of(ITypeInfo* info, MEMBERID member = MEMBERID_NIL) {
  automation::com::Bstr name;
  info->GetDocumentation(member, name.put(), nullptr, nullptr, nullptr);
  return automation::com::from_bstr(name.get());
}

Pointer<ITypeInfo> type_of(IDispatch* object) {
  Pointer<ITypeInfo> info;
  EXPECT_EQ(object->GetTypeInfo(0, 0, info.put()), S_OK);
  return info;
}

TEST(Types, EveryClassHasItsInterfaceInTheTypeLibrary) {
  for (const char* name : {"cLotto", "cEstrazione", "cStatistiche", "cSistemi", "cFrequenza", "cTabAnalytics",
                           "cDistanze", "cDistanze2", "Study"}) {
    const auto object = create(std::string("Vestara.") + name);
    ASSERT_TRUE(object) << name;
    EXPECT_EQ(name_of(type_of(object.get()).get()), std::string("_") + name);
    Pointer<ITypeInfo> known;
    EXPECT_EQ(Pointer<IProvideClassInfo2>::query(object.get())->GetClassInfo(known.put()), S_OK);
    EXPECT_EQ(name_of(known.get()), name);
  }
}

TEST(Types, TheIdsOfTheTypeLibraryAreThoseOfTheCalls) {
  const auto lotto = create("Vestara.cLotto");
  const auto info = type_of(lotto.get());
  TYPEATTR* about = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&about), S_OK);
  int own = 0;
  for (UINT i = 0; i < about->cFuncs; ++i) {
    FUNCDESC* function = nullptr;
    info->GetFuncDesc(i, &function);
    // The interface's base brings its own seven.
    if (function->memid < 0x60000000) {
      ++own;
      EXPECT_EQ(id_of(lotto.get(), name_of(info.get(), function->memid)), function->memid);
    }
    info->ReleaseFuncDesc(function);
  }
  info->ReleaseTypeAttr(about);
  EXPECT_EQ(own, 28);
}

/// The name of what a member returns: of an interface, or of the class of another library.
std::string type_of_result(IDispatch* object, const char* member) {
  const auto info = type_of(object);
  const DISPID id = id_of(object, member);
  TYPEATTR* about = nullptr;
  EXPECT_EQ(info->GetTypeAttr(&about), S_OK);
  std::string name;
  for (UINT i = 0; i < about->cFuncs; ++i) {
    FUNCDESC* function = nullptr;
    info->GetFuncDesc(i, &function);
    const TYPEDESC& result = function->elemdescFunc.tdesc;
    const TYPEDESC& named = result.vt == VT_PTR ? *result.lptdesc : result;
    Pointer<ITypeInfo> known;
    if (function->memid == id && function->invkind != INVOKE_PROPERTYPUTREF && named.vt == VT_USERDEFINED &&
        info->GetRefTypeInfo(named.hreftype, known.put()) == S_OK)
      name = name_of(known.get());
    info->ReleaseFuncDesc(function);
  }
  info->ReleaseTypeAttr(about);
  return name;
}

TEST(Types, ObjectResultsNameTheirClass) {
  const struct {
    const char *object, *member, *type;
  } rows[] = {{"Vestara.cLotto", "Statistiche", "_cStatistiche"},
              {"Vestara.cLotto", "GetEstrazioneDaData", "_cEstrazione"},
              {"Vestara.cLotto", "LoadLottoEstr", "Recordset"},
              {"Vestara.cLotto", "ActiveConnection", "DbConnector"},
              {"Vestara.cStatistiche", "Distanze", "_cDistanze"},
              {"Vestara.cStatistiche", "CombinazioniSempliciString", "_Collection"},
              {"Dorvane.DbConnector", "GetRecordset", "_Recordset"}};
  for (const auto& row : rows)
    EXPECT_EQ(type_of_result(create(row.object).get(), row.member), row.type) << row.object << "." << row.member;
}

TEST(Types, TheEventInterfaceIsTheDefaultSource) {
  const auto lotto = create("Vestara.cLotto");
  const auto provider = Pointer<IProvideClassInfo2>::query(lotto.get());
  GUID id{};
  EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), S_OK);
  EXPECT_EQ(id, automation::com::guid_of(automation::uuid_of("Vestara.__cLotto")));
  const auto other = Pointer<IProvideClassInfo2>::query(create("Vestara.cEstrazione").get());
  EXPECT_EQ(other->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), E_INVALIDARG);
}

TEST(Types, RecordSetsToo) {
  const auto connector = small_archive();
  Call rows(connector.get(), "GetRecordset", DISPATCH_METHOD, {text("SELECT 1 AS a")});
  EXPECT_EQ(name_of(type_of(rows.object().get()).get()), "_Recordset");
}

}  // namespace
}  // namespace com_client
