#include "automation/com/system/failure.h"

#include <algorithm>
#include <array>

#include "automation/com/system/pointer.h"
#include "automation/com/system/text.h"

namespace automation::com {
namespace {

/// The range of result codes that stands for the run-time errors of automation.
constexpr uint32_t first_code = 0x800A0000;

HRESULT code_of(int32_t number) {
  if (number > 0 && number <= 0xFFFF) return static_cast<HRESULT>(first_code + static_cast<uint32_t>(number));
  return number < 0 ? number : E_FAIL;
}

struct Meaning {
  HRESULT code;
  int32_t number;
};

constexpr std::array meanings{
    Meaning{DISP_E_MEMBERNOTFOUND, 438},
    Meaning{DISP_E_UNKNOWNNAME, 438},
    Meaning{DISP_E_TYPEMISMATCH, 13},
    Meaning{DISP_E_OVERFLOW, 6},
    Meaning{DISP_E_BADINDEX, 9},
    Meaning{DISP_E_DIVBYZERO, 11},
    Meaning{DISP_E_BADPARAMCOUNT, 450},
    Meaning{DISP_E_PARAMNOTOPTIONAL, 449},
    Meaning{DISP_E_PARAMNOTFOUND, 448},
    Meaning{DISP_E_NONAMEDARGS, 446},
    Meaning{E_OUTOFMEMORY, 7},
    Meaning{E_INVALIDARG, 5},
    Meaning{E_NOTIMPL, 445},
};

int32_t number_of(HRESULT result) {
  if ((static_cast<uint32_t>(result) & 0xFFFF0000) == first_code) return result & 0xFFFF;
  const auto* found =
      std::find_if(meanings.begin(), meanings.end(), [&](const Meaning& row) { return row.code == result; });
  return found == meanings.end() ? result : found->number;
}

/// For hosts that look at the thread's error object instead of the call's.
void set_error_object(const EXCEPINFO& info) {
  Pointer<ICreateErrorInfo> created;
  if (FAILED(CreateErrorInfo(created.put()))) return;
  created->SetGUID(IID_IDispatch);
  created->SetDescription(info.bstrDescription);
  created->SetSource(info.bstrSource);
  if (const auto object = Pointer<IErrorInfo>::query(created.get())) SetErrorInfo(0, object.get());
}

std::string take_text(BSTR& text) {
  std::string result = from_bstr(text);
  SysFreeString(text);
  text = nullptr;
  return result;
}

}  // namespace

HRESULT report(const RunTimeError& error, std::string_view object, EXCEPINFO* info) noexcept {
  return guarded([&]() -> HRESULT {
    EXCEPINFO told{};
    told.scode = code_of(error.number());
    told.bstrSource = to_bstr(error.source().empty() ? object : std::string_view(error.source()));
    told.bstrDescription = to_bstr(error.description());
    set_error_object(told);
    if (info) {
      *info = told;
      return DISP_E_EXCEPTION;
    }
    SysFreeString(told.bstrSource);
    SysFreeString(told.bstrDescription);
    return told.scode;
  });
}

RunTimeError failure_of(HRESULT result, EXCEPINFO& info) {
  if (result != DISP_E_EXCEPTION) {
    const int32_t number = number_of(result);
    return {number, std::string(standard_description(number))};
  }
  if (info.pfnDeferredFillIn) info.pfnDeferredFillIn(&info);
  const int32_t number = info.wCode != 0 ? info.wCode : number_of(info.scode);
  std::string description = take_text(info.bstrDescription);
  std::string source = take_text(info.bstrSource);
  SysFreeString(info.bstrHelpFile);
  info.bstrHelpFile = nullptr;
  if (description.empty()) description = standard_description(number);
  return {number, std::move(description), std::move(source)};
}

}  // namespace automation::com
