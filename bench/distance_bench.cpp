#include <array>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "automation/variant.h"
#include "bench/archive.h"
#include "bench/harness.h"
#include "vestara/distances/distance_text.h"
#include "vestara/distances/number_distances.h"

// number distances, pair distances: the loads over all wheels against the bare engine stepping the same rows into
// plain arrays. What is above that, a pair, and the memory that a pair load adds, are printed.

namespace {

struct PlainRows {
  std::vector<std::array<char, 2>> wheels;
  std::vector<std::array<int, 5>> numbers;
};

size_t step_into_arrays(sqlite3* database, const std::string& statement) {
  PlainRows rows;
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(database, statement.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
    bench::stop(sqlite3_errmsg(database));
  while (sqlite3_step(prepared) == SQLITE_ROW) {
    const unsigned char* wheel = sqlite3_column_text(prepared, 0);
    rows.wheels.push_back({static_cast<char>(wheel[0]), static_cast<char>(wheel[1])});
    std::array<int, 5> numbers{};
    for (int i = 0; i < 5; ++i) numbers[static_cast<size_t>(i)] = sqlite3_column_int(prepared, i + 1);
    rows.numbers.push_back(numbers);
  }
  sqlite3_finalize(prepared);
  return rows.numbers.size();
}

/// Of this process, in KiB: the largest ever, or now.
long memory(const char* field) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with(field)) return std::atol(line.c_str() + std::string_view(field).size() + 1);
  return 0;
}

}  // namespace

int main() {
  // 15 ns a pair, where the bare engine takes 16.5 ms for the archive.
  constexpr double goal = 1.95;
  const bench::LoadedArchive archive("distance", bench::archive_tuples());
  const std::string statement = vestara::wheel_draws_statement({}, {});
  vestara::cDistanze2 distances;
  distances.ActiveConnection(archive.connector());

  auto rows = archive.connector()->GetRecordset(statement);
  const auto pairs = static_cast<double>(rows->record_count()) * 10;
  const long before = memory("VmRSS:");
  if (!distances.LoadDistanze2Ambi("")) bench::stop("refused");
  std::printf("%-44s %.1f MiB at most beyond one record set, both sets included\n", "pair distances, memory",
              static_cast<double>(memory("VmHWM:") - before) / 1024);
  archive.connector()->CloseRecordset(rows);

  const auto bare = [&] { step_into_arrays(archive.bare(), statement); };
  const auto load_pairs = [&] {
    if (!distances.LoadDistanze2Ambi("")) bench::stop("refused");
  };
  bench::compare("number distances, all wheels", goal, bare, [&] {
    if (!distances.LoadDistanze1("")) bench::stop("refused");
  });
  bench::compare("pair distances, all wheels", goal, bare, load_pairs);
  std::vector<double> above;
  for (int i = 0; i < 15; ++i)
    above.push_back((bench::milliseconds(load_pairs) - bench::milliseconds(bare)) * 1e6 / pairs);
  std::printf("%-44s %.1f ns above the bare engine   goal 15\n", "pair distances, a pair", bench::median(above));
}
