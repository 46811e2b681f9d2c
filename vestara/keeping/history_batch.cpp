#include "vestara/keeping/history_batch.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "automation/coercion.h"
#include "automation/text.h"
#include "vestara/draws/wheel_names.h"

namespace vestara {
namespace {

constexpr size_t column_count = history_columns.size();

/// A contest that is a number, digits alone; nothing for what only a statement's text can say.
std::optional<int64_t> plain_number(std::string_view text) {
  constexpr size_t most_digits = 18;
  if (text.empty() || text.size() > most_digits || !std::all_of(text.begin(), text.end(), automation::is_digit))
    return std::nullopt;
  int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// Between quotes it is the text itself, on every engine.
bool is_plain(std::string_view text) {
  return text.find_first_of(std::string_view("'\\\0", 3)) == std::string_view::npos;
}

std::string literal_of(const RowValue& value) {
  switch (value.kind) {
    case RowValue::Kind::null:
      return "NULL";
    case RowValue::Kind::whole:
      return std::to_string(value.number);
    case RowValue::Kind::text:
      return automation::concatenated({"'", value.text, "'"});
  }
  return {};
}

}  // namespace

RowValue HistoryBatch::keep_day(const std::optional<automation::Date>& day) {
  days_.push_back(day ? automation::iso_day(*day) : std::string());
  return last_day_ = day ? RowValue::of(days_.back()) : RowValue();
}

RowValue HistoryBatch::day_value(std::string_view date) {
  if (!days_.empty() && date == last_date_) return last_day_;
  last_date_ = date;
  return keep_day(automation::parse_date(date));
}

RowValue HistoryBatch::day_value(int32_t day) {
  if (!days_.empty() && day == last_number_) return last_day_;
  last_number_ = day;
  return keep_day(automation::Date::from_day(day));
}

template <class Numbers>
void HistoryBatch::append(RowValue contest, RowValue day, RowValue wheel, const Numbers& numbers) {
  if (values_.empty()) values_.reserve(column_count * rows_per_statement);
  values_.insert(values_.end(), {contest, day, wheel});
  for (const auto number : numbers) values_.push_back(RowValue::of(int64_t{number}));
}

bool HistoryBatch::add_values(const HistoryRecord& record) {
  const auto contest = plain_number(record.contest);
  if (!contest || !is_plain(record.wheel)) return false;
  append(RowValue::of(*contest), day_value(record.date), RowValue::of(record.wheel), record.numbers);
  return true;
}

void HistoryBatch::write_values_as_text() {
  for (size_t i = 0; i < values_.size(); ++i) {
    const bool begins = i % column_count == 0;
    tuples_.append(begins ? (i == 0 ? "(" : "),(") : ",").append(literal_of(values_[i]));
  }
  if (!values_.empty()) tuples_ += ')';
  values_.clear();
}

void HistoryBatch::add(const HistoryRecord& record) {
  if (inserter_ && tuples_.empty()) {
    if (add_values(record)) return;
    write_values_as_text();
  }
  tuples_.append(tuples_.empty() ? "" : ",").append(history_tuple(record));
}

void HistoryBatch::add(const DrawRow& row) {
  append(RowValue::of(int64_t{row.contest}), day_value(row.day), RowValue::of(wheel_code(row.wheel)), row.numbers);
}

bool HistoryBatch::send() {
  if (!inserter_) write_values_as_text();
  const bool stored = tuples_.empty() ? inserter_->InsertRows({history_table, history_columns, values_})
                                      : connector_.ExecuteSql(history_insert_statement(tuples_));
  values_.clear();
  tuples_.clear();
  days_.clear();
  return stored;
}

}  // namespace vestara
