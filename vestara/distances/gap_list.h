#pragma once  // installed

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "automation/date.h"
#include "automation/variant.h"
#include "vestara/foundation/date_order.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/recordset.h"

namespace vestara {

inline constexpr std::string_view open_side = "########";  ///< in place of a date: no hit bounds the gap there
inline constexpr std::string_view no_value = "##";         ///< in place of a value that does not exist

/// A row that holds enough of the numbers played.
struct Hit {
  automation::Date date;
  std::string_view wheel;  ///< alias as the archive has it
  int32_t numbers_hit = 0;
  std::optional<int32_t> contest;
};

/// The gaps between successive hits, in the order of the walk that met them. Each ends at a hit, but for the last
/// one when the walk went on behind the last hit. Items count from 1; error 9 outside. 24 bytes an item.
class VESTARA_API GapList {
 public:
  /// Forgets the items; the next ones are met in this order.
  void restart(DateOrder order);
  /// The gap that ends at `hit`, `draws` draws without a hit after the one before.
  void add(const Hit& hit, int32_t draws);
  /// The gap from the last hit to the end of the walk. Nothing may follow.
  void add_trailing(int32_t draws);

  DateOrder order() const { return order_; }
  int32_t size() const { return static_cast<int32_t>(items_.size()); }
  /// Draws without a hit.
  int32_t draws(int32_t index) const { return item(index).draws; }
  /// Days between the two hits; nothing when a side is open.
  std::optional<int32_t> days(int32_t index) const;

  // As the contract hands them out. Of the two dates one is a Date (the hit that ends the gap in the walk), the
  // other the text of a date (the hit before it); an open side is "########", a value that is not there "##".
  automation::Variant earlier_date(int32_t index) const;
  automation::Variant later_date(int32_t index) const;
  automation::Variant day_difference(int32_t index) const;
  std::string wheel(int32_t index) const;
  automation::Variant numbers_hit(int32_t index) const;
  automation::Variant contest(int32_t index) const;

 private:
  struct Item {
    automation::Date date;
    int32_t draws = 0;
    int32_t contest = 0;
    int32_t numbers_hit = 0;
    uint16_t wheel = 0;  ///< place in wheels_
    bool has_contest = false;
    bool is_trailing = false;
  };

  const Item& item(int32_t index) const;
  automation::Variant reached_date(int32_t index) const;
  automation::Variant previous_date(int32_t index) const;
  /// Error 6 for more aliases than places.
  uint16_t wheel_place(std::string_view alias);

  DateOrder order_ = DateOrder::newest_first;
  std::vector<Item> items_;
  std::vector<std::string> wheels_;
  std::map<std::string, uint16_t, std::less<>> places_;  ///< of the aliases in wheels_
};

/// Means and extremes of a list.
struct GapAggregates {
  float mean_draws = 0;
  float mean_days = 0;  ///< over the gaps with both sides closed; 0 when there is none
  int32_t least_draws = 0;
  int32_t most_draws = 0;
  int32_t least_days = 0;
  int32_t most_days = 0;
};
/// Open gaps count with their draws, the trailing one included: on purpose. The list has items.
VESTARA_API GapAggregates aggregates_of(const GapList& gaps);

/// Adds the gaps that the rows of a gap statement tell. What was added before an error stays.
void walk_gaps(RecordSet& rows, GapList& gaps);

}  // namespace vestara
