#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/date.h"
#include "vestara/draws/draw_row.h"
#include "vestara/foundation/connector.h"
#include "vestara/keeping/draw_changes.h"
#include "vestara/keeping/history_text.h"

namespace vestara {

/// Draws on their way into the archive, several in a statement. A connector that takes rows as values gets values.
/// Every other one gets the text of `history_insert_statement`, and so do rows that only a text can say. What is added
/// must outlive the next `send`.
class HistoryBatch {
 public:
  explicit HistoryBatch(DbConnector& connector) : connector_(connector), inserter_(connector.row_inserter()) {}

  void add(const HistoryRecord& record);
  /// The wheel is 1 to 11: it is stored under its code, whatever the wheel tables say.
  void add(const DrawRow& row);
  /// Stores what was added and begins anew. False when the connector refused it.
  bool send();

 private:
  bool add_values(const HistoryRecord& record);
  RowValue day_value(std::string_view date);
  RowValue day_value(int32_t day);
  RowValue keep_day(const std::optional<automation::Date>& day);
  template <class Numbers>
  void append(RowValue contest, RowValue day, RowValue wheel, const Numbers& numbers);
  void write_values_as_text();

  DbConnector& connector_;
  RowInserter* inserter_;
  std::vector<RowValue> values_;
  std::string tuples_;  ///< in place of the values
  // The draws of one day follow each other: its text is made once.
  std::deque<std::string> days_;  ///< the texts of values_
  RowValue last_day_;
  std::string_view last_date_;  ///< what last_day_ was read from, in a record
  int32_t last_number_ = 0;     ///< the same, in a row
};

/// Adds so many rows by `add(batch, row)`, counted from 0, and calls `sent(rows so far)` after each statement. All rows
/// are added, also those that are left. False when the connector refused a statement.
template <class Add, class Sent>
bool send_rows(DbConnector& connector, size_t rows, size_t per_statement, Remainder remainder, Add add, Sent sent) {
  HistoryBatch batch(connector);
  for (size_t row = 0; row < rows; ++row) {
    add(batch, row);
    const bool is_full = (row + 1) % per_statement == 0;
    const bool ends = row + 1 == rows && remainder == Remainder::written;
    if (!is_full && !ends) continue;
    if (!batch.send()) return false;
    sent(row + 1);
  }
  return true;
}

}  // namespace vestara
