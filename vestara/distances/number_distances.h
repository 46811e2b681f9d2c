#pragma once  // installed

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/in_out.h"
#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"
#include "vestara/distances/distance_lists.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {

/// The distances, in draws, between successive appearances of every number and of every pair, on each wheel and over
/// all wheels together. Each of the four loads fills lists of its own and clears only those. It gives False when its
/// statement was refused, and after an error, which also gets an entry in the error log.
///
/// Element 0 of a list counts the draws of the period before the first appearance that the walk met: with
/// `bSortASC` False that is the current delay. A host must not start another load while one yields to it.
///
/// An object belongs to one thread at a time, together with its connector and their record sets. Between two calls they
/// may go to another thread. Objects with different connectors are independent of each other.
class VESTARA_API cDistanze2 final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "cDistanze2";

  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  /// Stores the connector and fills the wheel tables. Without a connector the tables cannot be filled: an entry says
  /// so.
  void ActiveConnection(automation::Ref<DbConnector> connector);

  /// Pairs on each wheel; `sRuoteAlias` is "BA,NA", "" for all.
  bool LoadDistanze2Ambi(const std::string& sRuoteAlias, const automation::Variant& dtDa = automation::Missing{},
                         const automation::Variant& dtA = automation::Missing{}, bool bSortASC = false);
  /// Pairs over all wheels, `bEscludiRN` leaving the national one out; dates count, not draws of a wheel.
  bool LoadDistanze2AmbiTutte(const automation::Variant& dtDa = automation::Missing{},
                              const automation::Variant& dtA = automation::Missing{}, bool bEscludiRN = false,
                              bool bSortASC = false);
  // The same for numbers.
  bool LoadDistanze1(const std::string& sRuoteAlias, const automation::Variant& dtDa = automation::Missing{},
                     const automation::Variant& dtA = automation::Missing{}, bool bSortASC = false);
  bool LoadDistanze1Tutte(const automation::Variant& dtDa = automation::Missing{},
                          const automation::Variant& dtA = automation::Missing{}, bool bEscludiRN = false,
                          bool bSortASC = false);

  /// How often a number came out on a wheel. Error 9 outside.
  int32_t ItemCount(int16_t iNum, int16_t ruotaEnum) const;
  /// The distances of a pair, the smaller number first, or of a number, in an array from 0: of a wheel 1 to 11, of
  /// all wheels when `ruotaEnum` is negative. An empty array for everything else.
  automation::Array GetDistanzeAmbi(int32_t iNum1, int32_t iNum2, int32_t ruotaEnum = 0) const;
  automation::Array GetDistanzeSingleNumber(int32_t iNum, int32_t ruotaEnum = 0) const;

  // Mean, smallest and largest distance, element 0 left out; the smallest is 99999 at most. -1 for what never came out.
  // 0 after an error; a single appearance is an error. Either leaves `valMin` and `valMax` as they are. `Ruota` is an
  // enumerator or an alias.
  double GetDistanzeAVG1(int32_t num, const automation::Variant& Ruota, automation::InOut<double> valMin = {},
                         automation::InOut<double> valMax = {}) const;
  double GetDistanzeAVG2Ambi(int32_t num1, int32_t num2, const automation::Variant& Ruota,
                             automation::InOut<double> valMin = {}, automation::InOut<double> valMax = {}) const;
  double GetDistanzeAVG2AmbiTutte(int32_t num1, int32_t num2, automation::InOut<double> valMin = {},
                                  automation::InOut<double> valMax = {}) const;
  double GetDistanzeAVG1Tutte(int32_t num, automation::InOut<double> valMin = {},
                              automation::InOut<double> valMax = {}) const;

  /// The standard deviation of an array of numbers, of a sample or of a population; 0.1 where it would be 0. Empty
  /// elements are skipped or count as 0. 0 after an error.
  double StandardDeviation(const automation::Variant& Arr, bool SampleStdDev = true, bool IgnoreEmpty = true) const;

 private:
  bool load_wheels(std::string_view label, Recorded recorded, DistanceLists& lists, const std::string& wheels,
                   const DistancePeriod& period);
  bool load_all(std::string_view label, Recorded recorded, DistanceLists& lists, bool without_national,
                const DistancePeriod& period);

  automation::Ref<DbConnector> connector_;
  DistanceLists numbers_{wheel_count, number_places};
  DistanceLists numbers_of_all_{1, number_places};
  DistanceLists pairs_{wheel_count, pair_places};
  DistanceLists pairs_of_all_{1, pair_places};
};

}  // namespace vestara
