#include "automation/com/faces/host_object.h"

#include <dispex.h>

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "automation/com/system/failure.h"
#include "automation/com/system/pointer.h"
#include "automation/com/system/text.h"
#include "automation/com/values/host_arguments.h"
#include "automation/com/values/value.h"
#include "automation/member.h"
#include "automation/objects/call_depth.h"

namespace automation::com {
namespace {

WORD flags_of(InvokeKind kind) {
  switch (kind) {
    case InvokeKind::put:
      return DISPATCH_PROPERTYPUT;
    case InvokeKind::putref:
      return DISPATCH_PROPERTYPUTREF;
    default:
      // Callers by name do not know which of the two a member is.
      return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  }
}

/// The host's member does not take a reference of the kind that it was given.
struct Unfit {};

class HostObject final : public Object {
 public:
  explicit HostObject(Pointer<IDispatch> given)
      : given_(std::move(given)), extended_(Pointer<IDispatchEx>::query(given_.get())) {}

  /// A host's class has no rows: it is asked by name.
  const ClassDescription& description() const override {
    static constexpr ClassDescription nothing{.library = "", .name = "Object", .interface_name = "", .help = ""};
    return nothing;
  }

  std::optional<int32_t> id_of(std::string_view member) const override {
    std::string name(member);
    if (const auto found = ids_.find(name); found != ids_.end()) return found->second;
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(ask(name, id)) || id == DISPID_UNKNOWN) return std::nullopt;
    ids_.emplace(std::move(name), id);
    return id;
  }

  Variant invoke(int32_t id, InvokeKind kind, std::span<Variant> arguments,
                 std::span<const std::string_view> names) override {
    const CallDepth inside(Caller::library);
    if (!names.empty()) throw no_named_arguments();
    try {
      return call(id, kind, arguments, Reference::variant);
    } catch (const Unfit&) {
      // A member compiled with a parameter of its own type takes a reference to that and no other.
      return call(id, kind, arguments, Reference::object);
    }
  }

  IDispatch* given() const {
    given_->AddRef();
    return given_.get();
  }

 private:
  HRESULT ask(const std::string& name, DISPID& id) const {
    const Bstr text(name);
    if (extended_ && SUCCEEDED(extended_->GetDispID(text.get(), fdexNameCaseInsensitive, &id))) return S_OK;
    BSTR wide = text.get();
    return given_->GetIDsOfNames(IID_NULL, &wide, 1, LOCALE_USER_DEFAULT, &id);
  }

  Variant call(DISPID id, InvokeKind kind, std::span<Variant> arguments, Reference reference) {
    HostArguments given(arguments, kind, reference);
    Value result;
    EXCEPINFO failure{};
    HRESULT code = call(id, flags_of(kind), given.parameters(), result.get(), failure);
    // Some hosts take a property that is no function for one when it is asked for as either.
    if (FAILED(code) && code != DISP_E_EXCEPTION && kind == InvokeKind::get && arguments.empty())
      code = call(id, DISPATCH_PROPERTYGET, given.parameters(), result.get(), failure);
    if (code == DISP_E_TYPEMISMATCH && given.has_references() && reference == Reference::variant) throw Unfit{};
    if (FAILED(code)) throw failure_of(code, failure);
    given.give_back(arguments);
    return from_value(result.get());
  }

  HRESULT call(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT& result, EXCEPINFO& failure) {
    VARIANT* answer = (flags & DISPATCH_PROPERTYGET) != 0 ? &result : nullptr;
    if (extended_) return extended_->InvokeEx(id, LOCALE_USER_DEFAULT, flags, &parameters, answer, &failure, nullptr);
    return given_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, answer, &failure, nullptr);
  }

  Pointer<IDispatch> given_;
  Pointer<IDispatchEx> extended_;
  /// Ids of a host's members stay as long as the object does.
  mutable std::unordered_map<std::string, DISPID> ids_;
};

}  // namespace

Ref<Object> host_object(IUnknown* given) {
  auto dispatch = Pointer<IDispatch>::query(given);
  if (!dispatch) throw no_automation();
  return make<HostObject>(std::move(dispatch));
}

IDispatch* given_by_host(const Object& object) {
  const auto* own = dynamic_cast<const HostObject*>(&object);
  return own ? own->given() : nullptr;
}

}  // namespace automation::com
