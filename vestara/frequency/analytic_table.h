#pragma once  // installed

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/date.h"
#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/frequency/loads.h"

namespace vestara {

/// The analytic table: the draws of the last 730 days in which numbers came out for the last time, newest first.
/// Lines count from 0; outside, the getters give "" or 0. Only the load traps its errors.
///
/// An object belongs to one thread at a time, together with its connector and their record sets. Between two calls they
/// may go to another thread. Objects with different connectors are independent of each other.
class VESTARA_API cTabAnalytics final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "cTabAnalytics";
  using Clock = std::function<automation::Date()>;

  /// The clock says what today is.
  explicit cTabAnalytics(Clock clock = automation::now);

  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  int16_t GetItemCount() const;
  /// The numbers that came out for the last time, joined by ".".
  std::string GetNumeriByIndex(int16_t Index) const;
  std::string GetRuotaByIndex(int16_t Index) const;
  int16_t GetERuotaByIndex(int16_t Index) const;
  /// Draw dates of any wheel since: 0 is the newest.
  int16_t GetRitardoByIndex(int16_t Index) const;

  automation::Ref<DbConnector> ActiveConnection() const { return connector_; }
  /// Stores the connector; an open one fills the wheel tables at once.
  void ActiveConnection(automation::Ref<DbConnector> connector);

  /// Builds the table. The two dates are accepted and not looked at, which is the contract's. After an error the table
  /// has no lines.
  void LoadTabelloneAnalitico(const automation::Variant& dtDa = automation::Missing{},
                              const automation::Variant& dtA = automation::Missing{});

  /// What the getters read from, with the date of each draw.
  const std::vector<AnalyticLine>& lines() const { return lines_; }

 private:
  AnalyticLine line(int16_t index) const;

  Clock clock_;
  automation::Ref<DbConnector> connector_;
  std::vector<AnalyticLine> lines_;
};

}  // namespace vestara
