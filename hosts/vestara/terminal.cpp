#include "hosts/vestara/terminal.h"

#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace vestara::host {
namespace {

std::string_view environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

bool is_terminal(const std::ostream& stream) {
  if (&stream == &std::cout) return ::isatty(STDOUT_FILENO) == 1;
  if (&stream == &std::cerr) return ::isatty(STDERR_FILENO) == 1;
  return false;
}

bool wants_colour(ColourChoice choice, const std::ostream& stream) {
  if (choice != ColourChoice::automatic) return choice == ColourChoice::always;
  return is_terminal(stream) && environment("NO_COLOR").empty() && environment("TERM") != "dumb";
}

}  // namespace vestara::host
