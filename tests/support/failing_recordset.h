#pragma once

#include <utility>

#include "automation/error.h"
#include "tests/support/connectors.h"

namespace testing_support {

/// Hands calls on to another record set until its good calls are used up; from then on it raises `rows_error`.
class FailingRecordSet final : public vestara::RecordSet {
 public:
  FailingRecordSet(RowsRef inner, int32_t good_calls) : inner_(std::move(inner)), good_calls_(good_calls) {}

  const RowsRef& inner() const { return inner_; }

  const automation::ClassDescription& description() const override { return inner_->description(); }
  automation::Variant invoke(int32_t id, automation::InvokeKind kind, std::span<automation::Variant> arguments,
                             std::span<const std::string_view> names) override {
    return next().invoke(id, kind, arguments, names);
  }
  bool at_end() override { return next().at_end(); }
  bool at_start() override { return next().at_start(); }
  void move_first() override { next().move_first(); }
  void move_last() override { next().move_last(); }
  void move_next() override { next().move_next(); }
  void move_previous() override { next().move_previous(); }
  void move(int32_t rows) override { next().move(rows); }
  int32_t record_count() override { return next().record_count(); }
  int32_t column_count() override { return next().column_count(); }
  std::string column_name(vestara::Column column) override { return next().column_name(column); }
  vestara::Column column(std::string_view name) override { return next().column(name); }
  automation::Variant value(vestara::Column column) override { return next().value(column); }
  bool is_null(vestara::Column column) override { return next().is_null(column); }
  int32_t whole_number(vestara::Column column) override { return next().whole_number(column); }
  std::string_view text(vestara::Column column) override { return next().text(column); }
  bool is_open() override { return inner_->is_open(); }
  void close() override { inner_->close(); }

 private:
  vestara::RecordSet& next() {
    if (good_calls_-- <= 0) throw automation::RunTimeError(rows_error, "The rows were lost.");
    return *inner_;
  }

  RowsRef inner_;
  int32_t good_calls_;
};

}  // namespace testing_support
