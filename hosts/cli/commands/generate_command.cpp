#include <algorithm>

#include "hosts/cli/command.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/output/draw_output.h"
#include "vestara/draws/calendar.h"
#include "vestara/draws/synthetic_draws.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

struct GenerateOptions {
  std::string seed;
  std::string from;
  std::string to;
  std::string output;  ///< empty is standard output
};

void add_generate(CLI::App& app, GenerateOptions& options) {
  value_option(app, "--seed", options.seed, "N", "the same number gives the same file")->required();
  add_range(app, options.from, options.to);
  for (const char* bound : {"--from", "--to"}) app.get_option(bound)->required();
  value_option(app, "--output", options.output, "FILE", "instead of standard output");
}

bool has_draws(int32_t from, int32_t to) {
  for (int32_t day = std::max(from, first_draw_day()); day <= to; ++day)
    if (is_draw_day(day)) return true;
  return false;
}

ExitCode run_generate(const GenerateOptions& options, const Context& context) {
  const uint64_t seed = count_value("--seed", options.seed);
  const int32_t from = day_value("--from", options.from);
  const int32_t to = day_value("--to", options.to);
  check_range(from, to);
  if (!has_draws(from, to)) {
    context.remark("no draw falls between " + shown_day(from) + " and " + shown_day(to) + "; the first was on " +
                   shown_day(first_draw_day()));
    return ExitCode::nothing_found;
  }
  DrawOutput output(options.output, context.out, DrawFileWriter(DrawFormat::tsv));
  synthetic_draws(seed, from, to, [&](const DrawRow& row) { return output.add(row); });
  output.finish();
  return ExitCode::ok;
}

}  // namespace

extern const Command generate_command{
    "generate", Group::draws, "Write a made-up archive on the real calendar",
    "vestara generate --seed 1 --from 1871-01-07 --to 2026-12-31 --output made-up.txt",
    bound<add_generate, run_generate>};

}  // namespace vestara::host
