#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/com/system/module.h"
#include "automation/com/system/text.h"
#include "automation/com/values/object_bridge.h"
#include "automation/member.h"
#include "automation/registry.h"
#include "tests/support/fuzz_values.h"
#include "tests/support/patience.h"
#include "tests/support/random.h"
#include "tests/support/temporary_folder.h"
#include "tests/windows/client.h"
#include "vestara/foundation/error_log.h"

// Random calls of every member of every class as hosts of COM make them: every type of VARIANT, values and references,
// names, wrong flags, walks over items, and objects of the host that answer anything. Every call must come back, what
// the caller's variables hold must be sound, and in the end nothing may hold on to anything.
//   invoke_fuzz [CALLS] [SEED]

namespace com_client {
namespace {

using automation::com::size_of;
using automation::com::to_bstr;
using testing_support::fuzz_draws;
using testing_support::fuzz_numbers;
using testing_support::fuzz_reals;
using testing_support::fuzz_texts;
using testing_support::Patience;
using testing_support::Random;

[[noreturn]] void fail(const char* what) {
  std::printf("%s\n", what);
  std::fflush(stdout);
  std::_Exit(1);
}

const std::vector<VARTYPE> element_types{VT_I1,    VT_UI1,     VT_I2,      VT_UI2,     VT_I4,   VT_UI4,
                                         VT_R4,    VT_R8,      VT_CY,      VT_DATE,    VT_BOOL, VT_BSTR,
                                         VT_ERROR, VT_DECIMAL, VT_VARIANT, VT_DISPATCH};
const std::vector<VARTYPE> plain_types{VT_EMPTY, VT_NULL,  VT_I1,      VT_UI1,  VT_I2,       VT_UI2,    VT_I4, VT_UI4,
                                       VT_INT,   VT_UINT,  VT_I8,      VT_UI8,  VT_R4,       VT_R8,     VT_CY, VT_DATE,
                                       VT_BOOL,  VT_ERROR, VT_DECIMAL, VT_BSTR, VT_DISPATCH, VT_UNKNOWN};
const std::vector<VARTYPE> usual_types{VT_BSTR, VT_I4};
const std::vector<VARTYPE> strange_types{
    VT_RECORD, VT_VOID, VT_LPSTR, VT_VARIANT, VT_VECTOR | VT_I4, VT_ARRAY | VT_RECORD, 0x0FFF};

/// Random values of every type, each the caller's to clear.
class Values {
 public:
  explicit Values(Random& random) : random_(random) {}
  /// What values of the types of objects are taken from.
  std::vector<Pointer<IDispatch>> objects;

  void fill(VARIANT& value) {
    VariantInit(&value);
    if (random_.one_in(12)) {
      value.parray = array(random_.pick(element_types), value.vt);
      return;
    }
    fill(value, random_.pick(random_.one_in(2) ? usual_types : plain_types));
  }

  void fill(VARIANT& value, VARTYPE type) {
    VariantInit(&value);
    value.vt = type;
    put(type, value);
  }

 private:
  void put(VARTYPE type, VARIANT& value) {
    const int32_t number = random_.pick(fuzz_numbers);
    const double real = random_.pick(fuzz_reals);
    switch (type) {
      case VT_EMPTY:
      case VT_NULL:
        break;
      case VT_R4:
        value.fltVal = static_cast<float>(real);
        break;
      case VT_R8:
      case VT_DATE:
        value.dblVal = real;
        break;
      case VT_DECIMAL:
        VarDecFromI4(number, &value.decVal);
        value.vt = VT_DECIMAL;
        break;
      case VT_ERROR:
        value.scode = random_.one_in(2) ? DISP_E_PARAMNOTFOUND : number;
        break;
      case VT_BSTR:
        value.bstrVal = random_.one_in(20) ? nullptr : to_bstr(text());
        break;
      case VT_DISPATCH:
      case VT_UNKNOWN:
        value.pdispVal = random_.one_in(4) ? nullptr : Pointer(random_.pick(objects)).detach();
        break;
      default:
        value.llVal = random_.one_in(10) ? int64_t{number} << 32 : number;
        break;
    }
  }

