#include <string>
#include <vector>

#include "automation/text.h"
#include "vestara/foundation/combination_lines.h"
#include "vestara/foundation/query.h"
#include "vestara/foundation/trap.h"
#include "vestara/keeping/catalogue_text.h"
#include "vestara/keeping/saved_systems.h"
#include "vestara/systems/combination_text.h"
#include "vestara/systems/integral.h"
#include "vestara/systems/systems.h"

// Saved systems.

namespace vestara {

using automation::Array;
using automation::InOut;
using automation::Ref;
using automation::Variant;

namespace {

std::string joined_lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append(line_break);
  if (!text.empty()) text.resize(text.size() - line_break.size());
  return text;
}

/// The stored combinations, positions replaced by the numbers unless there are none or the system holds numbers.
std::vector<std::string> stored_lines(RecordSet& rows, const std::vector<std::string_view>& numbers) {
  std::vector<std::string> lines;
  if (rows.at_end()) return lines;
  const Column combination = rows.column("combinazione");
  const Column kind = rows.column("sisTipo");
  const bool as_stored = numbers.empty() || (!rows.is_null(kind) && rows.text(kind) == "S");
  for (; !rows.at_end(); rows.move_next()) {
    const std::string line(rows.text(combination));
    lines.push_back(as_stored ? line : numbers_at(line, numbers));
  }
  rows.move_first();
  return lines;
}

}  // namespace

Ref<RecordSet> cSistemi::GetSistemiLista(int32_t idSis, const std::string& sisTipo, const std::string& titolo,
                                         const std::string& descrizione, int16_t QtaNumeri, int16_t nGiocate,
                                         int16_t kColonne, int16_t garanzia) const {
  return trapped("cSistemi.GetSistemiLista()", Ref<RecordSet>(), [&] {
    return required(connector_)
        .GetRecordset(
            system_list_statement({idSis, sisTipo, titolo, descrizione, QtaNumeri, nGiocate, kColonne, garanzia}));
  });
}

std::string cSistemi::CombiTextFilter(const std::string& sCombi) const {
  return std::string(trimmed_to_digits(sCombi));
}

std::string cSistemi::GetCombiNumbers(const std::string& sCombi) const {
  return trapped("cSistemi.GetCombiNumbers()", std::string(),
                 [&] { return distinct_elements(trimmed_to_digits(sCombi)); });
}

Array cSistemi::GetSisNumsConvert(const std::string& sCombi, const std::string& sNumsNew,
                                  InOut<std::string> sCombiRes) const {
  Array nothing(automation::VariantKind::text, 0, std::vector<Variant>());
  return trapped("cSistemi.GetSisNumsConvert()", nothing, [&] {
    const std::string combinations = CombiTextFilter(sCombi);
    const std::string old_numbers = GetCombiNumbers(combinations);
    const std::vector<std::string_view> old_elements = automation::split(old_numbers, ',');
    const std::vector<std::string_view> new_elements = automation::split(sNumsNew, ',');
    if (old_elements.size() != new_elements.size()) return nothing;
    const std::vector<std::string> lines = converted_lines(combinations, old_elements, new_elements);
    *sCombiRes = joined_lines(lines);
    return Array(automation::VariantKind::text, 0, std::vector<Variant>(lines.begin(), lines.end()));
  });
}

Ref<RecordSet> cSistemi::GetSistemaCombi(int32_t lIdSis, const std::string& sNumeri,
                                         InOut<std::string> sResCombi) const {
  return trapped("cSistemi.GetSistemaCombi()", Ref<RecordSet>(), [&] {
    const std::vector<std::string_view> numbers = automation::split(sNumeri, ',');
    Ref<RecordSet> rows = required(connector_).GetRecordset(system_combinations_statement(lIdSis));
    if (rows) *sResCombi = joined_lines(stored_lines(*rows, numbers));
    return rows;
  });
}

bool cSistemi::SalvaSistema(InOut<int32_t> idSis, InOut<std::string> sistemaCombi, const std::string& titolo,
                            const std::string& descrizione, const std::string& numeri, int16_t QtaNumeri,
                            int16_t kColonne, int16_t nGiocate, int16_t iGaranzia) const {
  return trapped("cSistemi.SalvaSistema()", false, [&] {
    *sistemaCombi = CombiTextFilter(*sistemaCombi);
    const Ref<DbConnector> connector(&required(connector_));
    const std::vector<std::string_view> lines = combination_lines(*sistemaCombi);
    return store_system(*connector, *idSis, {titolo, descrizione, numeri, QtaNumeri, nGiocate, kColonne, iGaranzia},
                        lines);
  });
}

bool cSistemi::DelSistema(int32_t lIdSis) const {
  return trapped("cSistemi.DelSistema()", false, [&] {
    const Ref<DbConnector> connector(&required(connector_));
    return remove_system(*connector, lIdSis);
  });
}

bool cSistemi::DelSistemaDetail(int32_t lID) const {
  return trapped("cSistemi.DelSistemaDetail()", false,
                 [&] { return required(connector_).ExecuteSql(combinations_delete_statement(lID)); });
}

}  // namespace vestara
