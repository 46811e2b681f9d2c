#include "hosts/cli/commands/system_integral.h"

#include <limits>
#include <string>

#include "hosts/cli/failure.h"
#include "hosts/cli/output/combinations_head.h"
#include "vestara/foundation/combination_lines.h"
#include "vestara/systems/integral.h"

namespace vestara::host {
namespace {

constexpr int32_t most_chosen = 12;                // the factorial of 13 does not fit in 32 bits
constexpr uint64_t most_text = uint64_t{1} << 30;  // bytes

Failure too_much(const IntegralSystem& system, const std::string& limit) {
  return {FailureKind::argument,
          std::to_string(system.size) + " of " + std::to_string(system.numbers.count) + " numbers make " +
              digits_of(combination_count(system.numbers.count, system.size)) + " combinations, " + limit +
              "; vestara combinations lists them one by one, all or --first N of them"};
}

}  // namespace

uint64_t integral_text_size(const IntegralSystem& system, uint64_t count) {
  const NumberList& numbers = system.numbers;
  const uint64_t commas = numbers.count - 1;
  const uint64_t digits = numbers.text.size() - commas;
  const auto chosen = static_cast<uint64_t>(system.size);
  return count * chosen / numbers.count * digits + count * (chosen - 1 + line_break.size());
}

void check_integral(const IntegralSystem& system) {
  const ExactCount count = combination_count(system.numbers.count, system.size);
  if (system.size > most_chosen)
    throw too_much(system, "but the library chooses " + std::to_string(most_chosen) + " numbers at most");
  if (count > static_cast<uint32_t>(std::numeric_limits<int32_t>::max()))
    throw too_much(
        system, "more than the " + std::to_string(std::numeric_limits<int32_t>::max()) + " that the library can count");
  const uint64_t bytes = integral_text_size(system, static_cast<uint64_t>(count));
  if (bytes > most_text)
    throw too_much(system, "a text of " + std::to_string(bytes) + " bytes in memory, more than the " +
                               std::to_string(most_text) + " allowed");
}

}  // namespace vestara::host
