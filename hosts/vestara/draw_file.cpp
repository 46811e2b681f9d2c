#include "hosts/vestara/draw_file.h"

#include "automation/text.h"
#include "hosts/vestara/draw_formats.h"
#include "hosts/vestara/failure.h"
#include "hosts/vestara/shown_text.h"

namespace vestara::host {
namespace {

std::string_view first_full_line(std::string_view text) {
  while (!text.empty()) {
    const std::string_view line = take_line(text);
    if (!is_blank_line(line)) return line;
  }
  return {};
}

void collect(DrawFormat format, std::string_view text, const std::string& name, DrawCollector& draws) {
  switch (format) {
    case DrawFormat::tsv:
      return collect_tsv(text, draws);
    case DrawFormat::csv:
      return collect_csv(text, name, draws);
    case DrawFormat::update:
      return collect_update(text, draws);
  }
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
  if (line.find(',') != std::string_view::npos) return DrawFormat::csv;
  return std::nullopt;
}

DrawFile parse_draw_file(std::string_view text, const std::string& name) {
  text = without_mark(text);
  if (is_blank_line(text)) throw Failure(ExitCode::file, name + " is empty; a file of draws is needed");
  const auto format = recognise(text);
  if (!format)
    throw Failure(ExitCode::file, name + " holds no draws: line 1 begins " + shown(first_full_line(text)) +
                                      "; known are rows between tabs, CSV with the header "
                                      "date,wheel,n1,n2,n3,n4,n5 and update files");
  DrawCollector draws;
  collect(*format, text, name, draws);
  DrawFile file{*format, draws.finish()};
  if (file.draws.read == 0) throw Failure(ExitCode::file, name + " has a header and no draws; rows are needed");
  return file;
}

void refuse_rejected(const DrawFile& file, const std::string& name) {
  const auto& rejected = file.draws.rejected;
  if (rejected.empty()) return;
  std::string text = name + " has " + counted(rejected.size(), "row") + " in error, nothing was changed;";
  text += " a row is a date, a wheel and five different numbers of 1 to 90";
  for (size_t i = 0; i < std::min(rejected.size(), most_named); ++i)
    text += "\n  line " + std::to_string(rejected[i].line) + ": " + rejected[i].reason;
  if (rejected.size() > most_named) text += "\n  and " + std::to_string(rejected.size() - most_named) + " more";
  throw Failure(ExitCode::file, text);
}

}  // namespace vestara::host
