#pragma once  // installed

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/in_out.h"
#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// Betting systems: the number sets that players start from, random numbers, all combinations of a set, and the
/// catalogue of saved systems. A list of numbers is "1,11,21"; a system's combinations are one text, a combination a
/// line, lines separated by CR LF.
///
/// Unless it says otherwise a member traps its errors: it then gives "", 0, False or nothing, with an entry in the
/// error log.
///
/// An object belongs to one thread at a time, together with its connector and their record sets. Between two calls they
/// may go to another thread. Objects with different connectors are independent of each other.
class VESTARA_API cSistemi final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "cSistemi";

  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  automation::Ref<DbConnector> ActiveConnection() const { return connector_; }
  void ActiveConnection(automation::Ref<DbConnector> connector);

  std::string SysGemelli2Str() const;
  std::string SysVertibili2Str() const;
  /// Numbers ten apart, from `num` up to 90.
  std::string SysCadenze2Str(int16_t num) const;
  /// Ten numbers, each the sum of the two before.
  std::string SysFibonacci2Str(int16_t num) const;
  /// The ten of 90, or eleven numbers from `num` on: eleven is the contract's.
  std::string SysDecine2Str(int16_t num) const;
  /// Numbers nine apart, from `num` up to 80.
  std::string SysFigure2Str(int16_t num) const;

  /// Fills `serieOUT`, from 0, with `kNum` random numbers from `minNum` to `maxNum`. Without repetition a `kNum` larger
  /// than the range never ends, which is the contract's: the host is yielded to after each try and may end it. Traps
  /// nothing: error 9 for no numbers and for an empty range, 7 for more than 16,777,216 numbers or a range of more than
  /// 2^30.
  void GetRndNumber(automation::InOut<automation::Array> serieOUT, int32_t kNum, int32_t minNum, int32_t maxNum,
                    bool bRepeat) const;
  /// Sorts an array by the numbers that its elements convert to. Traps nothing: error 13 for an element that is no
  /// number and for what is no array, 9 for an array that has not one dimension.
  void ArrNumbersSort(automation::InOut<automation::Variant> pvarArray) const;

  /// All combinations of `iNumeroElementi` of the numbers, which are used as they stand; `nCombi` becomes their count,
  /// 0 when there are none; that is an error too.
  std::string CombinazioniIntegraliString(const std::string& sNumeri, int16_t iNumeroElementi,
                                          automation::InOut<int32_t> nCombi = {}) const;
  /// How many combinations of `nComb` of `nCifre` there are; 0 for none to choose and, an error, for 13 or more.
  double ContaCombinazioniIntegrali(int16_t nCifre, int16_t nComb) const;

  /// The header rows of the saved systems that meet every filter given; nothing when they cannot be read.
  automation::Ref<RecordSet> GetSistemiLista(int32_t idSis = 0, const std::string& sisTipo = {},
                                             const std::string& titolo = {}, const std::string& descrizione = {},
                                             int16_t QtaNumeri = 0, int16_t nGiocate = 0, int16_t kColonne = 0,
                                             int16_t garanzia = 0) const;
  /// The distinct numbers of a system, ascending.
  std::string GetCombiNumbers(const std::string& sCombi) const;
  /// The text from its first digit to its last. Traps nothing: error 6 for a text that is not blank and holds none.
  std::string CombiTextFilter(const std::string& sCombi) const;
  /// The system played with other numbers: the first of `sNumsNew` in place of its smallest number, and so on. The
  /// lines come back as an array from 0 and, joined, in `sCombiRes`; none when the counts of numbers differ.
  automation::Array GetSisNumsConvert(const std::string& sCombi, const std::string& sNumsNew,
                                      automation::InOut<std::string> sCombiRes) const;
  /// The combinations of a saved system, a row each, standing at the first; joined in `sResCombi`. With `sNumeri` what
  /// is stored are positions, from 1, in that list, unless the system is of kind "S".
  automation::Ref<RecordSet> GetSistemaCombi(int32_t lIdSis, const std::string& sNumeri = {},
                                             automation::InOut<std::string> sResCombi = {}) const;
  /// Stores a system of kind "U" under the next key, which `idSis` becomes: an edited system (`idSis` not 0) is removed
  /// first and gets a new key too. `sistemaCombi` comes back from its first digit to its last. There is no transaction:
  /// after False the old system may be gone. Hosts put one around the call.
  bool SalvaSistema(automation::InOut<int32_t> idSis, automation::InOut<std::string> sistemaCombi,
                    const std::string& titolo, const std::string& descrizione, const std::string& numeri,
                    int16_t QtaNumeri, int16_t kColonne, int16_t nGiocate, int16_t iGaranzia) const;
  bool DelSistema(int32_t lIdSis) const;
  /// Removes all combinations of the system with this key, not the one row, which is the contract's.
  bool DelSistemaDetail(int32_t lID) const;

 private:
  automation::Ref<DbConnector> connector_;
};

}  // namespace vestara
