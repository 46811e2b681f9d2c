#include <algorithm>

#include "automation/text/shown_text.h"
#include "hosts/cli/output/output_forms.h"

namespace vestara::host {
namespace {

constexpr std::string_view gap = "  ";

struct ColumnShape {
  size_t width = 0;
  bool right = false;  ///< numbers only
};

/// Display width of UTF-8 text: bytes that begin a character.
size_t width_of(std::string_view text) {
  return static_cast<size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

/// A line of its own, whatever a database holds: control characters would break it, or the terminal.
std::string shown_cell(const Cell& cell) { return automation::shown_text(readable_text(cell)); }

void append_padded(std::string& out, std::string_view text, const ColumnShape& shape) {
  const std::string padding(shape.width - std::min(shape.width, width_of(text)), ' ');
  if (shape.right) out += padding;
  out += text;
  if (!shape.right) out += padding;
}

void append_heading(std::string& out, std::string_view text, const ColumnShape& shape, bool colour) {
  if (colour) out += "\033[1m";
  append_padded(out, text, shape);
  if (colour) out += "\033[0m";
}

void end_line(std::string& out) {
  out.erase(out.find_last_not_of(' ') + 1);
  out += '\n';
}

std::vector<ColumnShape> shapes_of(const Report& report, size_t rows) {
  std::vector<ColumnShape> shapes;
  for (size_t i = 0; i < report.columns.size(); ++i) {
    ColumnShape shape{width_of(report.columns[i]), true};
    for (size_t row = 0; row < rows; ++row) {
      const Cell& cell = report.rows[row][i];
      shape.width = std::max(shape.width, width_of(shown_cell(cell)));
      shape.right = shape.right && !std::holds_alternative<std::string>(cell);
    }
    shapes.push_back(shape);
  }
  return shapes;
}

void append_facts(std::string& out, const std::vector<Fact>& facts, bool colour) {
  ColumnShape names;
  ColumnShape values{0, true};
  for (const Fact& fact : facts) {
    names.width = std::max(names.width, width_of(fact.name));
    if (is_number(fact.value)) values.width = std::max(values.width, readable_text(fact.value).size());
  }
  for (const Fact& fact : facts) {
    append_heading(out, spaced(fact.name), names, colour);
    out += gap;
    append_padded(out, shown_cell(fact.value), is_number(fact.value) ? values : ColumnShape{});
    end_line(out);
  }
}

void append_listing(std::string& out, const Report& report, const OutputStyle& style) {
  const size_t shown_rows = std::min(report.rows.size(), style.table_rows);
  const auto shapes = shapes_of(report, shown_rows);
  for (size_t i = 0; i < shapes.size(); ++i) {
    if (i != 0) out += gap;
    append_heading(out, spaced(report.columns[i]), shapes[i], style.colour);
  }
  end_line(out);
  for (size_t row = 0; row < shown_rows; ++row) {
    for (size_t i = 0; i < shapes.size(); ++i) {
      if (i != 0) out += gap;
      append_padded(out, shown_cell(report.rows[row][i]), shapes[i]);
    }
    end_line(out);
  }
  const size_t hidden = report.rows.size() - shown_rows;
  if (hidden != 0) out += "and " + std::to_string(hidden) + " more\n";
}

}  // namespace

std::string report_as_table(const Report& report, const OutputStyle& style) {
  std::string out;
  append_facts(out, report.facts, style.colour);
  if (!report.listing.empty() && !report.rows.empty()) {
    if (!report.facts.empty()) out += '\n';
    append_listing(out, report, style);
  }
  for (const FactBlock& block : report.blocks) {
    if (!out.empty()) out += '\n';
    append_facts(out, block.facts, style.colour);
  }
  return out;
}

}  // namespace vestara::host
