#include "vestara/files/draw_file.h"

#include "vestara/files/draw_formats.h"
#include "vestara/files/foreign_file.h"
#include "vestara/files/text_encoding.h"
#include "vestara/foundation/failure.h"
#include "vestara/foundation/message_text.h"

namespace vestara {
namespace {

std::string_view first_full_line(std::string_view text) {
  while (!text.empty()) {
    const std::string_view line = take_line(text);
    if (!is_blank_line(line)) return line;
  }
  return {};
}

/// Of the two that tables in CSV have.
char separator_of(std::string_view line) { return line.find(';') == std::string_view::npos ? ',' : ';'; }

void collect(DrawFormat format, std::string_view text, const std::string& name, DrawCollector& draws) {
  switch (format) {
    case DrawFormat::tsv:
      return collect_table(text, {name, '\t'}, draws);
    case DrawFormat::csv:
      return collect_table(text, {name, separator_of(first_full_line(text))}, draws);
    case DrawFormat::update:
      return collect_update(text, draws);
  }
}

Failure unknown_form(std::string_view text, const std::string& name) {
  if (const auto kind = foreign_kind(text))
    return {FailureKind::file, name + " is " + std::string(kind->name) + "; " + std::string(kind->remedy)};
  return {FailureKind::file, name + " holds no draws: line 1 begins " + shown(first_full_line(text)) +
                                 "; known are rows between tabs, CSV with \",\" or \";\" and with the header "
                                 "date,wheel,n1,n2,n3,n4,n5 or none, and update files"};
}

}  // namespace

std::string_view format_name(DrawFormat format) {
  switch (format) {
    case DrawFormat::tsv:
      return "tsv";
    case DrawFormat::csv:
      return "csv";
    case DrawFormat::update:
      return "update";
  }
  return {};
}

std::optional<DrawFormat> recognise(std::string_view text) {
  const std::string_view line = first_full_line(text);
  if (line.find('\t') != std::string_view::npos) return DrawFormat::tsv;
  // The other two forms never hold a "#".
  if (text.substr(0, text.find('*')).find('#') != std::string_view::npos) return DrawFormat::update;
  if (line.find_first_of(",;") != std::string_view::npos) return DrawFormat::csv;
  return std::nullopt;
}

DrawFile parse_draw_file(std::string_view text, const std::string& name) {
  const auto decoded = from_utf16(text);
  text = without_mark(decoded ? std::string_view(*decoded) : text);
  if (is_blank_line(text)) throw Failure(FailureKind::file, name + " is empty; a file of draws is needed");
  const auto format = foreign_kind(text) ? std::nullopt : recognise(text);
  if (!format) throw unknown_form(text, name);
  DrawCollector draws;
  collect(*format, text, name, draws);
  DrawFile file{*format, draws.finish()};
  if (file.draws.read == 0) throw Failure(FailureKind::file, name + " has a header and no draws; rows are needed");
  return file;
}

void refuse_rejected(const DrawFile& file, const std::string& name) {
  const auto& rejected = file.draws.rejected;
  if (rejected.empty()) return;
  std::string text = name + " has " + counted(rejected.count(), "row") + " in error, nothing was changed;";
  text += " a row is a date, a wheel and five different numbers of 1 to 90";
  for (const RejectedRow& row : rejected.first()) text += "\n  line " + std::to_string(row.line) + ": " + row.reason;
  if (rejected.count() > rejected.first().size())
    text += "\n  and " + std::to_string(rejected.count() - rejected.first().size()) + " more";
  throw Failure(FailureKind::file, text);
}

}  // namespace vestara
