#include <csignal>
#include <iostream>

#include "hosts/vestara/cli.h"

int main(int argc, char** argv) {
  // A file that may not grow any further (ulimit -f) is then an error like a full disk.
  std::signal(SIGXFSZ, SIG_IGN);
  std::ios::sync_with_stdio(false);
  return vestara::host::run(argc, argv, std::cout, std::cerr);
}
