#include <array>
#include <cstdlib>
#include <memory>
#include <string>

#include "bench/archive.h"
#include "bench/bare_servers.h"
#include "bench/harness.h"
#include "vestara/archive/hit_search.h"
#include "vestara/archive/lotto.h"
#include "vestara/archive/search_text.h"
#include "vestara/frequency/frequency.h"
#include "vestara/frequency/frequency_text.h"

// hit search, delay load, import on the servers that VESTARA_TEST_POSTGRESQL and VESTARA_TEST_MARIADB name: against the
// servers' own clients asking the same statements, and against their bulk paths. What is in those archives is lost.
// server_bench ROWS: the reading ones on a synthetic archive of so many rows, filled by the bulk path.

namespace {

using automation::Ref;

struct Server {
  const char* name;
  const char* variable;
  const char* drop_index;  ///< behind "DROP INDEX name"
  std::unique_ptr<bench::BareClient> (*bare)(const std::string& url);
};

class Workloads {
 public:
  Workloads(const Server& server, const std::string& url)
      : name_(server.name),
        drop_index_(server.drop_index),
        bare_(server.bare(url)),
        connector_(automation::make<dorvane::DbConnector>()) {
    require(connector_->Open(url));
    require(connector_->CreateSchema());
  }

  void import(const std::vector<std::string>& tuples) {
    const auto texts = bench::insert_texts(tuples);
    const auto ours = [&] {
      connector_->BeginTrans();
      require(connector_->ExecuteSql("DELETE FROM storico"));
      for (const std::string& text : texts) require(connector_->ExecuteSql(text));
      connector_->CommitTrans();
    };
    const auto refill = [&](const std::function<void()>& fill) {
      bare_->run("START TRANSACTION");
      bare_->run("DELETE FROM storico");
      fill();
      bare_->run("COMMIT");
    };
    compare(
        "import, 1000-tuple texts", 1.20,
        [&] {
          refill([&] {
            for (const auto& text : texts) bare_->run(text);
          });
        },
        ours);
    compare(
        "import, the engine's bulk path", 100, [&] { refill([&] { bare_->bulk_load(tuples); }); }, ours);
  }

  /// The archive as one import leaves it.
  void start_anew(const std::vector<std::string>& tuples) {
    require(connector_->ExecuteSql("DROP TABLE storico"));
    require(connector_->CreateSchema());
    connector_->BeginTrans();
    require(connector_->ExecuteSql("DELETE FROM storico"));
    for (const std::string& text : bench::insert_texts(tuples)) require(connector_->ExecuteSql(text));
    connector_->CommitTrans();
  }

  /// Without the indexes first: of a large archive they are made faster at once.
  void start_large(const std::vector<std::string>& tuples) {
    rounds_ = 3;
    require(connector_->ExecuteSql("DROP TABLE storico"));
    require(connector_->CreateSchema());
    for (const char* index : {"estr1", "estr2", "estr3", "estr4", "estr5", "rows", "wheel", "draws"})
      require(connector_->ExecuteSql(std::string("DROP INDEX vestara_storico_") + index + drop_index_));
    report("bulk load", [&] { bare_->bulk_load(tuples); });
    report("indexes", [&] { require(connector_->CreateSchema()); });
    report("statistics", [&] { bare_->analyze(); });
  }

  void hit_search() {
    struct Question {
      const char* what;
      const char* numbers;
      int16_t hits;
      const char* wheel;
    };
    for (const Question& asked : {Question{"1 number, one wheel", "53", 1, "VE"},
                                  {"2 numbers, all wheels", "5,12", 2, ""},
                                  {"5 numbers, all wheels", "5,12,33,47,90", 2, ""},
                                  {"10 numbers, all wheels", "1,2,3,4,5,6,7,8,9,10", 3, ""}}) {
      const vestara::SearchQuestion question{asked.numbers,
                                             asked.hits,
                                             {vestara::WheelFilter::listed(asked.wheel), {}, {}},
                                             vestara::DrawChoice::hits,
                                             vestara::DateOrder::newest_first};
      const std::string counting = vestara::counting_statement(question);
      const std::string dates = vestara::dates_statement(question);
      vestara::cLotto lotto;
      lotto.ActiveConnection(connector_);
      compare(
          std::string("hit search, ") + asked.what, 1.15,
          [&] {
            bare_->read(counting);
            bare_->read(dates);
          },
          [&] { require(static_cast<bool>(lotto.LoadLottoEstr(asked.numbers, asked.hits, asked.wheel))); });
    }
  }

  void delay_load() {
    vestara::cFrequenza frequency;
    frequency.ActiveConnection(connector_);
    const std::string statement = vestara::delay_statement({}, vestara::PeriodBinding::every_wheel);
    compare(
        "delay load", 1.15, [&] { bare_->read(statement); },
        [&] {
          frequency.LoadRitardi();
          require(frequency.GetRitNum(1, automation::Variant(int16_t{1})) >= 0);
        });
  }

 private:
  void report(const char* what, const std::function<void()>& work) const {
    std::printf("%s, %s %.1f s\n", name_.c_str(), what, bench::milliseconds(work) / 1000);
    std::fflush(stdout);
  }
  void require(bool done) const {
    if (!done) bench::stop(connector_->LastError());
  }
  void compare(const std::string& workload, double goal, const std::function<void()>& bare,
               const std::function<void()>& ours) const {
    bench::compare(name_ + ", " + workload, goal, bare, ours, rounds_);
  }

  std::string name_;
  std::string drop_index_;
  int rounds_ = 9;
  std::unique_ptr<bench::BareClient> bare_;
  Ref<dorvane::DbConnector> connector_;
};

}  // namespace

int main(int count, char** arguments) {
  constexpr std::array<Server, 2> servers{{{"postgresql", "VESTARA_TEST_POSTGRESQL", "", bench::bare_postgresql},
                                           {"mariadb", "VESTARA_TEST_MARIADB", " ON storico", bench::bare_mariadb}}};
  for (const Server& server : servers) {
    const char* const url = std::getenv(server.variable);
    if (!url) {
      std::printf("%s: %s is not set\n", server.name, server.variable);
      continue;
    }
    Workloads workloads(server, url);
    if (count > 1) {
      workloads.start_large(bench::synthetic_tuples(std::strtoull(arguments[1], nullptr, 10)));
    } else {
      const auto tuples = bench::archive_tuples();
      workloads.import(tuples);
      workloads.start_anew(tuples);
    }
    workloads.hit_search();
    workloads.delay_load();
  }
}
