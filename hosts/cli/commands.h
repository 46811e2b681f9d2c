#pragma once

#include <ostream>

#include "hosts/cli/failure.h"
#include "hosts/cli/options/options.h"

// The commands. Each writes its result to `out` and everything else to `err`, and throws a Failure when it cannot do
// what it is for.

namespace vestara::host {

struct Context {
  const Options& options;
  std::ostream& out;
  std::ostream& err;

  OutputStyle style() const { return {options.format, wants_colour(options.colour, out)}; }
};

ExitCode run_import(const ImportOptions& options, const Context& context);
ExitCode run_generate(const GenerateOptions& options, const Context& context);
ExitCode run_archive(const ArchiveOptions& options, const Context& context);
ExitCode run_search(const SearchOptions& options, const Context& context);
ExitCode run_distances(const DistancesOptions& options, const Context& context);
ExitCode run_probability(const ProbabilityOptions& options, const Context& context);
ExitCode run_combinations(const CombinationsOptions& options, const Context& context);
ExitCode run_delays(const DelaysOptions& options, const Context& context);
ExitCode run_frequencies(const FrequenciesOptions& options, const Context& context);
ExitCode run_table(const TableOptions& options, const Context& context);
ExitCode run_gaps(const GapsOptions& options, const Context& context);
ExitCode run_export(const ExportOptions& options, const Context& context);
ExitCode run_copy(const CopyOptions& options, const Context& context);
ExitCode run_backup(const BackupOptions& options, const Context& context);
ExitCode run_restore(const RestoreOptions& options, const Context& context);
ExitCode run_doctor(const DoctorOptions& options, const Context& context);
ExitCode run_draw(const DrawOptions& options, const Context& context);
ExitCode run_saved(const SavedOptions& options, const Context& context);
ExitCode run_system(const SystemOptions& options, const Context& context);
ExitCode run_describe(const DescribeOptions& options, const Context& context);
ExitCode run_call(const CallOptions& options, const Context& context);
ExitCode run_register(const RegistrationOptions& options, const Context& context);
ExitCode run_unregister(const RegistrationOptions& options, const Context& context);
ExitCode run_classes(const Context& context);

}  // namespace vestara::host