  std::string text() {
    if (random_.one_in(10)) return random_.text(200);
    if (random_.one_in(500)) return std::string(random_.below(300000), ',');
    return random_.pick(fuzz_texts);
  }

  SAFEARRAY* array(VARTYPE element, VARTYPE& type) {
    type = static_cast<VARTYPE>(VT_ARRAY | element);
    if (random_.one_in(10)) return nullptr;
    std::array<SAFEARRAYBOUND, 3> bounds{};
    for (SAFEARRAYBOUND& bound : bounds)
      bound = {static_cast<ULONG>(random_.below(4)), static_cast<LONG>(random_.below(3)) - 1};
    SAFEARRAY* made = SafeArrayCreate(element, 1 + static_cast<UINT>(random_.below(3)), bounds.data());
    std::array<LONG, 3> place{bounds[0].lLbound, bounds[1].lLbound, bounds[2].lLbound};
    VARIANT item;
    VariantInit(&item);
    item.vt = element == VT_VARIANT ? static_cast<VARTYPE>(VT_I4) : element;
    put(item.vt, item);
    const bool whole = element == VT_VARIANT || element == VT_DECIMAL;
    const bool pointer = element == VT_BSTR || element == VT_DISPATCH;
    // Refused where the array has no such place: it then stays as it is.
    SafeArrayPutElement(made, place.data(), whole ? &item : pointer ? static_cast<void*>(item.bstrVal) : &item.byref);
    VariantClear(&item);
    return made;
  }

  Random& random_;
};

struct Answer {
  std::wstring_view member;
  VARTYPE type;
};

/// What a connector and its record sets should answer.
constexpr std::array answers{Answer{L"ConnectionState", VT_I4},
                             Answer{L"OpenRecordset", VT_BOOL},
                             Answer{L"CloseRecordset", VT_BOOL},
                             Answer{L"ExecuteSql", VT_BOOL},
                             Answer{L"GetRecordset", VT_DISPATCH},
                             Answer{L"GetMaxId", VT_I4},
                             Answer{L"EOF", VT_BOOL},
                             Answer{L"BOF", VT_BOOL},
                             Answer{L"RecordCount", VT_I4},
                             Answer{L"State", VT_I4},
                             Answer{L"Fields", VT_DISPATCH},
                             Answer{L"Item", VT_DISPATCH},
                             Answer{L"Count", VT_I4},
                             Answer{L"Name", VT_BSTR},
                             Answer{L"Value", VT_BSTR}};

/// An object of the host that has every member: connector and record set at once. It mostly answers what it should, at
/// times anything, and fails in every way.
class Moody final : public IDispatch {
 public:
  Moody(Random& random, Values& values) : random_(random), values_(values) {}
  ULONG count() const { return count_; }
  long calls() const { return calls_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == IID_IUnknown || id == IID_IDispatch;
    *object = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++count_; }
  ULONG STDMETHODCALLTYPE Release() override { return --count_; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  /// Its members are known by their place among the answers.
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    const bool known = !random_.one_in(500);
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const auto* found =
        std::find_if(answers.begin(), answers.end(), [&](const Answer& row) { return row.member == names[0]; });
    if (known) ids[0] = static_cast<DISPID>(found - answers.begin()) + 1;
    return known ? S_OK : DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* result,
                                   EXCEPINFO* failure, UINT*) override {
    ++calls_;
    for (UINT i = 0; i < given->cArgs; ++i) assign(given->rgvarg[i]);
    if (random_.one_in(40)) return refuse(*failure);
    if (result) answer(id, *result);
    return S_OK;
  }

