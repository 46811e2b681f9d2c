#include <csignal>
#include <iostream>

#include "automation/system/file.h"
#include "hosts/cli/cli.h"
#include "hosts/cli/terminal/standard_descriptors.h"
#include "vestara/foundation/error_log.h"

namespace {

/// An installed program does not write beside its libraries. Without a state folder the library decides.
void name_log_folder() {
  if (automation::environment_variable("VESTARA_LOG_DIR").empty()) vestara::set_log_folder(vestara::state_folder());
}

}  // namespace

int main(int argc, char** argv) {
  vestara::host::open_standard_descriptors();
  // A file that may not grow any further (ulimit -f) is then an error like a full disk.
  std::signal(SIGXFSZ, SIG_IGN);
  std::ios::sync_with_stdio(false);
  name_log_folder();
  return vestara::host::run(argc, argv, std::cin, std::cout, std::cerr);
}
