#include "vestara/keeping/archive_rows.h"

#include <array>
#include <limits>
#include <optional>
#include <string>

#include "automation/coercion.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {
namespace {

std::string draws_statement(WheelOrder order) {
  std::string text = "SELECT dtEstr,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero FROM storico ORDER BY dtEstr,";
  if (order == WheelOrder::by_enumerator) text += "CASE WHEN ruota='RN' THEN 1 ELSE 0 END,";
  return text += "ruota,id";
}

/// The columns in the order of the statement.
class DrawReader {
 public:
  explicit DrawReader(RecordSet& rows) : rows_(rows) {}

  std::optional<DrawRow> read() {
    const auto date = automation::date_in(rows_.value(Column{0}));
    if (!date || rows_.is_null(Column{1})) return std::nullopt;
    const auto wheel = wheel_named(rows_.text(Column{1}));
    if (!wheel) return std::nullopt;
    DrawRow row{date->day(), 0, *wheel, {}};
    for (size_t i = 0; i < row.numbers.size(); ++i) {
      const int32_t number = number_or_zero(Column{static_cast<int32_t>(2 + i)});
      if (number < 1 || number > number_count) return std::nullopt;
      row.numbers[i] = static_cast<int8_t>(number);
    }
    const int32_t contest = number_or_zero(Column{7});
    const bool fits = contest > 0 && contest <= std::numeric_limits<int16_t>::max();
    if (fits) row.contest = static_cast<int16_t>(contest);
    return row;
  }

 private:
  int32_t number_or_zero(Column column) { return rows_.is_null(column) ? 0 : rows_.whole_number(column); }

  RecordSet& rows_;
};

}  // namespace

size_t read_draws(const Archive& archive, WheelOrder order, const std::function<bool(const DrawRow&)>& take,
                  const std::function<void(RecordSet&)>& pass_over) {
  automation::Ref<RecordSet> rows = archive.rows(draws_statement(order));
  DrawReader reader(*rows);
  size_t passed_over = 0;
  for (bool wanted = true; wanted && !rows->at_end(); rows->move_next()) {
    if (const auto row = reader.read()) {
      wanted = take(*row);
      continue;
    }
    ++passed_over;
    if (pass_over) pass_over(*rows);
  }
  archive.connector()->CloseRecordset(rows);
  return passed_over;
}

}  // namespace vestara
