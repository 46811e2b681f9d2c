#include <string>

#include "bench/archive.h"
#include "bench/harness.h"
#include "vestara/distances/gap_text.h"
#include "vestara/distances/hit_distances.h"

// gap query: LoadDistanze against its own statement stepped through the bare engine into nothing.

namespace {

struct Workload {
  const char* name;
  const char* numbers;
  int16_t hits;
  const char* wheels;
};

constexpr Workload workloads[] = {
    {"one number, one wheel", "53", 1, "VE"},
    {"five numbers, all wheels", "5,12,33,47,90", 2, ""},
    {"twenty numbers, all wheels", "1,2,3,4,5,6,7,8,9,10,41,42,43,44,45,46,47,48,49,50", 1, ""}};

void measure(const std::string& size, const bench::LoadedArchive& archive) {
  vestara::cDistanze distances;
  distances.ActiveConnection(archive.connector());
  for (const Workload& workload : workloads) {
    const std::string statement = vestara::gap_statement(
        {workload.numbers, workload.hits, {vestara::WheelFilter::listed(workload.wheels), {}, {}}});
    bench::compare(
        "gap query, " + size + ", " + workload.name, 1.20, [&] { bench::step_all(archive.bare(), statement); },
        [&] {
          distances.LoadDistanze(workload.numbers, workload.hits, workload.wheels);
          if (distances.ItemCount() == 0) bench::stop(archive.connector()->LastError());
        },
        9);
  }
}

}  // namespace

int main() {
  measure("archive", bench::LoadedArchive("gap", bench::archive_tuples()));
  measure("1M rows", bench::LoadedArchive("gap-million", bench::synthetic_tuples(bench::million_rows)));
}
