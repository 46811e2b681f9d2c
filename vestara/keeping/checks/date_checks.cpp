#include "vestara/keeping/checks/date_checks.h"

#include <algorithm>
#include <vector>

#include "automation/coercion.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/keeping/stored_value.h"

namespace vestara {
namespace {

struct Dates {
  std::vector<int32_t> days;  ///< sorted
  int64_t impossible = 0;
  std::string example;
};

Dates read_dates(const Archive& archive) {
  Dates dates;
  auto rows = archive.rows("SELECT dtEstr FROM storico WHERE dtEstr IS NOT NULL GROUP BY dtEstr ORDER BY dtEstr");
  for (; !rows->at_end(); rows->move_next()) {
    const automation::Variant value = rows->value(Column{0});
    if (const auto date = automation::date_in(value))
      dates.days.push_back(date->day());
    else if (dates.impossible++ == 0)
      dates.example = stored_text(value);
  }
  archive.connector()->CloseRecordset(rows);
  std::sort(dates.days.begin(), dates.days.end());
  return dates;
}

/// Wheels came one after the other, and in some weeks of war and flood not all were drawn: that is no fault.
int64_t lacking_rows(const Archive& archive, const std::vector<int32_t>& days) {
  int64_t lacking = 0;
  auto rows = archive.rows(
      "SELECT ruota,min(dtEstr) AS prima,count(DISTINCT dtEstr) AS quante FROM storico WHERE dtEstr IS NOT NULL AND "
      "ruota IS NOT NULL GROUP BY ruota");
  for (; !rows->at_end(); rows->move_next()) {
    const auto first = automation::date_in(rows->value(Column{1}));
    if (!first || !wheel_named(rows->text(Column{0}))) continue;
    const auto since = days.end() - std::lower_bound(days.begin(), days.end(), first->day());
    lacking += std::max<int64_t>(0, since - rows->whole_number(Column{2}));
  }
  archive.connector()->CloseRecordset(rows);
  return lacking;
}

}  // namespace

DateFacts check_dates(const Archive& archive) {
  const Dates dates = read_dates(archive);
  DateFacts facts;
  if (!dates.days.empty()) {
    facts.first = dates.days.front();
    facts.last = dates.days.back();
  }
  facts.dates = static_cast<int64_t>(dates.days.size());
  facts.lacking = lacking_rows(archive, dates.days);
  facts.impossible = dates.impossible;
  facts.example = dates.example;
  return facts;
}

}  // namespace vestara
