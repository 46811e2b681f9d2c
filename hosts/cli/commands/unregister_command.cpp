#include "hosts/cli/command.h"
#include "hosts/cli/commands/registration.h"

namespace vestara::host {
namespace {

ExitCode run_unregister(const RegistrationOptions& options, const Context& context) {
  return change_registration(automation::unregister_library, options, "no longer registered", context);
}

}  // namespace

extern const Command unregister_command{"unregister", Group::programming, "Take the registration back",
                                        "vestara unregister", bound<add_registration, run_unregister>};

}  // namespace vestara::host
