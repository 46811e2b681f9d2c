#pragma once  // installed

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/export.h"
#include "automation/object.h"
#include "automation/variant.h"

namespace records {

/// A column of a record set, found once by name and used for every row. Counts from 0.
struct Column {
  int32_t index = 0;
};

/// The rows of a reading statement: static, on the client's side, scrollable. The cursor stands on a row, before the
/// first or after the last. A closed record set raises 3704 from every call but `is_open` and `close`. A record set
/// belongs to the thread of its connector. One that is complete may go to another thread without it.
class AUTOMATION_API RecordSet : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "Recordset";

  virtual bool at_end() = 0;    ///< after the last row (EOF); also when there are no rows
  virtual bool at_start() = 0;  ///< before the first row (BOF); also when there are no rows

  virtual void move_first() = 0;
  virtual void move_last() = 0;
  /// Error 3021 when the cursor stands after the last row already.
  virtual void move_next() = 0;
  /// Error 3021 when the cursor stands before the first row already.
  virtual void move_previous() = 0;
  /// Moves by `rows`, backwards when negative, and stops one row outside. Error 3021 when the cursor stands outside
  /// already and would go further out.
  virtual void move(int32_t rows) = 0;

  /// The exact number of rows, wherever the cursor is.
  virtual int32_t record_count() = 0;

  virtual int32_t column_count() = 0;
  virtual std::string column_name(Column column) = 0;
  /// Found without regard to case, with or without the qualifier that the statement wrote before the name; the
  /// first of several columns that share it. Error 3265 when there is none.
  virtual Column column(std::string_view name) = 0;

  // The current row. Error 3021 when the cursor stands on none.
  virtual automation::Variant value(Column column) = 0;
  virtual bool is_null(Column column) = 0;
  /// The number that the value's text begins with (0 when there is none), to the nearest whole, halves to even.
  /// Errors 94 for Null and 6 beyond 32 bits.
  virtual int32_t whole_number(Column column) = 0;
  /// The value as text. Error 94 for Null. Valid until the cursor moves.
  virtual std::string_view text(Column column) = 0;

  virtual bool is_open() = 0;
  virtual void close() = 0;
};

}  // namespace records
