#include "hosts/cli/checks/content_checks.h"

#include <algorithm>

#include "automation/text.h"
#include "hosts/cli/failure.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/keeping/stored_value.h"

namespace vestara::host {
namespace {

constexpr int drawn = 5;

std::string number(int place) { return "estr" + std::to_string(place); }

std::string out_of_range() {
  std::string condition;
  for (int i = 1; i <= drawn; ++i) condition += (i == 1 ? "" : " OR ") + number(i) + "<0 OR " + number(i) + ">90";
  return condition;
}

/// 0 and Null are numbers that were not drawn, they may come as often as they like.
std::string repeated() {
  std::string condition;
  for (int i = 1; i < drawn; ++i) {
    condition += (i == 1 ? "(" : " OR (") + number(i) + ">0 AND (";
    for (int j = i + 1; j <= drawn; ++j) condition += (j == i + 1 ? "" : " OR ") + number(i) + "=" + number(j);
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

ContentCheck high_keys(std::string_view table, std::string_view key, const std::string& remedy) {
  // 90 % of what 32 bits hold.
  constexpr std::string_view high = "1932735282";
  return {automation::concatenated({"keys of ", table, " near the end of 32 bits"}),
          automation::concatenated({"SELECT ", key, " FROM ", table, " WHERE ", key, ">", high}),
          {table},
          remedy};
}

bool can_ask(const ArchiveSession& session, const ContentCheck& check) {
  return std::all_of(check.tables.begin(), check.tables.end(), [&](std::string_view name) {
    const ArchiveTable* table = archive_table(name);
    return table && session.can_read(*table);
  });
}

void add_finding(const ArchiveSession& session, const ContentCheck& check, Findings& findings) {
  auto counted = session.rows("SELECT count(*) AS quante FROM (" + check.selection + ") AS x");
  const int64_t count = counted->at_end() ? 0 : counted->whole_number(counted->column("quante"));
  session.connector()->CloseRecordset(counted);
  if (count == 0) return;
  auto example = session.rows(check.selection + " ORDER BY 1 LIMIT 1");
  findings.push_back({check.what, count, example->at_end() ? "" : row_in_words(*example), check.remedy});
  session.connector()->CloseRecordset(example);
}

}  // namespace

std::vector<ContentCheck> content_checks() {
  const std::string numbers = "SELECT id,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5 FROM storico WHERE ";
  const std::string correct = "vestara draw save DATE … writes the draw anew";
  const std::string import = "vestara export and vestara import into a new archive number the rows anew";
  const std::string save = "save them in a new archive, which numbers them anew";
  return {
      {"rows of one date, wheel and contest more than once",
       "SELECT dtEstr,ruota,concorsoNumero,count(*) AS quante FROM storico WHERE dtEstr IS NOT NULL AND ruota IS NOT "
       "NULL GROUP BY dtEstr,ruota,concorsoNumero HAVING count(*)>1",
       {"storico"},
       correct},
      {"rows without a date or a wheel",
       "SELECT id,dtEstr,ruota FROM storico WHERE dtEstr IS NULL OR ruota IS NULL OR ruota=''",
       {"storico"},
       "complete or delete them; searches pass them over"},
      {"wheels in storico that ruote does not have",
       "SELECT s.ruota AS ruota,s.quante AS quante FROM (SELECT ruota,count(*) AS quante FROM storico WHERE ruota IS "
       "NOT NULL AND ruota<>'' GROUP BY ruota) AS s LEFT JOIN ruote AS r ON r.ruotaAlias=s.ruota WHERE r.ruotaAlias IS "
       "NULL",
       {"storico", "ruote"},
       "correct the rows, or add the wheel to ruote; delays and frequencies fail on it"},
      {"wheels of ruote under another number",
       "SELECT enumeratore,enumeratoreBit,ruotaAlias FROM ruote WHERE " + misnumbered(),
       {"ruote"},
       "number them as ever, BA 1 to VE 10 and RN 11: wheels are asked for by number"},
      {"rows with a number outside 0 to 90", numbers + out_of_range(), {"storico"}, correct},
      {"rows with a number twice", numbers + repeated(), {"storico"}, correct},
      {"rows without a contest number",
       "SELECT id,dtEstr,ruota,concorsoNumero FROM storico WHERE dtEstr IS NOT NULL AND (concorsoNumero IS NULL OR "
       "concorsoNumero<1)",
       {"storico"},
       correct},
      {"combinations without their system",
       "SELECT d.id AS id,d.idSis AS idSis FROM tSistemaDetail AS d LEFT JOIN tSistemi AS s ON s.idSis=d.idSis WHERE "
       "s.idSis IS NULL",
       {"tSistemaDetail", "tSistemi"},
       "delete them from tSistemaDetail; nothing shows them"},
      {"draws marked as entered by hand that are not there",
       "SELECT m.dtEstr AS dtEstr FROM vestara_manual_draws AS m LEFT JOIN storico AS s ON s.dtEstr=m.dtEstr WHERE "
       "s.dtEstr IS NULL",
       {"vestara_manual_draws", "storico"},
       "vestara draw save DATE … enters the draw again; the next import forgets the mark"},
      high_keys("storico", "id", import),
      high_keys("tRicerche", "idRicerca", save),
      high_keys("tSistemi", "idSis", save),
      high_keys("tSistemaDetail", "id", save),
  };
}

Findings content_findings(const ArchiveSession& session) {
  Findings findings;
  for (const ContentCheck& check : content_checks()) {
    if (!can_ask(session, check)) continue;
    try {
      add_finding(session, check, findings);
    } catch (const vestara::Failure& failure) {
      findings.push_back({check.what + ": cannot be checked", 1, failure.what(), "see what the database says"});
    }
  }
  return findings;
}

std::string row_in_words(RecordSet& rows) {
  std::string words;
  for (Column column{0}; column.index < rows.column_count(); ++column.index) {
    words.append(words.empty() ? "" : ", ").append(rows.column_name(column)).append(" ");
    words += rows.is_null(column) ? "Null" : stored_text(rows.value(column));
  }
  return words;
}

}  // namespace vestara::host
