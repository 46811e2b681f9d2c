#include "hosts/cli/commands/system_integral.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "automation/coercion.h"
#include "automation/text.h"
#include "hosts/cli/output/combinations_head.h"
#include "hosts/cli/output/number_stream.h"
#include "hosts/cli/output/system_output.h"
#include "hosts/cli/terminal/stoppable_call.h"
#include "vestara/foundation/combination_lines.h"
#include "vestara/foundation/error_log.h"
#include "vestara/systems/integral.h"
#include "vestara/systems/systems.h"

namespace vestara::host {
namespace {

constexpr int32_t most_chosen = 12;                // the factorial of 13 does not fit in 32 bits
constexpr uint64_t most_text = uint64_t{1} << 30;  // bytes

Failure too_much(const SystemIntegralOptions& options, const std::string& limit) {
  return {ExitCode::usage, std::to_string(options.size) + " of " + std::to_string(options.numbers.count) +
                               " numbers make " + digits_of(combination_count(options.numbers.count, options.size)) +
                               " combinations, " + limit +
                               "; vestara combinations lists them one by one, all or --first N of them"};
}

Failure interrupted(uint64_t listed, uint64_t wanted) {
  return {ExitCode::interrupted,
          "interrupted after " + std::to_string(listed) + " of " + std::to_string(wanted) + " combinations"};
}

std::string text_of(const SystemIntegralOptions& options, uint64_t wanted) {
  int32_t count = 0;
  std::string text =
      cSistemi().CombinazioniIntegraliString(options.numbers.text, static_cast<int16_t>(options.size), count);
  if (!text.empty() && static_cast<uint64_t>(count) == wanted) return text;
  if (Interruption::requested()) throw interrupted(0, wanted);
  throw Failure(ExitCode::raised, "the combinations could not be made, see " + log_path());
}

int32_t widest_of(const NumberList& numbers) {
  int32_t widest = 0;
  for (const std::string_view piece : automation::split(numbers.text, ','))
    widest = std::max(widest, int32_t{automation::leading_number(piece)});
  return widest;
}

void read_line(std::string_view line, std::vector<int32_t>& row) {
  row.clear();
  for (const std::string_view piece : automation::split(line, ',')) row.push_back(automation::leading_number(piece));
}

void list(std::string_view text, uint64_t wanted, NumberStream& stream) {
  std::vector<int32_t> row;
  for (uint64_t listed = 0; !text.empty(); ++listed) {
    if (Interruption::requested()) {
      stream.break_off();
      throw interrupted(listed, wanted);
    }
    const std::string_view line = text.substr(0, text.find(line_break));
    text.remove_prefix(std::min(line.size() + line_break.size(), text.size()));
    read_line(line, row);
    if (!stream.add(row)) return;
  }
  stream.finish();
}

}  // namespace

uint64_t integral_text_size(const NumberList& numbers, int32_t size, uint64_t count) {
  const uint64_t commas = numbers.count - 1;
  const uint64_t digits = numbers.text.size() - commas;
  const auto chosen = static_cast<uint64_t>(size);
  return count * chosen / numbers.count * digits + count * (chosen - 1 + line_break.size());
}

void check_integral(const SystemIntegralOptions& options) {
  const ExactCount count = combination_count(options.numbers.count, options.size);
  if (options.size > most_chosen)
    throw too_much(options, "but the library chooses " + std::to_string(most_chosen) + " numbers at most");
  if (count > static_cast<uint32_t>(std::numeric_limits<int32_t>::max()))
    throw too_much(options, "more than the " + std::to_string(std::numeric_limits<int32_t>::max()) +
                                " that the library can count");
  const uint64_t bytes = integral_text_size(options.numbers, options.size, static_cast<uint64_t>(count));
  if (bytes > most_text)
    throw too_much(options, "a text of " + std::to_string(bytes) + " bytes in memory, more than the " +
                                std::to_string(most_text) + " allowed");
}

ExitCode run_integral(const SystemIntegralOptions& options, const Context& context) {
  if (options.count_only) {
    write_report(context.out, combinations_head(options.numbers.count, options.size, Listing::absent), context.style());
    return ExitCode::ok;
  }
  check_integral(options);
  const auto wanted = static_cast<uint64_t>(combination_count(options.numbers.count, options.size));
  const StoppableCall stoppable;
  const std::string text = text_of(options, wanted);
  if (!options.output.empty()) {
    write_system_file(options.output, context.out, text);
    return ExitCode::ok;
  }
  NumberStream stream(context.out, combinations_head(options.numbers.count, options.size, Listing::follows),
                      context.style(), widest_of(options.numbers));
  list(text, wanted, stream);
  return ExitCode::ok;
}

}  // namespace vestara::host
