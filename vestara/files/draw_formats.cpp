#include "vestara/files/draw_formats.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>

#include "automation/text.h"
#include "vestara/files/file_columns.h"
#include "vestara/foundation/message_text.h"

namespace vestara {
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

std::string wrong_count(size_t found, size_t needed) {
  return counted(found, "field") + " where " + std::to_string(needed) + " are needed";
}

std::string_view unquoted(std::string_view field) {
  field = automation::trim(field);
  const bool quoted = field.size() >= 2 && field.front() == '"' && field.back() == '"';
  return quoted ? field.substr(1, field.size() - 2) : field;
}

/// The fields of a row of a table, without quotes, and without empty ones behind the last.
Fields cut_table_row(std::string_view line, char separator) {
  Fields fields = cut(line, separator);
  for (size_t i = 0; i < std::min(fields.count, most_fields); ++i) fields.items[i] = unquoted(fields.items[i]);
  while (fields.count > 0 && fields.count <= most_fields && fields.items[fields.count - 1].empty()) --fields.count;
  return fields;
}

constexpr size_t usual_count = 7;
constexpr FileColumns usual_columns{{0, 1, 2, 3, 4, 5, 6}, std::nullopt, usual_count};

/// What the first row of a table says about all of them.
struct TableShape {
  FileColumns columns;
  bool has_header = false;
};

/// Rows between tabs have the usual columns when nothing else is evident: their errors are named line by line.
TableShape shape_of(const Fields& first, const DrawTable& table, const std::string& place) {
  const std::span<const std::string_view> fields(first.items.data(), std::min(first.count, most_fields));
  if (is_header(fields)) return {columns_of_header(fields, place), true};
  if (const auto columns = columns_of_row(fields)) return {*columns, false};
  if (table.separator == '\t') return {usual_columns, false};
  return {columns_of_header(fields, place), true};
}

/// An empty contest number at the end counts as a field.
RowFields row_fields(const FileColumns& columns, const Fields& fields) {
  const auto field = [&](size_t place) { return fields.items[place]; };
  const auto& places = columns.required;
  RowFields row{field(places[0]), field(places[1]), {}, {}};
  for (size_t i = 0; i < row.numbers.size(); ++i) row.numbers[i] = field(places[i + 2]);
  if (columns.contest) row.contest = field(*columns.contest);
  return row;
}

void collect_row(const FileColumns& columns, const Fields& fields, uint32_t line, DrawCollector& draws) {
  const bool lacks_contest = columns.contest == columns.count - 1 && fields.count == columns.count - 1;
  if (fields.count == columns.count || lacks_contest)
    draws.add(line, row_fields(columns, fields));
  else
    draws.reject(line, wrong_count(fields.count, columns.count));
}

/// A carriage return ends a line alone or before a line feed.
uint32_t line_breaks(std::string_view text) {
  uint32_t breaks = 0;
  for (size_t i = 0; i < text.size(); ++i)
    if (text[i] == '\n' || (text[i] == '\r' && text.substr(i + 1, 1) != "\n")) ++breaks;
  return breaks;
}

/// Field 0 holds no data, mostly the line break behind the record before.
void collect_record(std::string_view record, uint32_t line, DrawCollector& draws) {
  constexpr size_t needed = 9;
  const Fields fields = cut(record, '#');
  line += line_breaks(fields.items[0]);
  if (fields.count < needed) return draws.reject(line, wrong_count(fields.count, needed));
  const auto& items = fields.items;
  draws.add(line, {items[2], items[3], {items[4], items[5], items[6], items[7], without_trailing(items[8])}, items[1]});
}

}  // namespace

std::string_view without_mark(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  return text.substr(0, mark.size()) == mark ? text.substr(mark.size()) : text;
}

std::string_view take_line(std::string_view& rest) {
  const size_t end = rest.find_first_of("\r\n");
  const std::string_view line = rest.substr(0, end);
  const size_t break_size = rest.substr(std::min(end, rest.size()), 2) == "\r\n" ? 2 : 1;
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + break_size);
  return line;
}

bool is_blank_line(std::string_view line) { return line.find_first_not_of(white) == std::string_view::npos; }

void collect_table(std::string_view text, const DrawTable& table, DrawCollector& draws) {
  std::optional<TableShape> shape;
  for (uint32_t number = 1; !text.empty(); ++number) {
    const std::string_view line = take_line(text);
    if (is_blank_line(line)) continue;
    const Fields fields = cut_table_row(line, table.separator);
    const bool is_first = !shape;
    if (is_first) shape = shape_of(fields, table, table.name + ", line " + std::to_string(number));
    if (!is_first || !shape->has_header) collect_row(shape->columns, fields, number, draws);
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

}  // namespace vestara
