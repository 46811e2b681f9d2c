#pragma once  // installed

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/in_out.h"
#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"
#include "vestara/distances/gap_list.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// The gaps between successive hits of one set of numbers. A hit is a row, on one of the wheels asked for, that
/// holds at least so many of the numbers; a gap counts the draws without a hit between two of them. Every draw of
/// the archive counts, also one in which the wheel was not drawn, and a date with two contests counts twice.
///
/// Give it a connector, load, then read the items, 1 to ItemCount, in the order of the walk. Only the load traps
/// its errors; an index outside is error 9.
///
/// An object belongs to one thread at a time, together with its connector and their record sets. Between two calls they
/// may go to another thread. Objects with different connectors are independent of each other.
class VESTARA_API cDistanze final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "cDistanze";

  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  /// Whether the last load walked from the oldest draw forward.
  bool ISSortASC() const { return gaps_.order() == DateOrder::oldest_first; }
  int32_t ItemCount() const { return gaps_.size(); }

  /// Draws without a hit between the two hits. From the newest draw back, item 1 is the current delay.
  int32_t Distance(int32_t Index) const { return gaps_.draws(Index); }
  /// The earlier and the later hit: the one that ends the gap in the walk as a Date, the other as the text of a
  /// date; "########" where no hit bounds the gap.
  automation::Variant DatePrec(int32_t Index) const;
  automation::Variant DateLast(int32_t Index) const;
  /// Days between the two, "##" when a side is open.
  automation::Variant DateDiff(int32_t Index) const;
  // Of the hit that ends the gap in the walk; "##" for the trailing gap.
  std::string Ruota(int32_t Index) const;
  /// How many of the numbers it holds.
  automation::Variant combinazione(int32_t Index) const;
  automation::Variant ConcorsoNumero(int32_t Index) const;

  // Aggregates of the last load that gave an item. A load that gave none leaves them, which is the contract's. Draws
  // are those of every item, the open ones included; days are those of the gaps with two hits.
  float GetAVGDistance() const { return aggregates_.mean_draws; }
  float GetAVGDistanceDays() const { return aggregates_.mean_days; }
  int32_t GetMinDistance() const { return aggregates_.least_draws; }
  int32_t GetMaxDistance() const { return aggregates_.most_draws; }
  int32_t GetMinDistanceDays() const { return aggregates_.least_days; }
  int32_t GetMaxDistanceDays() const { return aggregates_.most_days; }

  automation::Ref<DbConnector> ActiveConnection() const { return connector_; }
  void ActiveConnection(automation::Ref<DbConnector> connector);

  /// Finds the gaps of the numbers `sNum` ("5,12,33"), `combinazioneTipo` of which make a hit, on the wheels `sRuote`
  /// ("BA,NA", "" for all). `bTutteLeEstrazioni` comes back True when there are no numbers. `bTutteLeRuote` leaves the
  /// wheels aside only together with it. `bSortASC` walks from the oldest draw forward, and comes back as the direction
  /// that ran.
  void LoadDistanze(const std::string& sNum = {}, int16_t combinazioneTipo = 0, const std::string& sRuote = {},
                    const automation::Variant& dtDa = automation::Missing{},
                    const automation::Variant& dtA = automation::Missing{},
                    automation::InOut<bool> bTutteLeEstrazioni = false, bool bTutteLeRuote = false,
                    automation::InOut<bool> bSortASC = false);

 private:
  automation::Ref<DbConnector> connector_;
  GapList gaps_;
  GapAggregates aggregates_;
};

}  // namespace vestara
