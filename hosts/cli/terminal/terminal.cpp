#include "hosts/cli/terminal/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string_view>

#include "automation/text.h"

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

size_t terminal_columns(const std::ostream& stream) {
  constexpr size_t usual = 80;
  struct winsize size {};
  const int descriptor = &stream == &std::cerr ? STDERR_FILENO : STDOUT_FILENO;
  if (!is_terminal(stream) || ::ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return usual;
  return size.ws_col;
}

bool shows_utf8(const std::ostream& stream) {
  if (!is_terminal(stream) || environment("TERM") == "dumb") return false;
  for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const std::string locale = automation::lower_case(environment(name));
    if (!locale.empty()) return locale.find("utf-8") != std::string::npos || locale.find("utf8") != std::string::npos;
  }
  return false;
}

bool wants_colour(ColourChoice choice, const std::ostream& stream) {
  if (choice != ColourChoice::automatic) return choice == ColourChoice::always;
  return is_terminal(stream) && environment("NO_COLOR").empty() && environment("TERM") != "dumb";
}

}  // namespace vestara::host
