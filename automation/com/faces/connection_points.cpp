#include "automation/com/faces/connection_points.h"

#include <algorithm>
#include <array>

#include "automation/com/faces/dispatch.h"
#include "automation/com/faces/enumerator.h"
#include "automation/com/system/failure.h"
#include "automation/com/system/identifiers.h"
#include "automation/com/values/value.h"
#include "automation/event_source.h"
#include "automation/member.h"

namespace automation::com {
namespace {

/// Calls a sink by the event's id. What it answers is its own affair.
void deliver(IDispatch& sink, const Event& event, std::span<const Variant> arguments) {
  std::array<Value, 2> values;
  std::array<VARIANT, 2> reversed{};
  const size_t count = std::min(arguments.size(), values.size());
  for (size_t i = 0; i < count; ++i) {
    to_value(arguments[i], values[i].get());
    reversed[count - 1 - i] = values[i].get();
  }
  DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(count), 0};
  Value ignored;
  sink.Invoke(event.id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, ignored.put(), nullptr, nullptr);
}

/// The sink's side that is called: it may answer to the event interface only.
Pointer<IDispatch> callable(IUnknown* sink, const GUID& event_id) {
  Pointer<IDispatch> result;
  if (SUCCEEDED(sink->QueryInterface(event_id, result.out()))) return result;
  return Pointer<IDispatch>::query(sink);
}

}  // namespace

ConnectionPoints::ConnectionPoints(Dispatch& face, Object& object) : face_(face), object_(object) {}

ConnectionPoints::~ConnectionPoints() {
  for (const Connection& connection : connections_)
    object_.event_source()->disconnect(static_cast<int32_t>(connection.cookie));
}

const GUID& ConnectionPoints::event_id() const { return identifiers_of(object_.description()).event_id; }

HRESULT ConnectionPoints::QueryInterface(REFIID id, void** object) { return face_.QueryInterface(id, object); }
ULONG ConnectionPoints::AddRef() { return face_.AddRef(); }
ULONG ConnectionPoints::Release() { return face_.Release(); }

HRESULT ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** points) {
  if (!points) return E_POINTER;
  return guarded([&]() -> HRESULT {
    const Pointer<IConnectionPoint> own(this);
    *points = new Enumerator<IEnumConnectionPoints, IConnectionPoint*>(1, [own](ULONG) {
      own->AddRef();
      return own.get();
    });
    return S_OK;
  });
}

HRESULT ConnectionPoints::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
  if (!point) return E_POINTER;
  *point = nullptr;
  if (id != event_id()) return CONNECT_E_NOCONNECTION;
  *point = this;
  AddRef();
  return S_OK;
}

HRESULT ConnectionPoints::GetConnectionInterface(IID* id) {
  if (!id) return E_POINTER;
  *id = event_id();
  return S_OK;
}

HRESULT ConnectionPoints::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (!container) return E_POINTER;
  *container = this;
  AddRef();
  return S_OK;
}

HRESULT ConnectionPoints::Advise(IUnknown* sink, DWORD* cookie) {
  if (!sink || !cookie) return E_POINTER;
  *cookie = 0;
  return guarded([&]() -> HRESULT {
    const auto called = callable(sink, event_id());
    if (!called) return CONNECT_E_CANNOTCONNECT;
    const int32_t place = object_.event_source()->connect(
        [called](const Event& event, std::span<const Variant> arguments) { deliver(*called.get(), event, arguments); });
    *cookie = static_cast<DWORD>(place);
    connections_.push_back({*cookie, called});
    return S_OK;
  });
}

HRESULT ConnectionPoints::Unadvise(DWORD cookie) {
  if (!object_.event_source()->disconnect(static_cast<int32_t>(cookie))) return CONNECT_E_NOCONNECTION;
  std::erase_if(connections_, [&](const Connection& connection) { return connection.cookie == cookie; });
  return S_OK;
}

HRESULT ConnectionPoints::EnumConnections(IEnumConnections** connections) {
  if (!connections) return E_POINTER;
  return guarded([&]() -> HRESULT {
    const auto count = static_cast<ULONG>(connections_.size());
    *connections =
        new Enumerator<IEnumConnections, CONNECTDATA>(count, [now = connections_](ULONG place) -> CONNECTDATA {
          now[place].sink->AddRef();
          return {now[place].sink.get(), now[place].cookie};
        });
    return S_OK;
  });
}

}  // namespace automation::com
