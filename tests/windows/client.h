#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/com/system/pointer.h"
#include "automation/com/values/value.h"

namespace com_client {

using automation::Variant;
using automation::com::Pointer;
using automation::com::Value;

/// COM for the whole program.
class Apartment {
 public:
  Apartment() { CoInitialize(nullptr); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() { CoUninitialize(); }
};

/// An object by its programmatic identifier; nothing when there is none.
Pointer<IDispatch> create(std::string_view identifier);

DISPID id_of(IDispatch* object, std::string_view member);

/// One call as a host makes it. `number` is what a script would see in Err.Number.
struct Call {
  HRESULT result = S_OK;
  int number = 0;
  std::string description;
  std::string source;
  Value value;

  Call(IDispatch* object, std::string_view member, WORD flags, std::vector<VARIANT> arguments);
  Variant answer() { return automation::com::from_value(value.get()); }
  Pointer<IDispatch> object() { return Pointer<IDispatch>(value->pdispVal); }
};

/// Arguments as a compiler would pass them. Texts live as long as the program.
VARIANT text(std::string_view value);
VARIANT whole(int32_t value);
VARIANT object(IDispatch* value);
VARIANT missing();

/// An archive in memory with two draws on wheel 3.
Pointer<IDispatch> small_archive();
Pointer<IDispatch> lotto_on(IDispatch* connector);

}  // namespace com_client