 private:
  void answer(DISPID id, VARIANT& result) {
    const auto place = static_cast<size_t>(id) - 1;
    if (place >= answers.size() || random_.one_in(20)) return values_.fill(result);
    VariantInit(&result);
    result.vt = answers[place].type;
    if (result.vt == VT_BOOL)
      result.boolVal = random_.one_in(4) ? VARIANT_FALSE : VARIANT_TRUE;
    else if (result.vt == VT_I4)
      result.lVal = random_.one_in(4) ? random_.pick(fuzz_numbers) : 1;
    else if (result.vt == VT_DISPATCH)
      result.pdispVal = Pointer<IDispatch>(this).detach();
    else
      values_.fill(result, VT_BSTR);
  }

  /// What a member with a by-reference parameter may do: a record set that is opened comes back so.
  void assign(VARIANT& argument) {
    if (argument.vt == (VT_BYREF | VT_VARIANT)) {
      VariantClear(argument.pvarVal);
      if (random_.one_in(10)) return values_.fill(*argument.pvarVal);
      argument.pvarVal->vt = VT_DISPATCH;
      argument.pvarVal->pdispVal = Pointer<IDispatch>(this).detach();
    } else if (argument.vt == (VT_BYREF | VT_DISPATCH) && *argument.ppdispVal) {
      (*argument.ppdispVal)->Release();
      *argument.ppdispVal = nullptr;
    }
  }

  HRESULT refuse(EXCEPINFO& failure) {
    static const std::vector<HRESULT> codes{DISP_E_EXCEPTION,      DISP_E_EXCEPTION, DISP_E_TYPEMISMATCH,
                                            DISP_E_MEMBERNOTFOUND, E_FAIL,           E_OUTOFMEMORY};
    const HRESULT code = random_.pick(codes);
    if (code != DISP_E_EXCEPTION) return code;
    failure = {};
    if (random_.one_in(2))
      failure.wCode = static_cast<WORD>(random_.below(70000));
    else
      failure.scode = random_.pick(fuzz_numbers);
    if (random_.one_in(2)) failure.bstrDescription = to_bstr(random_.pick(fuzz_texts));
    if (random_.one_in(2)) failure.bstrSource = to_bstr(random_.pick(fuzz_texts));
    return code;
  }

  Random& random_;
  Values& values_;
  ULONG count_ = 1;
  long calls_ = 0;
};

/// One argument: the caller's variable, which stays where it is during the call.
struct Argument {
  VARIANT variable;

  /// As a value, as a reference of either kind, or as something strange.
  VARIANT passed_by(Random& random) {
    VARIANT passed = variable;
    if (random.one_in(60)) {
      VariantInit(&passed);
      passed.vt = random.pick(strange_types);
      if (random.one_in(2)) passed.vt |= VT_BYREF;
    } else if (random.one_in(4)) {
      passed.vt = VT_BYREF | VT_VARIANT;
      passed.pvarVal = &variable;
    } else if (random.one_in(4) && size_of(variable.vt) != 0) {
      passed.vt = variable.vt | VT_BYREF;
      passed.byref = variable.vt == VT_DECIMAL ? static_cast<void*>(&variable) : &variable.byref;
    }
    if ((passed.vt & VT_BYREF) != 0 && random.one_in(40)) passed.byref = nullptr;
    return passed;
  }
};

constexpr size_t most_names = 12;
const std::vector<DISPID> odd_ids{DISPID_NEWENUM, DISPID_UNKNOWN, DISPID_VALUE, 99};

VARTYPE type_for(automation::ValueType type) {
  switch (type) {
    case automation::ValueType::boolean:
      return VT_BOOL;
    case automation::ValueType::integer:
    case automation::ValueType::long_integer:
      return VT_I4;
    case automation::ValueType::single:
    case automation::ValueType::double_precision:
      return VT_R8;
    case automation::ValueType::object:
      return VT_DISPATCH;
    default:
      return VT_BSTR;
  }
}

WORD flags_for(automation::MemberKind kind) {
  if (kind == automation::MemberKind::put) return DISPATCH_PROPERTYPUT;
  if (kind == automation::MemberKind::putref) return DISPATCH_PROPERTYPUTREF;
  return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
}

class Fuzzer {
 public:
  explicit Fuzzer(uint64_t seed) : random_(seed), values_(random_), moody_(random_, values_) { renew(); }
  ~Fuzzer() {
    drop_all();
    if (moody_.count() != 1) fail("an object of the host is still held");
    if (!automation::com::KeepsLoaded::none()) fail("an object is still in the hands of its host");
  }
  Fuzzer(const Fuzzer&) = delete;
  Fuzzer& operator=(const Fuzzer&) = delete;

