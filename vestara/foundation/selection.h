#pragma once  // installed

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/date.h"
#include "automation/variant.h"
#include "vestara/foundation/export.h"

// Which draws a question is about. These structs own what they hold: a question may outlive the texts it was made of.

namespace vestara {

/// The wheels of a question, by alias; without any, every wheel. Nothing is checked against the wheel table.
class VESTARA_API WheelFilter {
 public:
  /// Every wheel.
  WheelFilter() = default;
  /// Aliases between quotes, as a statement takes them: 'BA'. A blank one names no wheel.
  explicit WheelFilter(std::vector<std::string> quoted) : quoted_(std::move(quoted)) {}
  /// The wheels of a list: "BA,NA"; a blank list names none. Pieces are not trimmed and a trailing comma gives an empty
  /// alias: the contract splits like this, and such an alias meets no row.
  static WheelFilter listed(std::string_view wheels);

  size_t count() const { return quoted_.size(); }
  /// The quoted aliases, joined by ",": 'BA','NA'.
  std::string quoted() const;
  /// The aliases joined by ",", without any quote: BA,NA.
  std::string plain() const;
  /// One term for every alias that is not blank, joined by " OR ": `prefix` + quoted alias + `suffix`. No parentheses.
  std::string terms(std::string_view prefix, std::string_view suffix = {}) const;

 private:
  std::vector<std::string> quoted_;
};

/// A bound of a period: no bound, a day, or a value that is no date. The last one is met by no draw: statements compare
/// with NULL. The time of day is not looked at.
class VESTARA_API DateBound {
 public:
  /// No bound.
  DateBound() = default;
  DateBound(automation::Date day) : is_set_(true), day_(day) {}
  /// No bound for no date.
  DateBound(std::optional<automation::Date> day) : is_set_(day.has_value()), day_(day) {}
  /// What a host gives: missing and Null are no bound; a Date is a day, and so is a text that reads as one; everything
  /// else is no date. An object counts as the value that it stands for; it may raise.
  static DateBound given(const automation::Variant& value);

  bool is_set() const { return is_set_; }
  /// Nothing for no bound and for one that is no date.
  std::optional<automation::Date> day() const { return day_; }

 private:
  bool is_set_ = false;
  std::optional<automation::Date> day_;
};

/// The draws of some wheels in a period; both days belong to it.
struct DrawSelection {
  WheelFilter wheels;
  DateBound from;
  DateBound to;
};

/// The way a walk takes through the draws of a period.
enum class DateOrder : bool { newest_first, oldest_first };

constexpr DateOrder date_order(bool ascending) { return ascending ? DateOrder::oldest_first : DateOrder::newest_first; }

/// The word of its ORDER BY.
constexpr std::string_view order_word(DateOrder order) { return order == DateOrder::oldest_first ? "ASC" : "DESC"; }

/// Which rows the period of a selection with several wheels holds for. `first_wheel` is the contract's: its wheel terms
/// stand without parentheses. Period and other conditions then bind to the first wheel only, and all rows of the others
/// come back.
enum class PeriodBinding : bool { every_wheel, first_wheel };

}  // namespace vestara
