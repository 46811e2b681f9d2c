#include "vestara/keeping/checks/draw_days.h"

#include <algorithm>

#include "automation/coercion.h"

namespace vestara {
namespace {

int32_t number_or_zero(RecordSet& row, Column column) { return row.is_null(column) ? 0 : row.whole_number(column); }

}  // namespace

std::vector<DrawDay> draw_days(const Archive& archive) {
  std::vector<DrawDay> days;
  auto rows = archive.rows(
      "SELECT dtEstr,count(DISTINCT ruota) AS ruote,min(ruota) AS ruota,min(concorsoNumero) AS minimo,"
      "max(concorsoNumero) AS massimo FROM storico WHERE dtEstr IS NOT NULL GROUP BY dtEstr");
  for (; !rows->at_end(); rows->move_next()) {
    const auto date = automation::date_in(rows->value(Column{0}));
    if (!date) continue;
    days.push_back({date->day(), rows->whole_number(Column{1}),
                    rows->is_null(Column{2}) ? std::string() : std::string(rows->text(Column{2})),
                    number_or_zero(*rows, Column{3}), number_or_zero(*rows, Column{4})});
  }
  archive.connector()->CloseRecordset(rows);
  std::sort(days.begin(), days.end(), [](const DrawDay& left, const DrawDay& right) { return left.day < right.day; });
  return days;
}

}  // namespace vestara