  void call() {
    if (random_.one_in(2000)) renew();
    const Target target = random_.pick(targets_);
    const automation::Member& row = target.rows[random_.below(target.rows.size())];
    // Two calls of three are such as a host might mean.
    Request request = random_.one_in(3) ? any_request() : meant_request(row);
    invoke(*target.object.get(), random_.one_in(30) ? random_.pick(odd_ids) : row.id, request);
  }

  long answered() const { return answered_; }
  long asked() const { return moody_.calls(); }

 private:
  struct Target {
    Pointer<IDispatch> object;
    std::span<const automation::Member> rows;
  };

  /// How a member is called; an assigned value has a name of its own.
  struct Request {
    std::vector<Argument> arguments;
    WORD flags;
    size_t names = assigns(flags) && !arguments.empty() ? 1 : 0;

    static bool assigns(WORD flags) { return (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0; }
  };

  /// The arguments that the member takes, the last ones left out at times, and mostly of its types.
  Request meant_request(const automation::Member& row) {
    const auto parameters = row.parameters();
    const size_t count = random_.one_in(4) ? random_.below(parameters.size() + 1) : parameters.size();
    Request request{std::vector<Argument>(count), flags_for(row.kind)};
    for (size_t i = 0; i < count; ++i)
      if (random_.one_in(8))
        values_.fill(request.arguments[i].variable);
      else
        values_.fill(request.arguments[i].variable, type_for(parameters[i].type));
    return request;
  }

  Request any_request() {
    const size_t count = random_.one_in(100) ? 40 : random_.below(10);
    Request request{std::vector<Argument>(count), random_.pick(flags_)};
    for (Argument& argument : request.arguments) values_.fill(argument.variable);
    if (random_.one_in(3)) request.names = random_.below(most_names);
    return request;
  }

  void invoke(IDispatch& object, DISPID id, Request& request) {
    std::vector<VARIANT> passed;
    for (Argument& argument : request.arguments) passed.push_back(argument.passed_by(random_));
    std::reverse(passed.begin(), passed.end());
    std::array<DISPID, most_names> names{};
    for (DISPID& name : names) name = static_cast<DISPID>(random_.below(12)) - 1;
    if (Request::assigns(request.flags)) names[0] = DISPID_PROPERTYPUT;
    DISPPARAMS given{passed.data(), names.data(), static_cast<UINT>(passed.size()), static_cast<UINT>(request.names)};
    Value result;
    EXCEPINFO failure{};
    patience_.renew();
    const HRESULT code =
        object.Invoke(id, IID_NULL, 0, request.flags, &given, random_.one_in(10) ? nullptr : result.put(),
                      random_.one_in(10) ? nullptr : &failure, nullptr);
    if (code == S_OK) ++answered_;
    SysFreeString(failure.bstrDescription);
    SysFreeString(failure.bstrSource);
    for (Argument& argument : request.arguments) {
      keep(argument.variable);
      if (FAILED(VariantClear(&argument.variable))) fail("a variable of the caller is no longer sound");
    }
    keep(result.get());
  }

