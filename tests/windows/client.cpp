#include "tests/windows/client.h"

#include <algorithm>

#include "automation/com/system/text.h"

namespace com_client {

using automation::com::from_bstr;

Pointer<IDispatch> create(std::string_view identifier) {
  CLSID id{};
  Pointer<IDispatch> object;
  if (SUCCEEDED(CLSIDFromProgID(automation::com::to_wide(identifier).c_str(), &id)))
    CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.out());
  return object;
}

DISPID id_of(IDispatch* object, std::string_view member) {
  std::wstring wide = automation::com::to_wide(member);
  LPOLESTR name = wide.data();
  DISPID id = DISPID_UNKNOWN;
  object->GetIDsOfNames(IID_NULL, &name, 1, 0, &id);
  return id;
}

Call::Call(IDispatch* object, std::string_view member, WORD flags, std::vector<VARIANT> arguments) {
  std::reverse(arguments.begin(), arguments.end());
  DISPID assigned = DISPID_PROPERTYPUT;
  const bool assigns = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{arguments.data(), assigns ? &assigned : nullptr, static_cast<UINT>(arguments.size()),
                        assigns ? 1U : 0U};
  EXCEPINFO failure{};
  result = object->Invoke(id_of(object, member), IID_NULL, 0, flags, &parameters, value.put(), &failure, nullptr);
  if (result != DISP_E_EXCEPTION) return;
  number = failure.scode & 0xFFFF;
  description = from_bstr(failure.bstrDescription);
  source = from_bstr(failure.bstrSource);
  SysFreeString(failure.bstrDescription);
  SysFreeString(failure.bstrSource);
}

VARIANT text(std::string_view value) {
  VARIANT result{};
  result.vt = VT_BSTR;
  result.bstrVal = automation::com::to_bstr(value);
  return result;
}

VARIANT whole(int32_t value) {
  VARIANT result{};
  result.vt = VT_I4;
  result.lVal = value;
  return result;
}

VARIANT object(IDispatch* value) {
  VARIANT result{};
  result.vt = VT_DISPATCH;
  result.pdispVal = value;
  return result;
}

VARIANT missing() {
  VARIANT result{};
  result.vt = VT_ERROR;
  result.scode = DISP_E_PARAMNOTFOUND;
  return result;
}

Pointer<IDispatch> small_archive() {
  auto connector = create("Dorvane.DbConnector");
  Call(connector.get(), "Open", DISPATCH_METHOD, {text("sqlite::memory:")});
  Call(connector.get(), "CreateSchema", DISPATCH_METHOD, {});
  Call(connector.get(), "ExecuteSql", DISPATCH_METHOD,
       {text("INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES"
             "(1,'1871-01-07','FI',15,71,18,64,81),(2,'1871-01-14','FI',5,12,33,40,41)")});
  return connector;
}

Pointer<IDispatch> lotto_on(IDispatch* connector) {
  auto lotto = create("Vestara.cLotto");
  Call(lotto.get(), "ActiveConnection", DISPATCH_PROPERTYPUTREF, {object(connector)});
  return lotto;
}

}  // namespace com_client
