#include "hosts/cli/archive/shortage.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace vestara::host {

std::string shortage_of_files() {
  // An archive takes three files, a connection or a result some more.
  constexpr size_t enough = 8;
  std::vector<int> opened;
  int code = 0;
  while (opened.size() < enough && code == 0) {
    const int descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
      code = errno;
    else
      opened.push_back(descriptor);
  }
  for (const int descriptor : opened) ::close(descriptor);
  if (code != EMFILE && code != ENFILE) return {};
  return "; this process may open only " + std::to_string(opened.size()) + " more files, raise ulimit -n";
}

}  // namespace vestara::host
