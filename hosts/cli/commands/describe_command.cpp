#include "automation/describe.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/programming/known_classes.h"
#include "hosts/cli/programming/surface_text.h"

namespace vestara::host {
namespace {

using automation::RegisteredClass;

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

}  // namespace

ExitCode run_describe(const DescribeOptions& options, const Context& context) {
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

}  // namespace vestara::host
