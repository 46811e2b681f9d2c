#include <iostream>

#include "hosts/vestara/cli.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  return vestara::host::run(argc, argv, std::cout, std::cerr);
}
