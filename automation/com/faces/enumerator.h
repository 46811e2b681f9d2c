#pragma once

#include <functional>
#include <utility>

#include "automation/com/system/counted.h"
#include "automation/com/system/failure.h"

namespace automation::com {

/// Walks elements that a function makes one by one: IEnumVARIANT, IEnumConnections, IEnumConnectionPoints.
template <class Interface, class Element>
class Enumerator final : public Counted<Interface> {
 public:
  /// Makes the element at a place, counted from 0; the caller owns it.
  using Make = std::function<Element(ULONG place)>;
  Enumerator(ULONG count, Make make, ULONG place = 0) : count_(count), make_(std::move(make)), place_(place) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, Element* elements, ULONG* fetched) override {
    if (fetched) *fetched = 0;
    if (!elements || (!fetched && wanted != 1)) return E_POINTER;
    return guarded([&]() -> HRESULT {
      ULONG given = 0;
      for (; given < wanted && place_ < count_; ++given) {
        elements[given] = make_(place_++);
        if (fetched) *fetched = given + 1;
      }
      return given == wanted ? S_OK : S_FALSE;
    });
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG wanted) override {
    const ULONG left = count_ - place_;
    place_ += wanted < left ? wanted : left;
    return wanted <= left ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    place_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(Interface** copy) override {
    if (!copy) return E_POINTER;
    return guarded([&]() -> HRESULT {
      *copy = new Enumerator(count_, make_, place_);
      return S_OK;
    });
  }

 private:
  ULONG count_;
  Make make_;
  ULONG place_;
};

}  // namespace automation::com
