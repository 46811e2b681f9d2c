// One of many hosts on one archive: many_clients save|search URL SECONDS
// The saver's k-th change (counted from 1, which is its contest number) stores a whole draw: every twentieth a new one,
// the others in place of the newest. So the newest contest number tells the whole archive, and a searcher compares
// every answer with the archive that it tells. Prints "saves N" or "searches N", or why an answer is wrong and exits
// with 1.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>

#include "automation/coercion.h"
#include "dorvane/connector.h"
#include "tests/faults/numbered_draw.h"
#include "vestara/archive/lotto.h"

namespace {

using automation::Date;
using automation::make;
using automation::Missing;

constexpr int32_t changes_per_draw = 20;
constexpr int32_t last_contest = 32000;  // a contest number has 16 bits

/// The draws after the k-th change: how many there are, the last contest that each of them got.
int32_t draws_after(int32_t change) { return (change + changes_per_draw - 1) / changes_per_draw; }
int32_t contest_of_draw(int32_t draw, int32_t change) { return std::min((draw + 1) * changes_per_draw, change); }

Date date_of_draw(int32_t draw) {
  return Date::from_civil(2030 + draw / 336, draw % 336 / 28 + 1, draw % 28 + 1).value();
}

/// Of the numbers 1, 2 and 3, wheels 1 to 1 + contest % 11 hold two (odd contests) or three, the others none.
int32_t wheels_hit(int32_t contest) { return 1 + contest % 11; }
int32_t hits_per_wheel(int32_t contest) { return contest % 2 == 0 ? 3 : 2; }

int32_t number_of(int32_t contest, int32_t i) {
  const int32_t wheel = i / 5 + 1;
  const int32_t position = i % 5;
  if (wheel <= wheels_hit(contest) && position < hits_per_wheel(contest)) return position + 1;
  return 4 + (contest * 13 + wheel * 7) % 83 + position;
}

/// A row with three of the numbers holds three pairs of them.
struct Counters {
  int32_t rows = 0;
  int32_t pairs = 0;
  int32_t triples = 0;
  bool operator==(const Counters&) const = default;
};

Counters counters_after(int32_t change) {
  Counters sum;
  for (int32_t draw = 0; draw < draws_after(change); ++draw) {
    const int32_t contest = contest_of_draw(draw, change);
    sum.rows += wheels_hit(contest);
    sum.pairs += wheels_hit(contest) * (contest % 2 == 0 ? 3 : 1);
    sum.triples += wheels_hit(contest) * (contest % 2 == 0 ? 1 : 0);
  }
  return sum;
}

void require(bool truth, const std::string& what) {
  if (!truth) throw std::runtime_error(what);
}

class Saver {
 public:
  static constexpr const char* work = "saves";
  explicit Saver(vestara::cLotto& lotto) : lotto_(lotto) {}

  void once() {
    const int32_t contest = ++change_;
    require(contest < last_contest, "too many changes for a contest number");
    const auto draw = faults::numbered_draw(date_of_draw(draws_after(contest) - 1), contest,
                                            [contest](int32_t i) { return number_of(contest, i); });
    require(lotto_.SalvaEstrazione(draw), "change " + std::to_string(contest) + " was refused");
  }

 private:
  vestara::cLotto& lotto_;
  int32_t change_ = 0;
};

class Searcher {
 public:
  static constexpr const char* work = "searches";
  explicit Searcher(vestara::cLotto& lotto) : lotto_(lotto) {}

  void once() {
    search();
    if (++rounds_ % 4 == 0 && change_ > 0) look_at_newest();
  }

 private:
  /// Two statements, the counters' first: each has an archive of its own, the second never an older one.
  void search() {
    const auto dates = lotto_.LoadLottoEstr("1,2,3", 2, "", Missing{}, Missing{}, false, true);
    require(static_cast<bool>(dates), "a search was refused");
    const int32_t before = change_;
    change_ = dates->at_end() ? 0 : dates->whole_number(dates->column("concorsoNumero"));
    require(change_ >= before, told(before) + " became " + told(change_));
    check_dates(*dates);
    check_counters(before);
  }

  void check_dates(vestara::RecordSet& dates) const {
    require(dates.record_count() == draws_after(change_), std::to_string(dates.record_count()) + " " + told(change_));
    const auto date = dates.column("dtEstr");
    const auto contest = dates.column("concorsoNumero");
    for (int32_t draw = draws_after(change_) - 1; draw >= 0; --draw, dates.move_next()) {
      require(dates.whole_number(contest) == contest_of_draw(draw, change_), "a contest number " + told(change_));
      require(automation::to_text(dates.value(date)) == automation::date_to_text(date_of_draw(draw)),
              "a date " + told(change_));
    }
  }

  void check_counters(int32_t before) const {
    const Counters found{lotto_.ContaSortiteTrovate(), lotto_.Ambi(), lotto_.Terni()};
    for (int32_t change = before; change <= change_; ++change)
      if (counters_after(change) == found) return;
    require(false, "counters " + std::to_string(found.rows) + " " + std::to_string(found.pairs) + " " +
                       std::to_string(found.triples) + " from " + told(before) + " to " + told(change_));
  }

  void look_at_newest() const {
    const auto draw = lotto_.GetEstrazioneDaData(date_of_draw(draws_after(change_) - 1));
    require(static_cast<bool>(draw), "the newest draw was refused");
    const int32_t contest = draw->NumeroConcorso();
    require(contest >= change_, "a draw " + told(contest) + " behind " + told(change_));
    for (int32_t i = 0; i < faults::drawn_numbers; ++i)
      require(draw->GetNumero(i / 5 + 1, i % 5 + 1) == std::to_string(number_of(contest, i)),
              "a mixed " + told(contest));
  }

  static std::string told(int32_t change) { return "at change " + std::to_string(change); }

  vestara::cLotto& lotto_;
  int32_t change_ = 0;
  int32_t rounds_ = 0;
};

template <class Worker>
void work(vestara::cLotto& lotto, int seconds) {
  Worker worker(lotto);
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
  int calls = 0;
  for (; std::chrono::steady_clock::now() < end; ++calls) worker.once();
  std::printf("%s %d\n", Worker::work, calls);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) return 2;
  const auto connector = make<dorvane::DbConnector>();
  if (!connector->Open(arguments[2])) {
    std::printf("%s\n", connector->LastError().c_str());
    return 1;
  }
  vestara::cLotto lotto;
  lotto.ActiveConnection(connector);
  const auto run = std::string_view(arguments[1]) == "save" ? &work<Saver> : &work<Searcher>;
  try {
    run(lotto, std::atoi(arguments[3]));
  } catch (const std::runtime_error& error) {
    std::printf("%s; %s\n", error.what(), connector->LastError().c_str());
    return 1;
  }
  return 0;
}
