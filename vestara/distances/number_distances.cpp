#include "vestara/distances/number_distances.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "automation/text.h"
#include "automation/values/doubles.h"
#include "vestara/distances/deviation.h"
#include "vestara/distances/distance_text.h"
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

/// Of a list; its first element is no distance between two appearances.
double mean_distance(const std::vector<int32_t>& list, double& least, double& most) {
  if (list.empty()) return -1;
  double smallest = 99999;
  double largest = 0;
  double sum = 0;
  for (size_t i = 1; i < list.size(); ++i) {
    smallest = std::min<double>(smallest, list[i]);
    largest = std::max<double>(largest, list[i]);
    sum += list[i];
  }
  const double mean = automation::quotient(sum, static_cast<double>(list.size() - 1));
  least = smallest;
  most = largest;
  return mean;
}

}  // namespace

void cDistanze2::ActiveConnection(Ref<DbConnector> connector) {
  connector_ = std::move(connector);
  PreloadRuoteAlias(connector_);
}

template <class Walk>
bool cDistanze2::load(std::string_view label, DistanceLists& lists, const std::string& statement, Walk walk) {
  lists.clear();
  return trapped(label, false, [&] {
    return walk_rows(connector_, statement, [&](RecordSet& rows) {
      walk(rows);
      lists.end_load();
    });
  });
}

bool cDistanze2::load_wheels(std::string_view label, Recorded recorded, DistanceLists& lists, const std::string& wheels,
                             const DistancePeriod& period) {
  const std::string quoted = FormatRuoteToSql(wheels, WheelChoice::listed);
  return load(label, lists, wheel_draws_statement(period, automation::split(quoted, ',')),
              [&](RecordSet& rows) { walk_wheels(rows, recorded, lists); });
}

bool cDistanze2::load_all(std::string_view label, Recorded recorded, DistanceLists& lists, bool without_national,
                          const DistancePeriod& period) {
  const auto national = without_national ? NationalWheel::left_out : NationalWheel::included;
  return load(label, lists, all_draws_statement(period, national),
              [&](RecordSet& rows) { walk_dates(rows, recorded, lists); });
}

bool cDistanze2::LoadDistanze2Ambi(const std::string& sRuoteAlias, const Variant& dtDa, const Variant& dtA,
                                   bool bSortASC) {
  return load_wheels("cDistanze2.LoadDistanze2Ambi()", Recorded::pairs, pairs_, sRuoteAlias,
                     {dtDa, dtA, date_order(bSortASC)});
}
bool cDistanze2::LoadDistanze2AmbiTutte(const Variant& dtDa, const Variant& dtA, bool bEscludiRN, bool bSortASC) {
  return load_all("cDistanze2.LoadDistanze2AmbiTutte()", Recorded::pairs, pairs_of_all_, bEscludiRN,
                  {dtDa, dtA, date_order(bSortASC)});
}
bool cDistanze2::LoadDistanze1(const std::string& sRuoteAlias, const Variant& dtDa, const Variant& dtA, bool bSortASC) {
  return load_wheels("cDistanze2.LoadDistanze1()", Recorded::numbers, numbers_, sRuoteAlias,
                     {dtDa, dtA, date_order(bSortASC)});
}
bool cDistanze2::LoadDistanze1Tutte(const Variant& dtDa, const Variant& dtA, bool bEscludiRN, bool bSortASC) {
  return load_all("cDistanze2.LoadDistanze1Tutte()", Recorded::numbers, numbers_of_all_, bEscludiRN,
                  {dtDa, dtA, date_order(bSortASC)});
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
