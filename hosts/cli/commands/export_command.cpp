#include <optional>

#include "hosts/cli/command.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/output/draw_output.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/archive_rows.h"

namespace vestara::host {
namespace {

struct ExportOptions {
  std::string output;  ///< empty is standard output
  std::string form = "csv";
  bool contest = false;
};

void add_export(CLI::App& app, ExportOptions& options) {
  value_option(app, "--output", options.output, "FILE", "instead of standard output");
  value_option(app, "--as", options.form, "FORM", "csv (default), tsv: the operator's form, update: the library's own");
  app.add_flag("--contest", options.contest, "with the contest number, in CSV");
}

ContestColumn contest_column(const ExportOptions& options, DrawFormat format) {
  if (!options.contest) return ContestColumn::absent;
  if (format == DrawFormat::csv) return ContestColumn::present;
  throw Failure(FailureKind::argument, "--contest does not go with --as " + std::string(format_name(format)) +
                                           "; it adds a column to CSV, update files always have the number");
}

ExitCode run_export(const ExportOptions& options, const Context& context) {
  const DrawFormat format = draw_format(options.form);
  const ContestColumn contest = contest_column(options, format);
  const ArchiveSession session = context.open_archive();
  const auto order = format == DrawFormat::csv ? WheelOrder::by_code : WheelOrder::by_enumerator;
  std::optional<DrawOutput> output;  // begins with the first draw: an empty archive leaves no file
  const size_t passed_over = read_draws(session, order, [&](const DrawRow& row) {
    if (!output) output.emplace(options.output, context.out, DrawFileWriter(format, contest));
    return output->add(row);
  });
  if (output) output->finish();
  if (passed_over != 0) context.remark("warning: " + counted(passed_over, "row") + " without a whole draw left out");
  if (output) return ExitCode::ok;
  context.remark("the archive holds no draws; vestara import FILE fills it");
  return ExitCode::nothing_found;
}

}  // namespace

extern const Command export_command{"export", Group::draws, "Write the archive as a file",
                                    "vestara export --as csv --output archive.csv", bound<add_export, run_export>};

}  // namespace vestara::host
