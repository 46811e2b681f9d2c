#include "hosts/cli/command.h"
#include "hosts/cli/commands/registration.h"

namespace vestara::host {
namespace {

ExitCode run_register(const RegistrationOptions& options, const Context& context) {
  return change_registration(automation::register_library, options, "registered", context);
}

}  // namespace

extern const Command register_command{"register", Group::programming,
                                      "Make the classes known to programs that create them by name", "vestara register",
                                      bound<add_registration, run_register>};

}  // namespace vestara::host
