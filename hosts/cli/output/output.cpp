#include "hosts/cli/output/output.h"

#include "hosts/cli/output/output_forms.h"

namespace vestara::host {

void write_report(std::ostream& out, const Report& report, const OutputStyle& style) {
  switch (style.format) {
    case OutputFormat::table:
      out << report_as_table(report, style);
      break;
    case OutputFormat::csv:
      out << report_as_csv(report);
      break;
    case OutputFormat::json:
      out << report_as_json(report);
      break;
    case OutputFormat::jsonl:
      out << report_as_json_lines(report);
      break;
    case OutputFormat::markdown:
      out << report_as_markdown(report);
      break;
  }
}

}  // namespace vestara::host
