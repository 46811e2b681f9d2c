#include <functional>
#include <string>

#include "automation/coercion.h"
#include "bench/archive.h"
#include "bench/harness.h"
#include "vestara/frequency/analytic_table.h"
#include "vestara/frequency/frequency.h"
#include "vestara/frequency/frequency_text.h"

// delay scan: stops after some 1,500 rows, against the same statement stepped to its end. frequency load, analytic
// table: against their own statements stepped through the bare engine into nothing. The table's clock stands at the
// newest draw, so that its two years hold draws.

namespace {

double measure(const std::string& size, const bench::LoadedArchive& archive, automation::Date newest) {
  vestara::cFrequenza frequency;
  frequency.ActiveConnection(archive.connector());
  const std::function<void()> load_delays = [&] {
    frequency.LoadRitardi();
    if (frequency.GetRitNum(1, automation::Variant(int16_t{1})) < 0) bench::stop("no delay");
  };
  const std::string delays = vestara::delay_statement({}, vestara::PeriodBinding::every_wheel);
  bench::compare(
      "delay scan, " + size, 0.05, [&] { bench::step_all(archive.bare(), delays); }, load_delays);
  const std::string counts = vestara::frequency_statement({}, vestara::PeriodBinding::every_wheel);
  bench::compare(
      "frequency load, " + size, 1.15, [&] { bench::step_all(archive.bare(), counts); },
      [&] {
        frequency.LoadFrequenti();
        if (frequency.GetFrqTopTen(0) == 0) bench::stop("no count");
      },
      7);
  vestara::cTabAnalytics table([newest] { return newest; });
  table.ActiveConnection(archive.connector());
  const std::string recent = vestara::analytic_statement(automation::Date::from_day(newest.day() - 730));
  bench::compare(
      "analytic table, " + size, 1.15, [&] { bench::step_all(archive.bare(), recent); },
      [&] {
        table.LoadTabelloneAnalitico();
        if (table.GetItemCount() == 0) bench::stop("no line");
      });
  std::vector<double> times;
  for (int i = 0; i < 25; ++i) times.push_back(bench::milliseconds(load_delays));
  return bench::median(times);
}

automation::Date newest_of(const bench::LoadedArchive& archive) {
  auto rows = archive.connector()->GetRecordset("SELECT max(dtEstr) AS dmax FROM storico");
  return *automation::date_in(rows->value({0}));
}

}  // namespace

int main() {
  const bench::LoadedArchive real("frequency", bench::archive_tuples());
  const bench::LoadedArchive million("frequency-million", bench::synthetic_tuples(bench::million_rows));
  const double small = measure("archive", real, newest_of(real));
  const double large = measure("1M rows", million, newest_of(million));
  std::printf("%-44s %.3f ms on the archive, %.3f ms on 1M rows\n", "delay load by size", small, large);
}
