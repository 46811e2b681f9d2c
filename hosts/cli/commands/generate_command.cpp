#include "hosts/cli/commands.h"
#include "hosts/cli/output/draw_output.h"
#include "vestara/draws/calendar.h"
#include "vestara/draws/synthetic_draws.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

bool has_draws(const GenerateOptions& options) {
  for (int32_t day = std::max(options.from, first_draw_day()); day <= options.to; ++day)
    if (is_draw_day(day)) return true;
  return false;
}

}  // namespace

ExitCode run_generate(const GenerateOptions& options, const Context& context) {
  if (!has_draws(options)) {
    context.err << "vestara: no draw falls between " << shown_day(options.from) << " and " << shown_day(options.to)
                << "; the first was on " << shown_day(first_draw_day()) << "\n";
    return ExitCode::nothing_found;
  }
  DrawOutput output(options.output, context.out, DrawFileWriter(DrawFormat::tsv));
  synthetic_draws(options.seed, options.from, options.to, [&](const DrawRow& row) { return output.add(row); });
  output.finish();
  return ExitCode::ok;
}

}  // namespace vestara::host
