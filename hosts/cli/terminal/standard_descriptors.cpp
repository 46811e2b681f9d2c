#include "hosts/cli/terminal/standard_descriptors.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <initializer_list>

namespace vestara::host {

void open_standard_descriptors() {
  // In their order: the system gives out the lowest free number.
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) >= 0 || errno != EBADF) continue;
    if (::open("/dev/null", descriptor == STDERR_FILENO ? O_WRONLY : O_RDONLY) != descriptor) std::abort();
  }
}

}  // namespace vestara::host
