#include "vestara/distances/number_distances.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "automation/text.h"
#include "automation/values/doubles.h"
#include "vestara/distances/deviation.h"
#include "vestara/foundation/query.h"
#include "vestara/foundation/sql_text.h"
#include "vestara/foundation/trap.h"
#include "vestara/foundation/wheels.h"

namespace vestara {

using automation::Array;
using automation::InOut;
using automation::Ref;
using automation::Variant;

namespace {

Array host_array(const std::vector<int32_t>& values) {
  return {automation::VariantKind::long_integer, 0, std::vector<Variant>(values.begin(), values.end())};
}

/// Of a list; its first element is no distance between two appearances. -1 for what never came out.
double mean_distance(const std::vector<int32_t>& list, double& least, double& most) {
  constexpr double largest_least = 99999;  // the contract's, whatever the distances are
  if (list.empty()) return -1;
  const DistanceSummary summary = summary_of(std::span(list).subspan(1));
  least = std::min(summary.least, largest_least);
  most = summary.most;
  return summary.mean;
}

DistancePeriod period_of(const Variant& from, const Variant& to, bool ascending) {
  return {DateBound::given(from), DateBound::given(to), date_order(ascending)};
}

}  // namespace

void cDistanze2::ActiveConnection(Ref<DbConnector> connector) {
  connector_ = std::move(connector);
  PreloadRuoteAlias(connector_);
}

bool cDistanze2::load_wheels(std::string_view label, Recorded recorded, DistanceLists& lists, const std::string& wheels,
                             const DistancePeriod& period) {
  const WheelFilter filter = formatted_wheels(wheels);
  lists.clear();
  return trapped(label, false,
                 [&] { return load_wheel_distances(required(connector_), recorded, filter, period, lists); });
}

bool cDistanze2::load_all(std::string_view label, Recorded recorded, DistanceLists& lists, bool without_national,
                          const DistancePeriod& period) {
  const auto national = without_national ? NationalWheel::left_out : NationalWheel::included;
  lists.clear();
  return trapped(label, false,
                 [&] { return load_date_distances(required(connector_), recorded, national, period, lists); });
}

bool cDistanze2::LoadDistanze2Ambi(const std::string& sRuoteAlias, const Variant& dtDa, const Variant& dtA,
                                   bool bSortASC) {
  return load_wheels("cDistanze2.LoadDistanze2Ambi()", Recorded::pairs, pairs_, sRuoteAlias,
                     period_of(dtDa, dtA, bSortASC));
}
bool cDistanze2::LoadDistanze2AmbiTutte(const Variant& dtDa, const Variant& dtA, bool bEscludiRN, bool bSortASC) {
  return load_all("cDistanze2.LoadDistanze2AmbiTutte()", Recorded::pairs, pairs_of_all_, bEscludiRN,
                  period_of(dtDa, dtA, bSortASC));
}
bool cDistanze2::LoadDistanze1(const std::string& sRuoteAlias, const Variant& dtDa, const Variant& dtA, bool bSortASC) {
  return load_wheels("cDistanze2.LoadDistanze1()", Recorded::numbers, numbers_, sRuoteAlias,
                     period_of(dtDa, dtA, bSortASC));
}
bool cDistanze2::LoadDistanze1Tutte(const Variant& dtDa, const Variant& dtA, bool bEscludiRN, bool bSortASC) {
  return load_all("cDistanze2.LoadDistanze1Tutte()", Recorded::numbers, numbers_of_all_, bEscludiRN,
                  period_of(dtDa, dtA, bSortASC));
}

int32_t cDistanze2::ItemCount(int16_t iNum, int16_t ruotaEnum) const {
  return numbers_.count(wheel_group(ruotaEnum), number_place(iNum));
}

Array cDistanze2::GetDistanzeAmbi(int32_t iNum1, int32_t iNum2, int32_t ruotaEnum) const {
  return quietly(host_array({}), [&] {
    const size_t place = pair_place(iNum1, iNum2);
    return host_array(ruotaEnum < 0 ? pairs_of_all_.list(0, place) : pairs_.list(wheel_group(ruotaEnum), place));
  });
}

Array cDistanze2::GetDistanzeSingleNumber(int32_t iNum, int32_t ruotaEnum) const {
  return quietly(host_array({}), [&] {
    const size_t place = number_place(iNum);
    return host_array(ruotaEnum < 0 ? numbers_of_all_.list(0, place) : numbers_.list(wheel_group(ruotaEnum), place));
  });
}

// The labels of the means lack a letter of the class's name, and the deviation's names another module: kept on purpose.

double cDistanze2::GetDistanzeAVG1(int32_t num, const Variant& Ruota, InOut<double> valMin,
                                   InOut<double> valMax) const {
  return trapped("cDistance2.GetDistanzeAVG1()", 0.0, [&] {
    const size_t wheel = wheel_group(wheel_argument(Ruota));
    return mean_distance(numbers_.list(wheel, number_place(num)), *valMin, *valMax);
  });
}

double cDistanze2::GetDistanzeAVG2Ambi(int32_t num1, int32_t num2, const Variant& Ruota, InOut<double> valMin,
                                       InOut<double> valMax) const {
  return trapped("cDistance2.GetDistanzeAVG2Ambi()", 0.0, [&] {
    const size_t wheel = wheel_group(wheel_argument(Ruota));
    return mean_distance(pairs_.list(wheel, pair_place(num1, num2)), *valMin, *valMax);
  });
}

double cDistanze2::GetDistanzeAVG2AmbiTutte(int32_t num1, int32_t num2, InOut<double> valMin,
                                            InOut<double> valMax) const {
  return trapped("cDistance2.GetDistanzeAVG2AmbiTutte()", 0.0,
                 [&] { return mean_distance(pairs_of_all_.list(0, pair_place(num1, num2)), *valMin, *valMax); });
}

double cDistanze2::GetDistanzeAVG1Tutte(int32_t num, InOut<double> valMin, InOut<double> valMax) const {
  return trapped("cDistance2.GetDistanzeAVG1Tutte()", 0.0,
                 [&] { return mean_distance(numbers_of_all_.list(0, number_place(num)), *valMin, *valMax); });
}

double cDistanze2::StandardDeviation(const Variant& Arr, bool SampleStdDev, bool IgnoreEmpty) const {
  return trapped("cAIFunctions.StandardDeviation()", 0.0, [&] {
    return standard_deviation(Arr, SampleStdDev ? Deviation::of_sample : Deviation::of_population,
                              IgnoreEmpty ? EmptyElements::are_skipped : EmptyElements::count_as_zero);
  });
}

}  // namespace vestara
