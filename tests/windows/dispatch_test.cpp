#include <gtest/gtest.h>

#include <array>

#include "tests/windows/client.h"

namespace com_client {
namespace {

const Apartment apartment;

TEST(Dispatch, NamesOfMembersAndParameters) {
  const auto lotto = create("Vestara.cLotto");
  ASSERT_TRUE(lotto);
  std::array<wchar_t, 20> member{L"loadLOTTOestr"};
  std::array<wchar_t, 20> first{L"bsortasc"};
  std::array<wchar_t, 20> second{L"sNum"};
  std::array<LPOLESTR, 3> names{member.data(), first.data(), second.data()};
  std::array<DISPID, 3> ids{};
  EXPECT_EQ(lotto->GetIDsOfNames(IID_NULL, names.data(), 3, 0, ids.data()), S_OK);
  EXPECT_EQ(ids, (std::array<DISPID, 3>{16, 7, 0}));
  first = {L"nessuno"};
  EXPECT_EQ(lotto->GetIDsOfNames(IID_NULL, names.data(), 3, 0, ids.data()), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST(Dispatch, NamedArgumentsGoWhereTheyBelong) {
  const auto connector = small_archive();
  const auto lotto = lotto_on(connector.get());
  // Named ones come first, each with the place of its parameter: combinazioneTipo := 2, then sNum by position.
  std::array<VARIANT, 2> arguments{whole(2), text("5,12")};
  DISPID combination = 1;
  DISPPARAMS given{arguments.data(), &combination, 2, 1};
  Value rows;
  EXPECT_EQ(lotto->Invoke(16, IID_NULL, 0, DISPATCH_METHOD, &given, rows.put(), nullptr, nullptr), S_OK);
  EXPECT_EQ(Call(lotto.get(), "Ambi", DISPATCH_PROPERTYGET, {}).answer(), Variant(int32_t{1}));
  combination = 12;
  EXCEPINFO failure{};
  EXPECT_EQ(lotto->Invoke(16, IID_NULL, 0, DISPATCH_METHOD, &given, nullptr, &failure, nullptr), DISP_E_EXCEPTION);
  EXPECT_EQ(failure.scode & 0xFFFF, 448);
}

TEST(Dispatch, MethodsAndPropertiesAreInterchangeable) {
  const auto lotto = create("Vestara.cLotto");
  for (const int flags : {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_METHOD | DISPATCH_PROPERTYGET})
    EXPECT_EQ(Call(lotto.get(), "DbType", static_cast<WORD>(flags), {}).answer(), Variant(int16_t{2}));
}

TEST(Dispatch, BothFormsOfAssignmentInOneCall) {
  const auto connector = small_archive();
  const auto lotto = create("Vestara.cLotto");
  constexpr WORD both = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
  EXPECT_EQ(Call(lotto.get(), "ActiveConnection", both, {object(connector.get())}).result, S_OK);
  EXPECT_EQ(Call(lotto.get(), "DbType", both, {whole(1)}).result, S_OK);
  EXPECT_EQ(Call(lotto.get(), "ContaEstrazioniStorico", DISPATCH_METHOD, {}).answer(), Variant(int32_t{2}));
}

TEST(Dispatch, ErrorsCarryNumberTextAndSource) {
  const auto lotto = create("Vestara.cLotto");
  const Call failed(lotto.get(), "ActiveConnection", DISPATCH_PROPERTYGET, {});
  EXPECT_EQ(failed.result, DISP_E_EXCEPTION);
  EXPECT_EQ(failed.number, 91);
  EXPECT_EQ(failed.description, "Object variable or With block variable not set");
  EXPECT_EQ(failed.source, "Vestara.cLotto");
}

TEST(Dispatch, ErrorsForThoseWhoPassNoExceptionInfo) {
  const auto lotto = create("Vestara.cLotto");
  DISPPARAMS none{};
  SetErrorInfo(0, nullptr);
  EXPECT_EQ(lotto->Invoke(2, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
            static_cast<HRESULT>(0x800A005B));
  Pointer<IErrorInfo> told;
  ASSERT_EQ(GetErrorInfo(0, told.put()), S_OK);
  EXPECT_EQ(Pointer<ISupportErrorInfo>::query(lotto.get())->InterfaceSupportsErrorInfo(IID_IDispatch), S_OK);
}

struct Number {
  VARTYPE type;
  LONGLONG bits;
};

TEST(Dispatch, EveryNumericTypeThatHostsSend) {
  const auto statistics = create("Vestara.cStatistiche");
  for (const Number& row :
       {Number{VT_I1, 7}, Number{VT_UI1, 7}, Number{VT_I2, 7}, Number{VT_UI2, 7}, Number{VT_I4, 7}, Number{VT_UI4, 7},
        Number{VT_INT, 7}, Number{VT_UINT, 7}, Number{VT_I8, 7}, Number{VT_UI8, 7}, Number{VT_CY, 70000}}) {
    VARIANT value{};
    value.vt = row.type;
    value.llVal = row.bits;
    EXPECT_EQ(Call(statistics.get(), "EstrAmbi", DISPATCH_PROPERTYPUT, {value}).result, S_OK) << row.type;
    EXPECT_EQ(Call(statistics.get(), "EstrAmbi", DISPATCH_PROPERTYGET, {}).answer(), Variant(int32_t{7})) << row.type;
    VARIANT reference{};
    reference.vt = row.type | VT_BYREF;
    reference.byref = &value.llVal;
    EXPECT_EQ(Call(statistics.get(), "EstrAmbi", DISPATCH_PROPERTYPUT, {reference}).result, S_OK) << row.type;
  }
}

TEST(Dispatch, VariablesOfAFixedTypeAreWrittenBack) {
  const auto systems = create("Vestara.cSistemi");
  LONG count = 0;
  VARIANT reference{};
  reference.vt = VT_BYREF | VT_I4;
  reference.plVal = &count;
  Call(systems.get(), "CombinazioniIntegraliString", DISPATCH_METHOD, {text("1,2,3,4"), whole(2), reference});
  EXPECT_EQ(count, 6);

  SAFEARRAY* numbers = SafeArrayCreateVector(VT_I4, 0, 3);
  const std::array<LONG, 3> values{33, 5, 12};
  for (LONG i = 0; i < 3; ++i) SafeArrayPutElement(numbers, &i, const_cast<LONG*>(&values[static_cast<size_t>(i)]));
  reference.vt = VT_BYREF | VT_ARRAY | VT_I4;
  reference.pparray = &numbers;
  EXPECT_EQ(Call(systems.get(), "ArrNumbersSort", DISPATCH_METHOD, {reference}).result, S_OK);
  VARTYPE type = VT_EMPTY;
  SafeArrayGetVartype(numbers, &type);
  EXPECT_EQ(type, VT_I4);
  LONG first = 0;
  LONG place = 0;
  SafeArrayGetElement(numbers, &place, &first);
  EXPECT_EQ(first, 5);
  SafeArrayDestroy(numbers);
}

TEST(Dispatch, TextsOfAVariable) {
  const auto connector = small_archive();
  const auto lotto = lotto_on(connector.get());
  BSTR description = SysAllocString(L"l'ambo");
  VARIANT reference{};
  reference.vt = VT_BYREF | VT_BSTR;
  reference.pbstrVal = &description;
  Call saved(lotto.get(), "SaveRicerchePersonalizzate", DISPATCH_METHOD,
             {whole(0), reference, text("5,12"), whole(2), text("BA"), missing(), missing(), missing()});
  EXPECT_EQ(saved.answer(), Variant(true));
  EXPECT_STREQ(description, L"l''ambo");
  SysFreeString(description);
}

TEST(Dispatch, ItemsAreEnumerated) {
  const auto connector = small_archive();
  Call rows(connector.get(), "GetRecordset", DISPATCH_METHOD, {text("SELECT 1 AS a, 2 AS b, 3 AS c")});
  Call fields(rows.object().get(), "Fields", DISPATCH_PROPERTYGET, {});
  Call walk(fields.object().get(), "_NewEnum", DISPATCH_PROPERTYGET, {});
  const auto items = Pointer<IEnumVARIANT>::query(walk.value->punkVal);
  ASSERT_TRUE(items);
  EXPECT_EQ(items->Skip(1), S_OK);
  Pointer<IEnumVARIANT> copy;
  EXPECT_EQ(items->Clone(copy.put()), S_OK);
  std::array<Value, 3> found;
  ULONG count = 0;
  EXPECT_EQ(items->Next(3, found[0].put(), &count), S_FALSE);
  EXPECT_EQ(count, 2U);
  EXPECT_EQ(Call(found[1]->pdispVal, "Name", DISPATCH_PROPERTYGET, {}).answer(), Variant("c"));
  EXPECT_EQ(items->Next(1, found[2].put(), nullptr), S_FALSE);
  EXPECT_EQ(items->Reset(), S_OK);
  EXPECT_EQ(items->Skip(4), S_FALSE);
  EXPECT_EQ(copy->Skip(2), S_OK);
}

}  // namespace
}  // namespace com_client
