#pragma once

#include <deque>
#include <string>
#include <vector>

#include "vestara/foundation/connector.h"

namespace testing_support {

/// The answer to a statement. A column is named as the statement wrote it, its qualifier included.
struct Table {
  std::vector<std::string> columns;
  std::vector<std::vector<automation::Variant>> rows;
};

/// The number of the error that a closed record set raises.
inline constexpr int32_t closed_error = 3704;

/// A record set over a Table: all of the contract of RecordSet, and nothing behind it.
class MemoryRecordSet final : public vestara::RecordSet {
 public:
  explicit MemoryRecordSet(Table table) : table_(std::move(table)) {}

  const automation::ClassDescription& description() const override;
  bool at_end() override;
  bool at_start() override;
  void move_first() override { go_to(0); }
  void move_last() override;
  void move_next() override { move(1); }
  void move_previous() override { move(-1); }
  void move(int32_t rows) override;
  int32_t record_count() override;
  int32_t column_count() override;
  std::string column_name(vestara::Column column) override;
  vestara::Column column(std::string_view name) override;
  automation::Variant value(vestara::Column column) override;
  bool is_null(vestara::Column column) override;
  int32_t whole_number(vestara::Column column) override;
  std::string_view text(vestara::Column column) override;
  bool is_open() override { return open_; }
  void close() override { open_ = false; }

 private:
  void check_open() const;
  void go_to(int64_t position);
  int64_t count() const { return static_cast<int64_t>(table_.rows.size()); }

  Table table_;
  int64_t position_ = 0;           // -1 before the first row
  std::deque<std::string> texts_;  // handed out since the cursor last moved
  bool open_ = true;
};

}  // namespace testing_support
