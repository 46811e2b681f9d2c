#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/member.h"
#include "automation/variant.h"

namespace vestara::host {

/// The row that a call of this kind means; where a member has none of the kind, any row of its name. Null when the
/// class has no such member.
const automation::Member* row_for(const automation::ClassDescription& surface, std::string_view member,
                                  automation::InvokeKind kind);

/// What a late-bound call is made with: positional values, then named ones.
struct CallArguments {
  std::vector<automation::Variant> values;
  std::vector<std::string> names;  ///< of the last values

  std::vector<std::string_view> name_views() const { return {names.begin(), names.end()}; }
};

/// Arguments from words. "name=value" is a named argument where the member has such a parameter and a text elsewhere;
/// "name:=value" always is one. A command line has no variables, so optional parameters that write back are passed even
/// when they were left out. Failure (usage) for a positional word after a named one.
CallArguments call_arguments(const automation::Member& row, const std::vector<std::string>& words);

/// The parameter that takes the value at `place`; "" when there is none.
std::string parameter_at(const automation::Member& row, const CallArguments& arguments, size_t place);

}  // namespace vestara::host
