#include "hosts/cli/output/number_stream.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "hosts/cli/output/output_forms.h"

namespace vestara::host {
namespace {

constexpr size_t block_size = 65536;

std::vector<std::string> leads_of(size_t columns, const std::string& first, const std::string& other) {
  std::vector<std::string> leads(columns, other);
  if (!leads.empty()) leads.front() = first;
  return leads;
}

}  // namespace

NumberStream::NumberStream(std::ostream& out, const Report& head, const OutputStyle& style, int32_t widest)
    : out_(out) {
  shape_.widths.assign(head.columns.size(), 0);
  switch (style.format) {
    case OutputFormat::table:
      begin_table(head, style, widest);
      break;
    case OutputFormat::csv:
      begin_csv(head);
      break;
    case OutputFormat::json:
      begin_json(head);
      break;
    case OutputFormat::jsonl:
      begin_json_lines(head);
      break;
    case OutputFormat::markdown:
      begin_markdown(head);
      break;
  }
}

/// A row of widest cells gives the columns their width, and goes away again.
void NumberStream::begin_table(const Report& head, const OutputStyle& style, int32_t widest) {
  Report sample = head;
  sample.rows.assign(1, std::vector<Cell>(head.columns.size(), int64_t{widest}));
  block_ = report_as_table(sample, style);
  block_.pop_back();
  block_.erase(block_.find_last_of('\n') + 1);
  const size_t digits = std::to_string(widest).size();
  for (size_t i = 0; i < head.columns.size(); ++i) shape_.widths[i] = std::max(head.columns[i].size(), digits);
  shape_.leads = leads_of(head.columns.size(), "", "  ");
  shape_.end = "\n";
}

void NumberStream::begin_csv(const Report& head) {
  block_ = report_as_csv(head);
  shape_.leads = leads_of(head.columns.size(), "", ",");
  shape_.end = "\n";
}

void NumberStream::begin_markdown(const Report& head) {
  block_ = report_as_markdown(head);
  shape_.leads = leads_of(head.columns.size(), "| ", " | ");
  shape_.end = " |\n";
}

/// An empty array is opened again.
void NumberStream::begin_json(const Report& head) {
  constexpr std::string_view closing = "]\n}\n";
  block_ = report_as_json(head);
  block_.resize(block_.size() - closing.size());
  last_empty_ = closing;
  last_ = "\n  " + last_empty_;
  shape_.first = "\n    {";
  shape_.next = ",\n    {";
  for (const std::string& column : head.columns)
    shape_.leads.push_back((shape_.leads.empty() ? "\n      \"" : ",\n      \"") + column + "\": ");
  shape_.end = "\n    }";
}

void NumberStream::begin_json_lines(const Report& head) {
  block_ = report_as_json_lines(head);
  shape_.first = shape_.next = R"({"kind":")" + head.row_kind + "\"";
  for (const std::string& column : head.columns) shape_.leads.push_back(",\"" + column + "\":");
  shape_.end = "}\n";
}

bool NumberStream::add(std::span<const int32_t> row) {
  block_ += is_empty_ ? shape_.first : shape_.next;
  is_empty_ = false;
  for (size_t i = 0; i < row.size(); ++i) {
    std::array<char, 12> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), row[i]).ptr;
    const auto size = static_cast<size_t>(end - digits.data());
    block_ += shape_.leads[i];
    if (size < shape_.widths[i]) block_.append(shape_.widths[i] - size, ' ');
    block_.append(digits.data(), size);
  }
  block_ += shape_.end;
  if (block_.size() >= block_size) flush();
  return out_.good();
}

void NumberStream::flush() {
  out_.write(block_.data(), static_cast<std::streamsize>(block_.size()));
  out_.flush();
  block_.clear();
}

void NumberStream::finish() {
  block_ += is_empty_ ? last_empty_ : last_;
  flush();
}

void NumberStream::break_off() {
  if (!last_.empty()) block_ += '\n';
  flush();
}

}  // namespace vestara::host
