#pragma once

#include "automation/member.h"

namespace vestara {

// The events of cLotto. Only the history import raises them.
extern const automation::Event loading_start;
extern const automation::Event loading_progress;  ///< recPos, recCount
extern const automation::Event loading_end;

}  // namespace vestara
