#pragma once  // installed

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/event_source.h"
#include "automation/in_out.h"
#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"
#include "vestara/archive/draw_record.h"
#include "vestara/archive/hit_search.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/wheel_grid.h"
#include "vestara/statistics/statistics.h"

namespace vestara {

/// The object that hosts talk to first: counts and bounds of the archive, the hit search with its counters, the
/// import of the whole history. Its methods trap their errors: a failure is the value that the method names, and an
/// entry in the error log. Properties trap nothing.
///
/// Dates are given as a Date or as a text that reads as one; a bound that is missing or Null is no bound.
///
/// An object belongs to one thread at a time, together with its connector and their record sets. Between two calls they
/// may go to another thread. Objects with different connectors are independent of each other.
class VESTARA_API cLotto final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "cLotto";

  cLotto();
  ~cLotto() override;

  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  /// How the database takes rows: 1 one row per INSERT, 2 many. Not checked; only the import looks at it.
  void DbType(int16_t type) { database_type_ = type; }
  int16_t DbType() const { return database_type_; }

  /// Always error 91: the connector is not handed out again. Hosts keep their own reference.
  [[noreturn]] automation::Ref<DbConnector> ActiveConnection() const;
  /// Stores the connector; an open one fills the wheel tables at once. Nothing clears it.
  void ActiveConnection(automation::Ref<DbConnector> connector);

  /// Path of the update file that the import reads.
  void FileUpdate(const std::string& path) { update_file_ = path; }
  std::string FileUpdate() const { return update_file_; }

  /// The statistics of the last search that had them switched on; nothing before. Error 13 for a value that is
  /// not a cStatistiche.
  automation::Ref<cStatistiche> Statistiche() const { return statistics_; }
  void Statistiche(automation::Ref<cStatistiche> statistics);

  /// Whether a search of hits fills Statistiche. That is not trapped: a failure of it ends the search.
  bool StatisticsIsActive() const { return statistics_active_; }
  void StatisticsIsActive(bool active) { statistics_active_ = active; }

  // The last search. Combinations are counted inside every row: a row with three hits holds three ambi.
  int32_t Ambate() const { return last_.found.combinations.ambate; }
  int32_t Ambi() const { return last_.found.combinations.ambi; }
  int32_t Terni() const { return last_.found.combinations.terni; }
  int32_t Quaterne() const { return last_.found.combinations.quaterne; }
  int32_t Cinquine() const { return last_.found.combinations.cinquine; }
  /// Archive rows that matched; draws, after a listing of all draws.
  int32_t ContaSortiteTrovate() const { return last_.found.rows; }

  /// Draw dates from `dtDa` to `dtA` that hold a number, on one wheel (1 to 11) or on any (12). Here "" and Empty
  /// are no bound either. 0 when the statement was refused, -1 after an error.
  int32_t ContaEstrazioniStorico(const automation::Variant& dtDa = automation::Missing{},
                                 const automation::Variant& dtA = automation::Missing{}, int16_t Ruota = all_wheels);

  /// Finds the draws in which at least `combinazioneTipo` of the numbers `sNum` ("5,12,33") came out on one wheel. One
  /// statement fills the counters. A second one returns one row per draw (dtEstr, concorsoNumero); nothing when it was
  /// refused. Each has a trap of its own: when the first fails, the counters stay at 0. Without numbers, or with
  /// `bTutteLeEstrazioni`, it lists all draws (concorsoNumero, dtEstr) and the flag comes back True. `sRuote` are
  /// aliases ("BA,NA"), "" is every wheel, and so is `bTutteLeRuote`.
  automation::Ref<RecordSet> LoadLottoEstr(const std::string& sNum = {}, int16_t combinazioneTipo = 0,
                                           const std::string& sRuote = {},
                                           const automation::Variant& dtDa = automation::Missing{},
                                           const automation::Variant& dtA = automation::Missing{},
                                           automation::InOut<bool> bTutteLeEstrazioni = false,
                                           bool bTutteLeRuote = false, bool bSortASC = false);

