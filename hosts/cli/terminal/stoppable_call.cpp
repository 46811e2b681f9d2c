#include "hosts/cli/terminal/stoppable_call.h"

#include <utility>

#include "automation/error.h"
#include "automation/yield.h"

namespace vestara::host {

StoppableCall::StoppableCall()
    : before_(automation::set_yield_hook([] {
        if (Interruption::requested()) throw automation::failure(automation::FailureKind::interrupted, "interrupted");
      })) {}

StoppableCall::~StoppableCall() { automation::set_yield_hook(std::move(before_)); }

}  // namespace vestara::host
