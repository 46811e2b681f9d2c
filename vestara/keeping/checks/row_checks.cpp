#include "vestara/keeping/checks/row_checks.h"

#include <algorithm>

#include "automation/text.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/failure.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {
namespace {

/// A question whose every row is a fault.
struct RowCheck {
  RowFault fault;
  std::vector<std::string_view> tables;  ///< those that it reads, its own first
  std::string selection;  ///< a SELECT that every engine takes; the first column is unique enough to sort
};

std::string number(int place) { return "estr" + std::to_string(place); }

std::string out_of_range() {
  std::string condition;
  for (int i = 1; i <= drawn_count; ++i) condition += (i == 1 ? "" : " OR ") + number(i) + "<0 OR " + number(i) + ">90";
  return condition;
}

/// 0 and Null are numbers that were not drawn, they may come as often as they like.
std::string number_twice() {
  std::string condition;
  for (int i = 1; i < drawn_count; ++i) {
    condition += (i == 1 ? "(" : " OR (") + number(i) + ">0 AND (";
    for (int j = i + 1; j <= drawn_count; ++j) condition += (j == i + 1 ? "" : " OR ") + number(i) + "=" + number(j);
    condition += "))";
  }
  return condition;
}

/// Wheels whose number in ruote, or its bit, is another wheel's.
std::string misnumbered() {
  std::string condition;
  for (int16_t wheel = 1; wheel <= wheel_count; ++wheel)
    condition += automation::concatenated({wheel == 1 ? "(" : " OR (", "ruotaAlias='", wheel_code(wheel),
                                           "' AND (enumeratore<>", std::to_string(wheel), " OR enumeratoreBit<>",
                                           std::to_string(1 << (wheel - 1)), "))"});
  return condition;
}

RowCheck high_keys(std::string_view table, std::string_view key) {
  // 90 % of what 32 bits hold.
  constexpr std::string_view high = "1932735282";
  return {RowFault::key_near_the_end,
          {table},
          automation::concatenated({"SELECT ", key, " FROM ", table, " WHERE ", key, ">", high})};
}

std::vector<RowCheck> row_checks() {
  const std::string numbers = "SELECT id,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5 FROM storico WHERE ";
  return {
      {RowFault::repeated,
       {"storico"},
       "SELECT dtEstr,ruota,concorsoNumero,count(*) AS quante FROM storico WHERE dtEstr IS NOT NULL AND ruota IS NOT "
       "NULL GROUP BY dtEstr,ruota,concorsoNumero HAVING count(*)>1"},
      {RowFault::without_day_or_wheel,
       {"storico"},
       "SELECT id,dtEstr,ruota FROM storico WHERE dtEstr IS NULL OR ruota IS NULL OR ruota=''"},
      {RowFault::of_unknown_wheel,
       {"storico", "ruote"},
       "SELECT s.ruota AS ruota,s.quante AS quante FROM (SELECT ruota,count(*) AS quante FROM storico WHERE ruota IS "
       "NOT NULL AND ruota<>'' GROUP BY ruota) AS s LEFT JOIN ruote AS r ON r.ruotaAlias=s.ruota WHERE r.ruotaAlias IS "
       "NULL"},
      {RowFault::misnumbered_wheel,
       {"ruote"},
       "SELECT enumeratore,enumeratoreBit,ruotaAlias FROM ruote WHERE " + misnumbered()},
      {RowFault::number_out_of_range, {"storico"}, numbers + out_of_range()},
      {RowFault::number_twice, {"storico"}, numbers + number_twice()},
      {RowFault::without_contest,
       {"storico"},
       "SELECT id,dtEstr,ruota,concorsoNumero FROM storico WHERE dtEstr IS NOT NULL AND (concorsoNumero IS NULL OR "
       "concorsoNumero<1)"},
      {RowFault::without_system,
       {"tSistemaDetail", "tSistemi"},
       "SELECT d.id AS id,d.idSis AS idSis FROM tSistemaDetail AS d LEFT JOIN tSistemi AS s ON s.idSis=d.idSis WHERE "
       "s.idSis IS NULL"},
      {RowFault::mark_without_draw,
       {"vestara_manual_draws", "storico"},
       "SELECT m.dtEstr AS dtEstr FROM vestara_manual_draws AS m LEFT JOIN storico AS s ON s.dtEstr=m.dtEstr WHERE "
       "s.dtEstr IS NULL"},
      high_keys("storico", "id"),
      high_keys("tRicerche", "idRicerca"),
      high_keys("tSistemi", "idSis"),
      high_keys("tSistemaDetail", "id"),
  };
}

bool can_ask(const Archive& archive, const RowCheck& check) {
  return std::all_of(check.tables.begin(), check.tables.end(), [&](std::string_view name) {
    const ArchiveTable* table = archive_table(name);
    return table && archive.can_read(*table);
  });
}

int64_t count_of(const Archive& archive, const RowCheck& check) {
  auto counted = archive.rows("SELECT count(*) AS quante FROM (" + check.selection + ") AS x");
  const int64_t count = counted->at_end() ? 0 : counted->whole_number(counted->column("quante"));
  archive.connector()->CloseRecordset(counted);
  return count;
}

std::vector<ColumnValue> example_of(const Archive& archive, const RowCheck& check) {
  auto rows = archive.rows(check.selection + " ORDER BY 1 LIMIT 1");
  std::vector<ColumnValue> values;
  for (Column column{0}; !rows->at_end() && column.index < rows->column_count(); ++column.index)
    values.push_back({std::string(rows->column_name(column)), rows->value(column)});
  archive.connector()->CloseRecordset(rows);
  return values;
}

RowFinding finding_of(const Archive& archive, const RowCheck& check) {
  RowFinding finding{.fault = check.fault, .table = check.tables.front(), .example = {}, .refusal = {}};
  try {
    finding.count = count_of(archive, check);
    if (finding.count != 0) finding.example = example_of(archive, check);
  } catch (const Failure& failure) {
    finding.refusal = failure.description();
  }
  return finding;
}

}  // namespace

std::vector<RowFinding> check_rows(const Archive& archive) {
  std::vector<RowFinding> findings;
  for (const RowCheck& check : row_checks()) {
    if (!can_ask(archive, check)) continue;
    RowFinding finding = finding_of(archive, check);
    if (finding.count != 0 || !finding.refusal.empty()) findings.push_back(std::move(finding));
  }
  return findings;
}

}  // namespace vestara
