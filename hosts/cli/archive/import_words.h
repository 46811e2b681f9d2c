#pragma once

#include <string>

#include "vestara/keeping/import/import_plan.h"

// What an import has to say besides its figures. Texts end without a line break.

namespace vestara::host {

/// Why the import is refused and which command does it; `file` as it stands on the command line.
std::string refusal_text(const ImportPlan& plan, ImportMode mode, const std::string& file);

/// Names what is removed by a rewrite, "" when nothing is. `verb` is "went" or "would go".
std::string removal_text(const ImportPlan& plan, const std::string& verb);

/// Says that rows which the file does not have stay without being asked for, "" when none do.
std::string join_text(const ImportPlan& plan);

/// Says that equal rows keep their contest numbers although the file has others, "" when none do.
std::string contest_text(const ImportPlan& plan);

/// Names the draws entered by hand that are lost; writes nothing when none is. `verb` is "went" or "would go".
void warn_of_lost(std::ostream& err, const std::vector<ManualDraw>& manual, const std::string& verb);

}  // namespace vestara::host
