#include "hosts/vestara/draw_formats.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "automation/text.h"
#include "hosts/vestara/failure.h"
#include "hosts/vestara/shown_text.h"

namespace vestara::host {
namespace {

constexpr size_t most_fields = 16;
constexpr std::string_view white = " \t\r\n";

/// The fields of one row; what lies behind the last one that fits is counted and not kept.
struct Fields {
  std::array<std::string_view, most_fields> items;
  size_t count = 0;
};

Fields cut(std::string_view row, char separator) {
  Fields fields;
  for (size_t end = 0; end != std::string_view::npos; ++fields.count) {
    end = row.find(separator);
    if (fields.count < most_fields) fields.items[fields.count] = row.substr(0, end);
    if (end != std::string_view::npos) row.remove_prefix(end + 1);
  }
  return fields;
}

std::string_view without_trailing(std::string_view text) { return text.substr(0, text.find_last_not_of(white) + 1); }

/// The date, the wheel and the numbers standing one behind the other.
RowFields fields_from(const Fields& fields, size_t date) {
  const auto& items = fields.items;
  return {items[date],
          items[date + 1],
          {items[date + 2], items[date + 3], items[date + 4], items[date + 5], items[date + 6]},
          {}};
}

std::string wrong_count(size_t found, size_t needed) {
  return counted(found, "field") + " where " + std::to_string(needed) + " are needed";
}

std::string_view unquoted(std::string_view field) {
  field = automation::trim(field);
  const bool quoted = field.size() >= 2 && field.front() == '"' && field.back() == '"';
  return quoted ? field.substr(1, field.size() - 2) : field;
}

/// Where the header puts what.
struct CsvColumns {
  std::array<std::optional<size_t>, 7> required;  ///< date, wheel, n1 to n5
  std::optional<size_t> contest;
  size_t count = 0;
};

constexpr std::array<std::string_view, 7> required_names{"date", "wheel", "n1", "n2", "n3", "n4", "n5"};

/// The place that a column's name fills; nothing for a name that means nothing here.
std::optional<size_t>* slot_of(CsvColumns& columns, std::string_view name) {
  if (automation::equal_ignoring_case(name, "contest")) return &columns.contest;
  for (size_t i = 0; i < required_names.size(); ++i)
    if (automation::equal_ignoring_case(name, required_names[i])) return &columns.required[i];
  return nullptr;
}

CsvColumns read_header(std::string_view line, uint32_t number, const std::string& name) {
  const auto refuse = [&](const std::string& what) {
    return Failure(ExitCode::file, name + ", line " + std::to_string(number) + ": " + what +
                                       "; the header is date,wheel,n1,n2,n3,n4,n5, with or without contest");
  };
  const Fields fields = cut(line, ',');
  CsvColumns columns;
  columns.count = fields.count;
  for (size_t i = 0; i < std::min(fields.count, most_fields); ++i) {
    const std::string_view column = unquoted(fields.items[i]);
    auto* slot = slot_of(columns, column);
    if (!slot) throw refuse("column " + shown(column) + " is unknown");
    if (*slot) throw refuse("column " + shown(column) + " comes twice");
    *slot = i;
  }
  for (size_t i = 0; i < required_names.size(); ++i)
    if (!columns.required[i]) throw refuse("column " + shown(required_names[i]) + " is missing");
  return columns;
}

RowFields csv_fields(const CsvColumns& columns, const Fields& fields) {
  const auto field = [&](size_t i) { return unquoted(fields.items[*columns.required[i]]); };
  return {field(0),
          field(1),
          {field(2), field(3), field(4), field(5), field(6)},
          columns.contest ? unquoted(fields.items[*columns.contest]) : std::string_view()};
}

uint32_t line_breaks(std::string_view text) {
  return static_cast<uint32_t>(std::count(text.begin(), text.end(), '\n'));
}

/// Field 0 holds no data, mostly the line break behind the record before.
void collect_record(std::string_view record, uint32_t line, DrawCollector& draws) {
  constexpr size_t needed = 9;
  const Fields fields = cut(record, '#');
  line += line_breaks(fields.items[0]);
  if (fields.count < needed) return draws.reject(line, wrong_count(fields.count, needed));
  RowFields row = fields_from(fields, 2);
  row.contest = fields.items[1];
  row.numbers[4] = without_trailing(row.numbers[4]);
  draws.add(line, row);
}

}  // namespace

std::string_view without_mark(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  return text.substr(0, mark.size()) == mark ? text.substr(mark.size()) : text;
}

std::string_view take_line(std::string_view& rest) {
  const size_t end = rest.find('\n');
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

bool is_blank_line(std::string_view line) { return line.find_first_not_of(white) == std::string_view::npos; }

void collect_tsv(std::string_view text, DrawCollector& draws) {
  constexpr size_t needed = 7;
  for (uint32_t number = 1; !text.empty(); ++number) {
    const std::string_view line = without_trailing(take_line(text));
    if (line.empty()) continue;
    const Fields fields = cut(line, '\t');
    if (fields.count == needed)
      draws.add(number, fields_from(fields, 0));
    else
      draws.reject(number, wrong_count(fields.count, needed));
  }
}

void collect_csv(std::string_view text, const std::string& name, DrawCollector& draws) {
  std::optional<CsvColumns> columns;
  for (uint32_t number = 1; !text.empty(); ++number) {
    const std::string_view line = take_line(text);
    if (is_blank_line(line)) continue;
    if (!columns) {
      columns = read_header(line, number, name);
      continue;
    }
    const Fields fields = cut(line, ',');
    if (fields.count == columns->count)
      draws.add(number, csv_fields(*columns, fields));
    else
      draws.reject(number, wrong_count(fields.count, columns->count));
  }
}

void collect_update(std::string_view text, DrawCollector& draws) {
  uint32_t line = 1;
  while (!text.empty()) {
    const size_t end = text.find('*');
    const std::string_view record = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    // A "*" behind the last record, or blank lines there, are no record.
    const bool is_end = text.empty() && is_blank_line(record);
    if (!is_end) collect_record(record, line, draws);
    line += line_breaks(record);
  }
}

}  // namespace vestara::host
