#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "automation/date.h"
#include "automation/export.h"
#include "automation/variant.h"

namespace records {

/// Texts of one column: equal neighbours and short texts that recur are kept once.
class TextStore {
 public:
  /// The code of a text, for `text`. Error 7 beyond 4 GiB.
  uint32_t add(std::string_view text);
  std::string_view text(uint32_t code) const;

 private:
  uint32_t append(std::string_view text);
  bool find_short(std::string_view text, uint32_t& code);

  struct Slot {
    uint64_t key = 0;  ///< the bytes and the length of a short text; 0 marks a free slot
    uint32_t code = 0;
  };
  static constexpr size_t slot_count = 256;

  std::string bytes_;
  std::vector<uint32_t> ends_;
  std::vector<Slot> slots_;
  size_t used_slots_ = 0;
};

/// How a column's texts are read: as they are, or as dates where they have the ISO form.
enum class TextReading : uint8_t { plain, iso_dates };

/// The values of one column, in the narrowest form that holds them all. Rows count from 0.
class AUTOMATION_API ColumnStore {
 public:
  explicit ColumnStore(TextReading reading) : reading_(reading) {}

  void append_null();
  /// Stands in the header so that other libraries inline it: they call it once for every cell of a table.
  void append_whole(int64_t value) {
    const auto narrow = static_cast<int32_t>(value);
    if (form_ != Form::whole || narrow != value) return append_other_whole(value);
    whole_.push_back(narrow);
    ++rows_;
  }
  void append_real(double value);
  void append_text(std::string_view value);
  void append_date(automation::Date date);

  /// How many rows there are.
  size_t size() const { return rows_; }
  bool is_null(size_t row) const { return row / 64 < nulls_.size() && (nulls_[row / 64] >> (row % 64) & 1U) != 0; }
  automation::Variant value(size_t row) const;
  /// The number at the front of the value's text, halves to even. Errors 94, 6.
  int32_t whole_number(size_t row) const;
  /// Valid until the next call. Error 94.
  std::string_view text(size_t row) const;

 private:
  enum class Form : uint8_t { nothing, whole, real, day, text, mixed };

  void start(Form form);
  /// The first of a column, one beyond 32 bits, or one in a column of another form.
  void append_other_whole(int64_t value);
  void widen_to_real();
  void append_mixed(automation::Variant value);

  TextReading reading_;
  Form form_ = Form::nothing;
  size_t rows_ = 0;
  std::vector<uint64_t> nulls_;  ///< one bit a row; shorter than the rows when the last ones are not Null
  std::vector<int32_t> whole_;   ///< whole numbers, days, or text codes
  std::vector<double> real_;
  std::vector<automation::Variant> mixed_;
  TextStore texts_;
  std::array<char, 10> last_date_text_{};
  int32_t last_day_ = 0;
  mutable std::string scratch_;
};

}  // namespace records
