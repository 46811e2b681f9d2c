#include "vestara/files/draw_file_writer.h"

#include <array>
#include <charconv>

#include "automation/date.h"
#include "vestara/draws/wheel_names.h"

namespace vestara {
namespace {

void append_number(std::string& text, int32_t number) {
  std::array<char, 12> digits{};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  text.append(digits.data(), static_cast<size_t>(end - digits.data()));
}

void append_numbers(std::string& text, const DrawRow& row, char separator) {
  for (const int8_t number : row.numbers) {
    text += separator;
    append_number(text, number);
  }
}

}  // namespace

void DrawFileWriter::begin(std::string& text) const {
  if (format_ != DrawFormat::csv) return;
  text += contest_ == ContestColumn::present ? "date,contest,wheel" : "date,wheel";
  text += ",n1,n2,n3,n4,n5\n";
}

void DrawFileWriter::set_date(int32_t day) {
  if (day == day_ && !date_.empty()) return;
  day_ = day;
  const automation::Date date = automation::Date::from_day(day);
  date_ = format_ == DrawFormat::update ? automation::date_to_text(date) : automation::iso_day(date);
  if (format_ == DrawFormat::tsv) date_[4] = date_[7] = '/';
}

void DrawFileWriter::add(std::string& text, const DrawRow& row) {
  set_date(row.day);
  switch (format_) {
    case DrawFormat::csv:
      return add_csv(text, row);
    case DrawFormat::tsv:
      return add_tsv(text, row);
    case DrawFormat::update:
      return add_update(text, row);
  }
}

void DrawFileWriter::add_csv(std::string& text, const DrawRow& row) const {
  text.append(date_).append(",");
  if (contest_ == ContestColumn::present) {
    if (row.contest != 0) append_number(text, row.contest);
    text += ',';
  }
  text += wheel_code(row.wheel);
  append_numbers(text, row, ',');
  text += '\n';
}

void DrawFileWriter::add_tsv(std::string& text, const DrawRow& row) const {
  text.append(date_).append("\t").append(wheel_code(row.wheel));
  append_numbers(text, row, '\t');
  text += '\n';
}

void DrawFileWriter::add_update(std::string& text, const DrawRow& row) {
  // A "*" behind the last record would be one more, empty record.
  text += is_first_ ? "#" : "*\n#";
  is_first_ = false;
  append_number(text, row.contest);
  text.append("#").append(date_).append("#").append(wheel_code(row.wheel));
  append_numbers(text, row, '#');
}

}  // namespace vestara
