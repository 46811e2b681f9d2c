#pragma once  // for hosts

#include <string>
#include <string_view>

#include "automation/export.h"
#include "automation/member.h"
#include "automation/registry.h"

namespace automation {

/// The names that types and kinds bear in printed surfaces: "Long", "Boolean", "cStatistiche" …; "get", "put".
AUTOMATION_API std::string type_name(ValueType type, std::string_view class_name);
AUTOMATION_API std::string_view kind_name(MemberKind kind);

/// The default of an optional parameter as it is written in code: 0, False, "". Empty when it stays Missing.
AUTOMATION_API std::string default_text(const DefaultValue& value);

/// The surface of a class as one line of JSON:
///   {"library","class","interface","event_interface","creatable","first_item","help","members":[…],"events":[…]}
/// with "first_item" null for what is no collection, members {"id","kind","name","parameters":[…],"result","help"},
/// events {"id","name","parameters","help"} and parameters
/// {"name","type","passing","optional","default","writes_back"}.
AUTOMATION_API std::string describe_json(const RegisteredClass& entry);

}  // namespace automation
