#include "hosts/cli/cli.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <new>

#include "automation/text.h"
#include "automation/text/shown_text.h"
#include "hosts/cli/archive/shortage.h"
#include "hosts/cli/command_line.h"
#include "hosts/cli/failure.h"

namespace vestara::host {
namespace {

ExitCode run_command(int argc, const char* const* argv, std::istream& in, std::ostream& out, std::ostream& err) {
  const Request request = parse_command_line(argc, argv);
  const ExitCode code = request.run({request.settings, in, out, err});
  out.flush();
  // A reader that has seen enough is no error.
  if (!out && errno != EPIPE)
    throw Failure(FailureKind::file, std::string("the results cannot be written: ") +
                                         (errno == EBADF ? "standard output is closed" : std::strerror(errno)) +
                                         "; standard output must take them");
  return code;
}

/// Line by line, because lines of a failure are meant; nothing else of a foreign text gives orders to a terminal.
void say(std::ostream& err, std::string_view failure) {
  std::string text;
  for (const std::string_view line : automation::split(failure, '\n'))
    text.append(text.empty() ? "vestara: " : "\n").append(automation::shown_text(line));
  err << text << "\n";
}

}  // namespace

int run(int argc, const char* const* argv, std::istream& in, std::ostream& out, std::ostream& err) {
  ExitCode code = ExitCode::ok;
  try {
    code = run_command(argc, argv, in, out, err);
  } catch (const Failure& failure) {
    const bool is_of_database = failure.kind() == FailureKind::database;
    say(err, failure.description() + (is_of_database ? shortage_of_files() : std::string()));
    code = exit_code(failure.kind());
  } catch (const std::bad_alloc&) {
    say(err, "there is not enough memory for this, nothing was changed; other programs have to end first");
    code = ExitCode::database;
  } catch (const std::exception& error) {
    say(err, std::string("the archive cannot be worked on: ") + error.what());
    code = ExitCode::database;
  }
  err.flush();
  return static_cast<int>(code);
}

}  // namespace vestara::host
