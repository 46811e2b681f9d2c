#include "automation/describe.h"
#include "hosts/cli/command.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/programming/known_classes.h"
#include "hosts/cli/programming/surface_text.h"

namespace vestara::host {
namespace {

using automation::RegisteredClass;

struct DescribeOptions {
  std::string class_name;  ///< empty for all
  bool all = false;
  bool json = false;
};

void add_describe(CLI::App& app, DescribeOptions& options) {
  argument(app, "CLASS", options.class_name, "as in Vestara.cLotto or cLotto; without it, the list of classes");
  app.add_flag("--all", options.all, "every class, also those that are only handed out");
  app.add_flag("--json", options.json, "the same as --format json");
}

std::string text_of(const std::vector<RegisteredClass>& classes) {
  std::string text;
  for (const RegisteredClass& known : classes) text.append(text.empty() ? "" : "\n").append(surface_text(known));
  return text;
}

std::string json_of(const std::vector<RegisteredClass>& classes) {
  std::string json = "[";
  for (const RegisteredClass& known : classes)
    json.append(json.size() == 1 ? "\n" : ",\n").append(automation::describe_json(known));
  return json += "\n]\n";
}

Report list_of(const std::vector<RegisteredClass>& classes) {
  Report report;
  report.listing = "classes";
  report.row_kind = "class";
  report.columns = {"class", "help"};
  for (const RegisteredClass& known : classes)
    if (known.is_creatable())
      report.rows.push_back({known.description->identifier(), std::string(known.description->help)});
  return report;
}

ExitCode run_describe(const DescribeOptions& options, const Context& context) {
  if (options.all && !options.class_name.empty())
    throw Failure(FailureKind::argument, "--all does not go with CLASS; give one of them");
  OutputStyle style = context.style();
  if (options.json) style.format = OutputFormat::json;
  if (options.class_name.empty() && !options.all) {
    write_report(context.out, list_of(known_classes()), style);
    return ExitCode::ok;
  }
  const auto classes = options.all ? known_classes() : std::vector<RegisteredClass>{class_named(options.class_name)};
  context.out << (style.format == OutputFormat::json ? json_of(classes) : text_of(classes));
  return ExitCode::ok;
}

}  // namespace

extern const Command describe_command{"describe", Group::programming,
                                      "Show the classes and members that programs call by name",
                                      "vestara describe cLotto", bound<add_describe, run_describe>};

}  // namespace vestara::host
