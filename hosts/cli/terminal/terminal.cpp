#include "hosts/cli/terminal/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>

#include "automation/system/file.h"
#include "automation/text.h"

namespace vestara::host {
bool is_terminal(const std::ostream& stream) {
  if (&stream == &std::cout) return ::isatty(STDOUT_FILENO) == 1;
  if (&stream == &std::cerr) return ::isatty(STDERR_FILENO) == 1;
  return false;
}

bool is_terminal(const std::istream& stream) { return &stream == &std::cin && ::isatty(STDIN_FILENO) == 1; }

size_t terminal_columns(const std::ostream& stream) {
  constexpr size_t usual = 80;
  struct winsize size {};
  const int descriptor = &stream == &std::cerr ? STDERR_FILENO : STDOUT_FILENO;
  if (!is_terminal(stream) || ::ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return usual;
  return size.ws_col;
}

bool shows_utf8(const std::ostream& stream) {
  if (!is_terminal(stream) || automation::environment_variable("TERM") == "dumb") return false;
  for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const std::string locale = automation::lower_case(automation::environment_variable(name));
    if (!locale.empty()) return locale.find("utf-8") != std::string::npos || locale.find("utf8") != std::string::npos;
  }
  return false;
}

bool wants_colour(ColourChoice choice, const std::ostream& stream) {
  if (choice != ColourChoice::automatic) return choice == ColourChoice::always;
  return is_terminal(stream) && automation::environment_variable("NO_COLOR").empty() &&
         automation::environment_variable("TERM") != "dumb";
}

}  // namespace vestara::host
