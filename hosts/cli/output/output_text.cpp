#include <algorithm>

#include "automation/text/shown_text.h"
#include "hosts/cli/output/output_forms.h"

namespace vestara::host {
namespace {

std::string csv_field(const Cell& cell) {
  std::string text = cell_text(cell);
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted += '"';
}

std::string markdown_field(const Cell& cell) {
  std::string line = readable_text(cell);
  for (char& c : line)
    if (c == '\n' || c == '\r') c = ' ';
  std::string escaped;
  for (const char c : automation::shown_text(line)) {
    if (c == '|' || c == '\\') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::vector<Cell> names_as_cells(const std::vector<std::string>& names) { return {names.begin(), names.end()}; }

void append_csv_row(std::string& out, const std::vector<Cell>& cells) {
  for (size_t i = 0; i < cells.size(); ++i) out.append(i == 0 ? "" : ",").append(csv_field(cells[i]));
  out += '\n';
}

void append_markdown_row(std::string& out, const std::vector<Cell>& cells) {
  out += '|';
  for (const Cell& cell : cells) out.append(" ").append(markdown_field(cell)).append(" |");
  out += '\n';
}

bool is_numeric_column(const Report& report, size_t column) {
  return std::none_of(report.rows.begin(), report.rows.end(),
                      [&](const auto& row) { return std::holds_alternative<std::string>(row[column]); });
}

void begin_part(std::string& out) {
  if (!out.empty()) out += '\n';
}

void append_csv_facts(std::string& out, const std::vector<Fact>& facts) {
  begin_part(out);
  out += "name,value\n";
  for (const Fact& fact : facts) append_csv_row(out, {Cell(fact.name), fact.value});
}

void append_markdown_facts(std::string& out, const std::vector<Fact>& facts) {
  begin_part(out);
  out += "| name | value |\n| --- | ---: |\n";
  for (const Fact& fact : facts) append_markdown_row(out, {Cell(spaced(fact.name)), fact.value});
}

void append_markdown_listing(std::string& out, const Report& report) {
  append_markdown_row(out, names_as_cells(report.columns));
  out += '|';
  for (size_t i = 0; i < report.columns.size(); ++i) out += is_numeric_column(report, i) ? " ---: |" : " --- |";
  out += '\n';
  for (const auto& row : report.rows) append_markdown_row(out, row);
}

}  // namespace

std::string spaced(std::string name) {
  std::replace(name.begin(), name.end(), '_', ' ');
  return name;
}

std::string report_as_csv(const Report& report) {
  std::string out;
  if (!report.facts.empty()) append_csv_facts(out, report.facts);
  if (!report.listing.empty()) {
    begin_part(out);
    append_csv_row(out, names_as_cells(report.columns));
    for (const auto& row : report.rows) append_csv_row(out, row);
  }
  for (const FactBlock& block : report.blocks) append_csv_facts(out, block.facts);
  return out;
}

std::string report_as_markdown(const Report& report) {
  std::string out;
  if (!report.facts.empty()) append_markdown_facts(out, report.facts);
  if (!report.listing.empty()) {
    begin_part(out);
    append_markdown_listing(out, report);
  }
  for (const FactBlock& block : report.blocks) append_markdown_facts(out, block.facts);
  return out;
}

}  // namespace vestara::host
