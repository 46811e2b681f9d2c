#include <optional>

#include "hosts/cli/commands.h"
#include "hosts/cli/output/draw_output.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/archive_rows.h"

namespace vestara::host {

ExitCode run_export(const ExportOptions& options, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  const auto order = options.format == DrawFormat::csv ? WheelOrder::by_code : WheelOrder::by_enumerator;
  std::optional<DrawOutput> output;  // begins with the first draw: an empty archive leaves no file
  const size_t passed_over = read_draws(session, order, [&](const DrawRow& row) {
    if (!output) output.emplace(options.output, context.out, DrawFileWriter(options.format, options.contest));
    return output->add(row);
  });
  if (output) output->finish();
  if (passed_over != 0)
    context.err << "vestara: warning: " << counted(passed_over, "row") << " without a whole draw left out\n";
  if (output) return ExitCode::ok;
  context.err << "vestara: the archive holds no draws; vestara import FILE fills it\n";
  return ExitCode::nothing_found;
}

}  // namespace vestara::host
