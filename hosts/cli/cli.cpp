#include "hosts/cli/cli.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <new>
#include <variant>

#include "automation/text.h"
#include "automation/text/shown_text.h"
#include "hosts/cli/archive/shortage.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/options/command_line.h"

namespace vestara::host {
namespace {

struct RunCommand {
  const Context& context;

  ExitCode operator()(const TextWanted& wanted) const {
    context.out << wanted.text;
    return ExitCode::ok;
  }
  ExitCode operator()(const ImportOptions& options) const { return run_import(options, context); }
  ExitCode operator()(const GenerateOptions& options) const { return run_generate(options, context); }
  ExitCode operator()(const ArchiveOptions& options) const { return run_archive(options, context); }
  ExitCode operator()(const SearchOptions& options) const { return run_search(options, context); }
  ExitCode operator()(const DistancesOptions& options) const { return run_distances(options, context); }
  ExitCode operator()(const ProbabilityOptions& options) const { return run_probability(options, context); }
  ExitCode operator()(const CombinationsOptions& options) const { return run_combinations(options, context); }
  ExitCode operator()(const DelaysOptions& options) const { return run_delays(options, context); }
  ExitCode operator()(const FrequenciesOptions& options) const { return run_frequencies(options, context); }
  ExitCode operator()(const TableOptions& options) const { return run_table(options, context); }
  ExitCode operator()(const GapsOptions& options) const { return run_gaps(options, context); }
  ExitCode operator()(const ExportOptions& options) const { return run_export(options, context); }
  ExitCode operator()(const CopyOptions& options) const { return run_copy(options, context); }
  ExitCode operator()(const BackupOptions& options) const { return run_backup(options, context); }
  ExitCode operator()(const RestoreOptions& options) const { return run_restore(options, context); }
  ExitCode operator()(const DoctorOptions& options) const { return run_doctor(options, context); }
  ExitCode operator()(const DrawOptions& options) const { return run_draw(options, context); }
  ExitCode operator()(const SavedOptions& options) const { return run_saved(options, context); }
  ExitCode operator()(const SystemOptions& options) const { return run_system(options, context); }
  ExitCode operator()(const DescribeOptions& options) const { return run_describe(options, context); }
  ExitCode operator()(const CallOptions& options) const { return run_call(options, context); }
  ExitCode operator()(const RegisterOptions& options) const { return run_register(options, context); }
  ExitCode operator()(const UnregisterOptions& options) const { return run_unregister(options, context); }
  ExitCode operator()(const ClassesOptions&) const { return run_classes(context); }
};

ExitCode run_command(int argc, const char* const* argv, std::ostream& out, std::ostream& err) {
  const Options options = parse_command_line(argc, argv);
  const Context context{options, out, err};
  const ExitCode code = std::visit(RunCommand{context}, options.command);
  out.flush();
  // A reader that has seen enough is no error.
  if (!out && errno != EPIPE)
    throw Failure(ExitCode::file, std::string("the results cannot be written: ") +
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

int run(int argc, const char* const* argv, std::ostream& out, std::ostream& err) {
  ExitCode code = ExitCode::ok;
  try {
    code = run_command(argc, argv, out, err);
  } catch (const vestara::Failure& failure) {
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
