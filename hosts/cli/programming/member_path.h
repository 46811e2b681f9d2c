#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "automation/variant.h"

namespace vestara::host {

/// One member on the way from an object to another.
struct MemberStep {
  std::string name;
  std::vector<automation::Variant> arguments;
};

/// Reads "GetRecordset('SELECT 1 AS n').Fields.Item(0)": members between points, arguments as literals between commas;
/// one that is left blank is Missing. Failure (usage) for anything else.
std::vector<MemberStep> parse_member_path(std::string_view text);

/// The value that the path leads to. Errors of the members, and 91 where a member gives no object to go on from.
automation::Variant follow(automation::Object& start, const std::vector<MemberStep>& path);
automation::Variant follow(automation::Object& start, std::string_view path);

}  // namespace vestara::host