  /// New objects now and then, on an archive in memory.
  void renew() {
    drop_all();
    values_.objects.assign(4, Pointer<IDispatch>(&moody_));
    for (const auto& entry : automation::loaded_classes())
      add(Pointer<IDispatch>::adopt(automation::com::hand_out(entry.create())));
    Pointer<IDispatch> connector;
    for (const Target& target : targets_) {
      Value url;
      url.get() = text("sqlite::memory:");
      if (Call(target.object.get(), "Open", DISPATCH_METHOD, {url.get()}).result == S_OK) {
        connector = target.object;
        Call(target.object.get(), "CreateSchema", DISPATCH_METHOD, {});
        Value draws;
        draws.get() = text(fuzz_draws);
        Call(target.object.get(), "ExecuteSql", DISPATCH_METHOD, {draws.get()});
      }
    }
    // Objects on the library's own connector and on the host's, by turns.
    for (const Target& target : targets_)
      Call(target.object.get(), "ActiveConnection", DISPATCH_PROPERTYPUTREF,
           {object(random_.one_in(2) ? &moody_ : connector.get())});
  }

  void add(Pointer<IDispatch> object) {
    const auto& description = automation::com::take_in(object.get())->description();
    if (description.members.empty()) return;
    values_.objects.push_back(object);
    targets_.push_back({std::move(object), description.members});
  }

  void drop_all() {
    for (const Target& target : targets_)
      Call(target.object.get(), "ActiveConnection", DISPATCH_PROPERTYPUTREF, {object(nullptr)});
    values_.objects.clear();
    targets_.clear();
  }

  /// Objects that come back join the targets, up to a few; items are walked.
  void keep(const VARIANT& value) {
    if (value.vt != VT_DISPATCH && value.vt != VT_UNKNOWN) return;
    if (const auto items = Pointer<IEnumVARIANT>::query(value.punkVal)) return walk(*items.get());
    if (targets_.size() >= 30) return;
    if (auto object = Pointer<IDispatch>::query(value.punkVal)) add(std::move(object));
  }

  void walk(IEnumVARIANT& items) {
    std::array<Value, 4> found;
    ULONG count = 0;
    items.Skip(static_cast<ULONG>(random_.below(3)));
    Pointer<IEnumVARIANT> copy;
    items.Clone(copy.put());
    items.Next(1, found[3].put(), nullptr);
    static_assert(sizeof(Value) == sizeof(VARIANT));
    const HRESULT code = items.Next(3, found[0].put(), &count);
    if (SUCCEEDED(code) && (code == S_OK) != (count == 3)) fail("a walk miscounts its items");
  }

  Random random_;
  Patience patience_;
  Values values_;
  Moody moody_;
  long answered_ = 0;
  std::vector<Target> targets_;
  const std::vector<WORD> flags_{DISPATCH_METHOD,
                                 DISPATCH_METHOD,
                                 DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                 DISPATCH_PROPERTYGET,
                                 DISPATCH_PROPERTYPUT,
                                 DISPATCH_PROPERTYPUTREF,
                                 DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF,
                                 0,
                                 16};
};

/// False when the calls were too many of them refused to test anything.
bool run(long calls, uint64_t seed) {
  Fuzzer fuzzer(seed);
  for (long i = 0; i < calls; ++i) fuzzer.call();
  std::printf("%ld calls, seed %llu: every one came back, %ld with an answer; the host was asked %ld times\n", calls,
              static_cast<unsigned long long>(seed), fuzzer.answered(), fuzzer.asked());
  return fuzzer.answered() > calls / 5 && fuzzer.asked() > calls / 100;
}

}  // namespace
}  // namespace com_client

int main(int argc, char** argv) {
  const long calls = argc > 1 ? std::atol(argv[1]) : 100000;
  const uint64_t seed = argc > 2 ? static_cast<uint64_t>(std::atoll(argv[2])) : 1;
  const com_client::Apartment apartment;
  const testing_support::TemporaryFolder folder;
  std::filesystem::current_path(folder.path());
  vestara::set_log_folder("nowhere");
  const bool tested = com_client::run(calls, seed);
  std::filesystem::current_path("/");
  return tested ? 0 : 1;
}
