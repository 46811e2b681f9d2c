#include "hosts/cli/checks/row_findings.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "automation/text.h"
#include "vestara/foundation/schema.h"
#include "vestara/keeping/stored_value.h"

namespace vestara::host {
namespace {

struct RowWords {
  RowFault fault;
  std::string_view what;
  std::string_view remedy;
};

constexpr std::string_view write_anew = "vestara draw save DATE … writes the draw anew";

constexpr std::array<RowWords, 9> row_words{{
    {RowFault::repeated, "rows of one date, wheel and contest more than once", write_anew},
    {RowFault::without_day_or_wheel, "rows without a date or a wheel",
     "complete or delete them; searches pass them over"},
    {RowFault::of_unknown_wheel, "wheels in storico that ruote does not have",
     "correct the rows, or add the wheel to ruote; delays and frequencies fail on it"},
    {RowFault::misnumbered_wheel, "wheels of ruote under another number",
     "number them as ever, BA 1 to VE 10 and RN 11: wheels are asked for by number"},
    {RowFault::number_out_of_range, "rows with a number outside 0 to 90", write_anew},
    {RowFault::number_twice, "rows with a number twice", write_anew},
    {RowFault::without_contest, "rows without a contest number", write_anew},
    {RowFault::without_system, "combinations without their system",
     "delete them from tSistemaDetail; nothing shows them"},
    {RowFault::mark_without_draw, "draws marked as entered by hand that are not there",
     "vestara draw save DATE … enters the draw again; the next import forgets the mark"},
}};

/// What is wrong with the rows, and what to do.
struct Words {
  std::string what;
  std::string_view remedy;
};

Words words_for(const RowFinding& finding) {
  const auto* const words = std::ranges::find(row_words, finding.fault, &RowWords::fault);
  if (words != row_words.end()) return {std::string(words->what), words->remedy};
  return {automation::concatenated({"keys of ", finding.table, " near the end of 32 bits"}),
          finding.table == draw_table.name ? "vestara export and vestara import into a new archive number the rows anew"
                                           : "save them in a new archive, which numbers them anew"};
}

/// "id 7, dtEstr 2005-02-09, ruota Null".
std::string row_in_words(const std::vector<ColumnValue>& row) {
  std::string words;
  for (const ColumnValue& column : row) {
    words.append(words.empty() ? "" : ", ").append(column.name).append(" ");
    words += column.value.is_null() ? "Null" : stored_text(column.value);
  }
  return words;
}

}  // namespace

Findings row_findings(const std::vector<RowFinding>& faults) {
  Findings findings;
  for (const RowFinding& fault : faults) {
    const Words words = words_for(fault);
    if (fault.refusal.empty())
      findings.push_back({words.what, fault.count, row_in_words(fault.example), std::string(words.remedy)});
    else
      findings.push_back({words.what + ": cannot be checked", 1, fault.refusal, "see what the database says"});
  }
  return findings;
}

}  // namespace vestara::host
