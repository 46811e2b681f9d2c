#pragma once  // installed

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/date.h"
#include "automation/variant.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/selection.h"

namespace vestara {

/// Which hits the gaps lie between.
struct GapQuestion {
  std::string numbers;     ///< "5,12", as the statement's IN lists take them
  int16_t least_hits = 1;  ///< numbers that a row must hold
  DrawSelection draws;     ///< the period of the gaps, and the wheels that hits count on
  DateOrder order = DateOrder::newest_first;
};

/// A row that holds enough of the numbers played.
struct Hit {
  automation::Date date;
  std::string_view wheel;  ///< alias as the archive has it
  int32_t numbers_hit = 0;
  std::optional<int32_t> contest;
};

/// What lies between two hits. A side that no hit bounds has no date. Wheel, numbers and contest are those of the hit
/// that ends the gap in the walk; the trailing gap has none.
struct Gap {
  std::optional<automation::Date> earlier;
  std::optional<automation::Date> later;
  int32_t draws = 0;       ///< without a hit
  std::string_view wheel;  ///< valid as long as the list does not change
  std::optional<int32_t> numbers_hit;
  std::optional<int32_t> contest;  ///< nothing also where the archive has none

  /// Of the two hits; nothing when a side is open.
  std::optional<int32_t> days() const {
    return earlier && later ? std::optional(later->day() - earlier->day()) : std::nullopt;
  }
};

/// The gaps between successive hits, in the order of the walk that met them. Each ends at a hit, but for the last one
/// when the walk went on after the last hit. Items count from 1; error 9 outside. 24 bytes an item.
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
  std::optional<int32_t> days(int32_t index) const { return gap(index).days(); }
  Gap gap(int32_t index) const;
  /// True for the gap after the last hit, which no hit ends.
  bool is_trailing(int32_t index) const { return item(index).is_trailing; }

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
  static_assert(sizeof(Item) == 24, "as promised above");

  const Item& item(int32_t index) const;
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
/// Open gaps count with their draws, the trailing one included, which is the contract's. The list has items.
VESTARA_API GapAggregates aggregates_of(const GapList& gaps);

/// Adds the gaps that the rows of a gap statement (gap_text.h) hold. What was added before an error stays.
void walk_gaps(RecordSet& rows, GapList& gaps);

/// The gaps between the hits of a question, in the order of its walk. Raises a failure of kind database when the
/// connector refused the statement, error 13 for a hit whose date is none, 94 for one without a count, what the
/// connector raises.
VESTARA_API GapList load_gaps(DbConnector& connector, const GapQuestion& question);
/// For a class that shows what a load that failed wrote: fills a list that was restarted; False when the statement was
/// refused.
bool load_gaps(DbConnector& connector, const GapQuestion& question, GapList& into);

}  // namespace vestara
