#pragma once

#include <span>
#include <string>
#include <string_view>

#include "automation/member.h"
#include "automation/registry.h"

namespace vestara::idl {

/// The interface definition of a library: an interface for calls by name per class, one more for its events, and the
/// classes themselves, with the ids of the member rows. Parameters that a member writes back are VARIANTs, the only
/// type that script hosts can pass by reference. Objects have the interface of their class; the classes of the other
/// library are names for any object, since a host may bring its own connector and record sets.
std::string idl_text(std::string_view library, std::string_view help,
                     std::span<const automation::RegisteredClass> classes);

}  // namespace vestara::idl
