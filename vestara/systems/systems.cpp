#include "vestara/systems/systems.h"

#include <utility>
#include <vector>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/int16.h"
#include "automation/text.h"
#include "vestara/foundation/trap.h"
#include "vestara/systems/integral.h"
#include "vestara/systems/number_series.h"
#include "vestara/systems/number_sets.h"

namespace vestara {

void cSistemi::ActiveConnection(automation::Ref<DbConnector> connector) { connector_ = std::move(connector); }

std::string cSistemi::SysGemelli2Str() const { return std::string(twin_numbers); }
std::string cSistemi::SysVertibili2Str() const { return std::string(reversible_numbers); }

std::string cSistemi::SysCadenze2Str(int16_t num) const {
  return trapped("cSistemi.SysCadenze2Str()", std::string(), [&] { return same_ending(num); });
}
std::string cSistemi::SysFibonacci2Str(int16_t num) const {
  return trapped("cSistemi.SysFibonacci2Str()", std::string(), [&] { return fibonacci_run(num); });
}
std::string cSistemi::SysDecine2Str(int16_t num) const {
  return trapped("cSistemi.SysDecine2Str()", std::string(), [&] { return ten_numbers(num); });
}
std::string cSistemi::SysFigure2Str(int16_t num) const {
  return trapped("cSistemi.SysFigure2Str()", std::string(), [&] { return same_figure(num); });
}

void cSistemi::GetRndNumber(automation::InOut<automation::Array> serieOUT, int32_t kNum, int32_t minNum, int32_t maxNum,
                            bool bRepeat) const {
  *serieOUT = random_series(kNum, minNum, maxNum, bRepeat ? Repetition::allowed : Repetition::excluded);
}

void cSistemi::ArrNumbersSort(automation::InOut<automation::Variant> pvarArray) const { sort_by_number(*pvarArray); }

// The labels of the next two members name another class, one of them misspelt, and one ends in a blank: kept on
// purpose.

double cSistemi::ContaCombinazioniIntegrali(int16_t nCifre, int16_t nComb) const {
  return trapped("cStatustiche.ContaCombinazioniIntegrali()", 0.0, [&] { return integral_count(nCifre, nComb); });
}

std::string cSistemi::CombinazioniIntegraliString(const std::string& sNumeri, int16_t iNumeroElementi,
                                                  automation::InOut<int32_t> nCombi) const {
  return trapped("cStatistiche.CombinazioniIntegraliString()", std::string(), [&] {
    *nCombi = 0;
    const std::vector<std::string_view> items = automation::split(sNumeri, ',');
    const int16_t item_count = automation::Int16::checked(static_cast<int64_t>(items.size()));
    const int32_t count = trapped("cStatistiche.CombinazioniStrBit() ", 0, [&] {
      const int32_t rows = automation::round_to_long(ContaCombinazioniIntegrali(item_count, iNumeroElementi));
      if (rows < 1) throw automation::subscript_out_of_range();
      return rows;
    });
    *nCombi = count;
    return count > 0 ? integral_lines(items, iNumeroElementi, count) : std::string();
  });
}

}  // namespace vestara
