#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/error.h"
#include "automation/export.h"
#include "records/column_store.h"
#include "records/fields.h"
#include "records/recordset.h"

namespace records {

class StaticRecordSet;

/// Where the rows of a record set come from. Raises the engine's error when a row cannot be had.
class AUTOMATION_API RowSource {
 public:
  RowSource() = default;
  RowSource(const RowSource&) = delete;
  RowSource& operator=(const RowSource&) = delete;
  virtual ~RowSource() = default;
  /// Appends one value to every column; False after the last row.
  virtual bool fetch(std::vector<ColumnStore>& columns) = 0;
  /// Called once, by the set that takes the source over, before its first row; the set lets the source go before its
  /// own end. Does nothing where it is not overridden. A connection learns here which sets still read from it.
  virtual void taken_by(StaticRecordSet&) {}
};

/// A column as the statement names it.
struct ColumnHeader {
  std::string name;
  TextReading reading = TextReading::plain;
};

/// A static record set that is filled as it is walked. Rows are fetched when the cursor gets there, and all of them
/// when a call needs all. The owner of the source calls `complete` before anything changes what the set would still
/// read.
class AUTOMATION_API StaticRecordSet final : public RecordSet {
 public:
  StaticRecordSet(std::vector<ColumnHeader> headers, std::unique_ptr<RowSource> source);
  /// A set whose rows are all there: a header for each column, and the columns equally long.
  StaticRecordSet(std::vector<ColumnHeader> headers, std::vector<ColumnStore> columns);
  ~StaticRecordSet() override;

  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  /// Fetches all rows that are left and lets the source go. An error is kept and raised when the cursor gets to
  /// the row that is missing.
  void complete() noexcept;
  /// Fetches up to `rows` rows ahead, so that a small set frees its statement at once.
  void prefetch(size_t rows);
  /// Called with the error that the set is about to raise for a row that cannot be had.
  using OnFailure = std::function<void(const automation::RunTimeError& error)>;
  void report_failures_to(OnFailure on_failure) { on_failure_ = std::move(on_failure); }

  bool at_end() override;
  bool at_start() override;
  void move_first() override;
  void move_last() override;
  void move_next() override;
  void move_previous() override;
  void move(int32_t rows) override;
  int32_t record_count() override;
  int32_t column_count() override;
  std::string column_name(Column column) override;
  Column column(std::string_view name) override;
  automation::Variant value(Column column) override;
  bool is_null(Column column) override;
  int32_t whole_number(Column column) override;
  std::string_view text(Column column) override;
  bool is_open() override { return open_; }
  void close() override;

  // Members that hosts call by name and RecordSet does not have.
  int32_t state() const;
  automation::Ref<Fields> fields();
  /// Up to `most` rows from the cursor on (all when negative), and moves past them. Error 3021 before the first row.
  automation::Array get_rows(int32_t most);

 private:
  void require_open() const;
  /// True when row `row` exists, after fetching up to it.
  bool reach(int64_t row) { return row < rows_ || fetch_to(row); }
  bool fetch_to(int64_t row);
  void fill_to(int64_t row);
  [[noreturn]] void fail() const;
  void fetch_all();
  /// The column, when the cursor stands on a row.
  const ColumnStore& cell(Column column) {
    const auto place = static_cast<size_t>(column.index);
    // A closed set has no columns left.
    const bool present = position_ >= 0 && position_ < rows_ && place < columns_.size();
    return present ? columns_[place] : reached_cell(column);
  }
  const ColumnStore& reached_cell(Column column);

  std::vector<ColumnHeader> headers_;
  std::vector<ColumnStore> columns_;
  std::unique_ptr<RowSource> source_;  ///< empty when there is nothing left to fetch
  std::optional<automation::RunTimeError> failure_;
  OnFailure on_failure_;
  int64_t rows_ = 0;
  int64_t position_ = 0;  ///< -1 before the first row, rows_ after the last
  bool open_ = true;
};

}  // namespace records
