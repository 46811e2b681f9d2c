#pragma once

#include <vector>

#include "automation/com/system/platform.h"
#include "automation/com/system/pointer.h"
#include "automation/object.h"

namespace automation::com {

class Dispatch;

/// The events of an object as COM sees them. There is one connection point: it is part of the object's face, shares its
/// count and its identity, and disconnects every sink when the face ends.
class ConnectionPoints final : public IConnectionPointContainer, public IConnectionPoint {
 public:
  ConnectionPoints(Dispatch& face, Object& object);
  ConnectionPoints(const ConnectionPoints&) = delete;
  ConnectionPoints& operator=(const ConnectionPoints&) = delete;
  ~ConnectionPoints();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

 private:
  struct Connection {
    DWORD cookie;
    Pointer<IDispatch> sink;
  };

  const GUID& event_id() const;

  Dispatch& face_;
  Object& object_;
  std::vector<Connection> connections_;
};

}  // namespace automation::com
