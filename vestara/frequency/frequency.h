#pragma once  // installed

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/frequency/loads.h"
#include "vestara/frequency/ranking.h"

namespace vestara {

/// Delays, frequencies and average frequencies of every number on every wheel. Give it a connector, load, then read.
/// Members trap their errors: a getter then gives 0, a load ends, with an entry in the error log.
///
/// Wheels are given as `sRuote` ("BA,NA", "" for all) and, one at a time, as `Ruota`: an enumerator 1 to 11 or an
/// alias. With several wheels the period holds for the first one only, which is the contract's. Rankings are indexed
/// from 0 to 89; outside they give 0 without an entry.
///
/// An object belongs to one thread at a time, together with its connector and their record sets. Between two calls they
/// may go to another thread. Objects with different connectors are independent of each other.
class VESTARA_API cFrequenza final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "cFrequenza";

  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  automation::Ref<DbConnector> ActiveConnection() const { return connector_; }
  /// Stores the connector; an open one fills the wheel tables at once.
  void ActiveConnection(automation::Ref<DbConnector> connector);

  /// Draws of the wheel since the newest one that holds the number: 0 when that is the newest draw, -1 when it did
  /// not come out. 0 before a load.
  int32_t GetRitNum(int16_t Numero, const automation::Variant& Ruota) const;
  // The successive maxima that the scan met, the largest first.
  int16_t GetRitTopTenERuota(int16_t Index) const;
  int16_t GetRitTopTenNumero(int16_t Index) const;
  int16_t GetRitTopTen(int16_t Index) const;
  void LoadRitardi(const automation::Variant& dtDa = automation::Missing{},
                   const automation::Variant& dtA = automation::Missing{}, const std::string& sRuote = {});

  /// How often the number came out.
  int32_t GetFrqNum(int16_t Numero, const automation::Variant& Ruota) const;
  /// How often in a hundred draws, those of all wheels asked for together.
  float GetFrqNumAVG(int16_t Numero, const automation::Variant& Ruota) const;
  // The first ninety rows of the averages. Number and wheel can only be read once LoadFrequenti ran as well, which is
  // the contract's.
  int16_t GetFrqTopTenERuotaAVG(int16_t Index) const;
  int16_t GetFrqTopTenNumeroAVG(int16_t Index) const;
  float GetFrqTopTenAVG(int16_t Index) const;
  // One entry for each different count, the largest first.
  int16_t GetFrqTopTenERuota(int16_t Index) const;
  int16_t GetFrqTopTenNumero(int16_t Index) const;
  int16_t GetFrqTopTen(int16_t Index) const;
  void LoadFrequenzaMedia(const automation::Variant& dtDa = automation::Missing{},
                          const automation::Variant& dtA = automation::Missing{}, const std::string& sRuote = {});
  void LoadFrequenti(const automation::Variant& dtDa = automation::Missing{},
                     const automation::Variant& dtA = automation::Missing{}, const std::string& sRuote = {});

 private:
  automation::Ref<DbConnector> connector_;
  Delays delays_;
  Counts counts_;
  Averages averages_;
};

}  // namespace vestara
