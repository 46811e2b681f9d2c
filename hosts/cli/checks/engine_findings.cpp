#include "hosts/cli/checks/engine_findings.h"

#include "automation/text.h"

namespace vestara::host {

Findings trigger_findings(const TriggerFinding& triggers) {
  if (triggers.count == 0) return {};
  return {{"triggers on the archive's tables", triggers.count, triggers.name + " on " + triggers.table,
           "drop them, or know what they do: what is saved need not be what is stored"}};
}

Findings column_findings(const std::vector<UncomparableColumn>& columns) {
  Findings findings;
  for (const UncomparableColumn& column : columns)
    findings.push_back(
        {automation::concatenated({"texts of ", column.table, ".", column.column, " cannot be compared"}), 1,
         column.reason, "give the database the collation, or vestara copy what the archive holds to a new one"});
  return findings;
}

Findings change_findings(const std::string& why) {
  if (why.empty()) return {};
  return {{"changes are refused", 1, why, "let the other program finish, or give the user the right to write"}};
}

}  // namespace vestara::host
