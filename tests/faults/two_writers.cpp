// One of two hosts that write to one archive: two_writers URL WORKER SECONDS
// Creates what is missing of the archive, then saves draws, on dates of its own, and searches. Prints a line per call:
// "draw 2001-05-07 CONTEST True" or "search DESCRIPTION False".

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "dorvane/connector.h"
#include "tests/faults/numbered_draw.h"
#include "vestara/archive/lotto.h"

namespace {

using automation::Date;
using automation::make;
using automation::Ref;

constexpr int dates_per_worker = 40;
constexpr int least_rounds = 20;  // also of a host that the other one kept waiting all the time
constexpr int contests = 32400;   // a whole number of times 90, so that a contest tells its numbers

class Worker {
 public:
  Worker(const Ref<dorvane::DbConnector>& connector, int number) : number_(number) {
    lotto_.ActiveConnection(connector);
  }

  void save_draw(int round) {
    const int32_t month = round % dates_per_worker / 20 + 1;
    const int32_t day = round % 20 + 1;
    const auto draw = faults::numbered_draw(Date::from_civil(2000 + number_, month, day).value(), round % contests + 1,
                                            [round](int32_t i) { return (i + round) % 90 + 1; });
    const bool saved = lotto_.SalvaEstrazione(draw);
    std::printf("draw %04d-%02d-%02d %d %s\n", 2000 + number_, month, day, draw->NumeroConcorso(), word(saved));
  }

  void save_search(int round) {
    std::string description = std::to_string(number_) + "/" + std::to_string(round);
    const bool saved = lotto_.SaveRicerchePersonalizzate(0, description, "5,12", 2, "BA");
    std::printf("search %d/%d %s\n", number_, round, word(saved));
  }

 private:
  static const char* word(bool saved) { return saved ? "True" : "False"; }

  int number_;
  vestara::cLotto lotto_;
};

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) return 2;
  const auto connector = make<dorvane::DbConnector>();
  if (!connector->Open(arguments[1]) || !connector->CreateSchema()) {
    std::fprintf(stderr, "%s\n", connector->LastError().c_str());
    return 1;
  }
  Worker worker(connector, std::atoi(arguments[2]));
  const int seconds = std::atoi(arguments[3]);
  const int least = seconds == 0 ? 0 : least_rounds;
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
  for (int round = 0; round < least || std::chrono::steady_clock::now() < end; ++round) {
    worker.save_draw(round);
    worker.save_search(round);
  }
  return 0;
}