  /// The date of the draw that lies `nEstrazioniPrec` draws back, 1 being the newest up to `daDataNow`. Empty when
  /// there is none. Runs a listing of all draws, which replaces the last search.
  automation::Variant GetDataEstrazioneDaConta(int32_t nEstrazioniPrec,
                                               const automation::Variant& daDataNow = automation::Missing{});
  /// Stores a draw in place of all rows of its date, in one transaction. False when a row was refused, one of a wheel
  /// without five numbers too: the archive is then as it was. False also when the removal of the old rows was refused:
  /// the transaction then stays open, with nothing changed in it, which is the contract's. An error that a host's own
  /// connector raises in the middle leaves the transaction open too: the host takes it back.
  bool SalvaEstrazione(const automation::Ref<cEstrazione>& c_estr);
  /// Removes the rows of a date; True also when there were none.
  bool DelEstrazione(const automation::Variant& dt);
  /// The draw of a date, its DataEstrazione being the argument itself; nothing when there is none.
  automation::Ref<cEstrazione> GetEstrazioneDaData(const automation::Variant& dtEstr);

  /// The saved search with this key, or every one for -1, newest first; nothing when it could not be read. The two
  /// dates are accepted and not looked at, which is the contract's.
  automation::Ref<RecordSet> GetRicerchePersonalizzate(int32_t idRicerca = 0,
                                                       const automation::Variant& dtSaveDa = automation::Missing{},
                                                       const automation::Variant& dtSaveA = automation::Missing{});
  /// False when the statement failed. Writes no log entry.
  bool DeleteRicerchePersonalizzate(int32_t lIdRicerca);
  /// Stores a search: a new one under the next key when `lIdRicerca` is 0, otherwise in place of that one (True also
  /// when there is none). The three texts come back escaped. A date that is missing or none is stored as Null.
  bool SaveRicerchePersonalizzate(int32_t lIdRicerca, automation::InOut<std::string> sDescRicerca,
                                  automation::InOut<std::string> sNumeri, int16_t iCombinazione,
                                  automation::InOut<std::string> sRuote,
                                  const automation::Variant& dtSave = automation::Missing{},
                                  const automation::Variant& dtDa = automation::Missing{},
                                  const automation::Variant& dtA = automation::Missing{});

  /// "DD/MM/YYYY" of the newest and the oldest draw; "" for an empty archive, Empty when it could not be read.
  automation::Variant GetMaxDateStorico();
  automation::Variant GetMinDateStorico();

  /// Replaces the archive by the records of `FileUpdate`, raising LoadingStart, LoadingProgress after each statement,
  /// LoadingEnd. False for an empty file (nothing is touched, no LoadingEnd) and after any failure. There is no
  /// transaction, which is the contract's: what was removed and written before a failure stays so. A host begins its
  /// own and takes it back. With DbType 2 only whole thousands are written, which is the contract's too.
  bool UpdateTblStorico();

  /// LoadingStart(), LoadingProgress(recPos, recCount), LoadingEnd().
  automation::EventSource& events() { return events_; }
  automation::EventSource* event_source() override { return &events_; }

 private:
  /// What a search leaves behind for the properties and the statistics.
  struct LastSearch {
    std::string numbers;
    std::string wheels;
    int16_t combination = 0;
    int16_t numbers_played = 0;
    automation::Variant from = automation::Null{};
    automation::Variant to = automation::Null{};
    HitCount found;
    int32_t hit_dates = 0;
    bool all_wheels = false;
    bool all_draws = false;
  };

  /// A search as the host gave it. It refers to the texts and bounds of the call.
  struct Asked {
    const std::string& numbers;
    int16_t combination;
    const std::string& wheels;
    const automation::Variant& from;
    const automation::Variant& to;
    bool all_draws;  ///< before a search without numbers sets the flag
    bool all_wheels;
    DateOrder order;

    DrawChoice draws() const { return all_draws || numbers.empty() ? DrawChoice::all_draws : DrawChoice::hits; }
    /// Reads the bounds, which may be objects of the host's: the trap of the statement that needs them gets their
    /// errors.
    SearchQuestion question(const WheelFilter& filter) const;
  };

  DbConnector& connector() const;
  /// Runs the first statement of a search and fills what `last_` has of it.
  void count_rows(const Asked& asked, const WheelFilter& wheels);
  /// Runs the second: its rows are the result of the search.
  automation::Ref<RecordSet> hit_dates(const Asked& asked, const WheelFilter& wheels);
  void fill_statistics();
  automation::Variant bound_of_archive(const std::string& statement, std::string_view field);

  int16_t database_type_ = 2;
  automation::Ref<DbConnector> connector_;
  automation::Ref<cStatistiche> statistics_;
  std::string update_file_;
  bool statistics_active_ = false;
  LastSearch last_;
  automation::EventSource events_;
};

}  // namespace vestara
