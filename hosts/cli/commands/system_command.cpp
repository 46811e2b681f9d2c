#include <variant>

#include "hosts/cli/commands.h"
#include "hosts/cli/commands/system_catalogue.h"
#include "hosts/cli/commands/system_integral.h"
#include "hosts/cli/options/system_values.h"
#include "hosts/cli/study/system_numbers.h"
#include "vestara/keeping/saved_systems.h"

namespace vestara::host {
namespace {

void write_numbers(Report report, const std::string& numbers, const Context& context) {
  report.facts.push_back({"count", static_cast<int64_t>(length_of(numbers))});
  report.facts.push_back({"numbers", numbers});
  write_report(context.out, report, context.style());
}

struct RunSystem {
  const Context& context;

  ExitCode operator()(const SetQuestion& options) const {
    const std::string numbers = numbers_of_set(options);
    Report report;
    report.facts = {{"set", set_name(options.set)}};
    write_numbers(report, numbers, context);
    if (!numbers.empty()) return ExitCode::ok;
    context.err << "vestara: the library's list of a figure stops at 80; 1 to 9 with --strict is a whole one\n";
    return ExitCode::nothing_found;
  }
  ExitCode operator()(const RandomQuestion& options) const {
    write_numbers({}, random_numbers(options), context);
    return ExitCode::ok;
  }
  ExitCode operator()(const SystemIntegralOptions& options) const { return run_integral(options, context); }
  ExitCode operator()(const SystemSaveOptions& options) const { return run_system_save(options, context); }
  ExitCode operator()(const SystemFilter& options) const { return run_system_list(options, context); }
  ExitCode operator()(const SystemShowOptions& options) const { return run_system_show(options, context); }
  ExitCode operator()(const SystemConvertOptions& options) const { return run_system_convert(options, context); }
  ExitCode operator()(const SystemDeleteOptions& options) const { return run_system_delete(options, context); }
};

}  // namespace

ExitCode run_system(const SystemOptions& options, const Context& context) {
  return std::visit(RunSystem{context}, options);
}

}  // namespace vestara::host
