#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <optional>
#include <ranges>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "automation/date.h"
#include "automation/export.h"
#include "automation/ref.h"
#include "records/column_store.h"
#include "records/recordset.h"
#include "records/static_recordset.h"

namespace records {

namespace detail {

template <class Value>
inline constexpr bool is_optional = false;
template <class Value>
inline constexpr bool is_optional<std::optional<Value>> = true;

/// Whole numbers, reals, dates, texts, and optional ones: an empty optional is Null.
template <class Value>
void append_value(ColumnStore& column, const Value& value) {
  if constexpr (is_optional<Value>) {
    value ? append_value(column, *value) : column.append_null();
  } else if constexpr (std::same_as<Value, automation::Date>) {
    column.append_date(value);
  } else if constexpr (std::floating_point<Value>) {
    column.append_real(value);
  } else if constexpr (std::integral<Value>) {
    static_assert(!std::same_as<Value, bool> && sizeof(Value) <= sizeof(int64_t));
    column.append_whole(static_cast<int64_t>(value));
  } else {
    column.append_text(std::string_view(value));
  }
}

}  // namespace detail

/// A static record set of values that are in memory already, column by column:
///
///   RecordTable table;
///   table.column("wheel", figures, [](const Figure& row) { return code_of(row.wheel); });
///   table.column("number", figures, &Figure::number);
///   table.column("last", figures, &Figure::last);  // std::optional<Date>: Null where it is empty
///   return table.take();
///
/// Columns of whole numbers read as Long, as Double where one is beyond 32 bits. It copies what it is given.
class AUTOMATION_API RecordTable {
 public:
  /// A further column, named `name`: of each element of `rows`, in their order, what `of` makes of it.
  template <std::ranges::input_range Rows, class Of = std::identity>
  void column(std::string name, const Rows& rows, Of of = {}) {
    ColumnStore values(TextReading::plain);
    for (const auto& row : rows)
      detail::append_value<std::remove_cvref_t<std::invoke_result_t<Of&, decltype(row)>>>(values, std::invoke(of, row));
    add(std::move(name), std::move(values));
  }

  /// The record set, on its first row; the table is empty then.
  automation::Ref<RecordSet> take();

 private:
  /// Error 5 for a column that is longer or shorter than those before it.
  void add(std::string name, ColumnStore values);

  std::vector<ColumnHeader> headers_;
  std::vector<ColumnStore> columns_;
};

}  // namespace records
