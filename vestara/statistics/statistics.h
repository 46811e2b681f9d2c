#pragma once  // installed

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/collection.h"
#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"
#include "vestara/distances/hit_distances.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"

namespace vestara {

/// What one search of past hits amounts to, and the probabilities of its bet. All values are set from outside, by
/// the host or by a search of cLotto; nothing is checked. Properties trap nothing.
///
/// An object belongs to one thread at a time, together with its connector and their record sets. Between two calls they
/// may go to another thread. Objects with different connectors are independent of each other.
class VESTARA_API cStatistiche final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "cStatistiche";

  cStatistiche();

  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  /// The gaps between the hits of the same search; made with this object.
  automation::Ref<cDistanze> Distanze() const { return distances_; }

  automation::Ref<DbConnector> ActiveConnection() const { return connector_; }
  /// Hands the connector on to Distanze.
  void ActiveConnection(automation::Ref<DbConnector> connector);

  // Single numbers, pairs … quintuples of the numbers that the draws held: a draw with three of them has three
  // numbers, three pairs and one triple.
  int32_t EstrAmbate() const { return single_; }
  void EstrAmbate(int32_t count) { single_ = count; }
  int32_t EstrAmbi() const { return pairs_; }
  void EstrAmbi(int32_t count) { pairs_ = count; }
  int32_t EstrTerni() const { return triples_; }
  void EstrTerni(int32_t count) { triples_ = count; }
  int32_t EstrQuaterne() const { return quadruples_; }
  void EstrQuaterne(int32_t count) { quadruples_ = count; }
  int32_t EstrCinquine() const { return quintuples_; }
  void EstrCinquine(int32_t count) { quintuples_ = count; }

  int16_t EstrNumeriGiocatiQta() const { return numbers_played_; }
  void EstrNumeriGiocatiQta(int16_t count) { numbers_played_ = count; }
  /// The numbers played, "5,12,33". A text that is not blank also sets their count. The count includes an empty piece
  /// after a trailing comma, which is the contract's.
  std::string EstrNumeriString() const { return numbers_; }
  void EstrNumeriString(const std::string& numbers);
  /// The wheels played, "BA,CA". Sets their count in the same way.
  std::string EstrRuoteString() const { return wheels_; }
  void EstrRuoteString(const std::string& wheels);
  int16_t EstrRuoteGiocateQta() const { return wheels_played_; }
  void EstrRuoteGiocateQta(int16_t count) { wheels_played_ = count; }

  int32_t EstrContaCombinazioniTrovate() const { return combinations_found_; }
  void EstrContaCombinazioniTrovate(int32_t count) { combinations_found_ = count; }
  /// How many numbers make a hit: 1 ambata to 5 cinquina.
  int16_t EstrCombinazione() const { return combination_; }
  void EstrCombinazione(int16_t size) { combination_ = size; }
  /// Bounds of the search; Null for none.
  automation::Variant DataDa() const { return from_; }
  void DataDa(const automation::Variant& date);
  automation::Variant DataA() const { return to_; }
  void DataA(const automation::Variant& date);
  int32_t EstrContaSortiteTrovate() const { return hits_found_; }
  void EstrContaSortiteTrovate(int32_t rows) { hits_found_ = rows; }
  int32_t EstrContaTutteLeEstrazioniNelleDate() const { return draws_in_range_; }
  void EstrContaTutteLeEstrazioniNelleDate(int32_t draws) { draws_in_range_ = draws; }
  int32_t EstrContaTutteLeEstrazioniSortiteNelleDate() const { return draws_with_hit_; }
  void EstrContaTutteLeEstrazioniSortiteNelleDate(int32_t draws) { draws_with_hit_ = draws; }

  /// The probability, in percent, that a draw holds at least `kComb` of `QtaNumeriGiocati` numbers on at least one of
  /// `QtaRuoteGiocate` wheels: 1 - (S / C(90,5))^r, S being the draws that hold fewer. 0 after an error.
  double CalcolaPercTeorica(int16_t QtaNumeriGiocati, int16_t kComb, int16_t QtaRuoteGiocate) const;
  /// Expected draws for one hit, by the theoretical or the effective percentage; -1 when there is never one.
  double CalcolaNumEstrDaPerc(bool bEffettiva = false) const;
  /// Draws with a hit in a hundred of the range; 0 without draws.
  double EstrCalcolaPercEffettiva() const;
  /// All ways to choose EstrCombinazione of the numbers in EstrNumeriString, as texts ("5,12"), in the order of their
  /// places. Nothing after an error; it is an error when there is no way to choose.
  automation::Ref<automation::Collection> CombinazioniSempliciString() const;
  /// How many ways there are to choose `nComb` of `nCifre`: 0, not 1, for none, which is the contract's. 0 after an
  /// error.
  double CalcolaCombSemplici(int16_t nCifre, int16_t nComb) const;

 private:
  automation::Ref<cDistanze> distances_;
  automation::Ref<DbConnector> connector_;
  int32_t single_ = 0;
  int32_t pairs_ = 0;
  int32_t triples_ = 0;
  int32_t quadruples_ = 0;
  int32_t quintuples_ = 0;
  int16_t numbers_played_ = 0;
  int16_t wheels_played_ = 0;
  int16_t combination_ = 0;
  std::string numbers_;
  std::string wheels_;
  automation::Variant from_ = automation::Null{};
  automation::Variant to_ = automation::Null{};
  int32_t combinations_found_ = 0;
  int32_t hits_found_ = 0;
  int32_t draws_in_range_ = 0;
  int32_t draws_with_hit_ = 0;
};

}  // namespace vestara
