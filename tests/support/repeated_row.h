#pragma once

#include <string>

#include "automation/error.h"
#include "automation/member.h"
#include "vestara/foundation/connector.h"

namespace testing_support {

/// One whole number, in so many rows that nothing could hold them. For forward walks.
class RepeatedRow final : public vestara::RecordSet {
 public:
  RepeatedRow(int32_t value, int32_t rows) : value_(value), rows_(rows) {}

  const automation::ClassDescription& description() const override {
    static constexpr automation::ClassDescription description{.library = "Tests", .name = "RepeatedRow"};
    return description;
  }
  bool at_end() override { return position_ >= rows_; }
  bool at_start() override { return rows_ == 0; }
  void move_first() override { position_ = 0; }
  void move_last() override { position_ = rows_ - 1; }
  void move_next() override { ++position_; }
  void move_previous() override { --position_; }
  void move(int32_t rows) override { position_ += rows; }
  int32_t record_count() override { return rows_; }
  int32_t column_count() override { return 1; }
  std::string column_name(vestara::Column) override { return "value"; }
  vestara::Column column(std::string_view) override { return {}; }
  automation::Variant value(vestara::Column) override { return value_; }
  bool is_null(vestara::Column) override { return false; }
  int32_t whole_number(vestara::Column) override { return value_; }
  std::string_view text(vestara::Column) override { throw automation::type_mismatch(); }
  bool is_open() override { return true; }
  void close() override {}

 private:
  int32_t value_;
  int32_t rows_;
  int32_t position_ = 0;
};

}  // namespace testing_support
