#include "automation/describe.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/programming/known_classes.h"
#include "hosts/cli/programming/surface_text.h"

namespace vestara::host {
namespace {

std::string text_of(const std::vector<KnownClass>& classes) {
  std::string text;
  for (const KnownClass& known : classes) text.append(text.empty() ? "" : "\n").append(surface_text(known));
  return text;
}

std::string json_of(const std::vector<KnownClass>& classes) {
  std::string json = "[";
  for (const KnownClass& known : classes)
    json.append(json.size() == 1 ? "\n" : ",\n").append(automation::describe_json(*known.description));
  return json += "\n]\n";
}

Report list_of(const std::vector<KnownClass>& classes) {
  Report report;
  report.listing = "classes";
  report.row_kind = "class";
  report.columns = {"class", "help"};
  for (const KnownClass& known : classes)
    if (known.origin == Origin::by_name)
      report.rows.push_back({known.identifier, std::string(known.description->help)});
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
  const auto classes = options.all ? known_classes() : std::vector<KnownClass>{class_named(options.class_name)};
  context.out << (style.format == OutputFormat::json ? json_of(classes) : text_of(classes));
  return ExitCode::ok;
}

}  // namespace vestara::host
