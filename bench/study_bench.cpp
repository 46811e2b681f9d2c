#include <cstdio>
#include <memory>
#include <string>

#include "bench/archive.h"
#include "bench/harness.h"
#include "bench/plain_scan.h"
#include "vestara/draws/archive_draws.h"
#include "vestara/study/figures.h"
#include "vestara/study/set_families.h"

// study: each figure on draws in memory beside a plain scan of the same rows; loading them beside the engine's own
// steps, with the columns read and thrown away.

namespace {

namespace study = vestara::study;
using study::Draws;

constexpr const char* statement = "SELECT dtEstr,ruota,concorsoNumero,estr1,estr2,estr3,estr4,estr5 FROM storico";

int64_t step_and_read(sqlite3* database) {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(database, statement, -1, &prepared, nullptr) != SQLITE_OK)
    bench::stop(sqlite3_errmsg(database));
  int64_t sum = 0;
  while (sqlite3_step(prepared) == SQLITE_ROW) {
    sum += sqlite3_column_text(prepared, 0)[9] + sqlite3_column_text(prepared, 1)[0];
    for (int column = 2; column < 8; ++column) sum += sqlite3_column_int(prepared, column);
  }
  sqlite3_finalize(prepared);
  return sum;
}

void measure_loading(const std::string& size, const bench::LoadedArchive& archive) {
  const auto load = [&] {
    if (vestara::load_draws(archive.connector())->rows() == 0) bench::stop("no draws");
  };
  bench::compare(
      "study load, " + size + ", stepped", 1.3, [&] { bench::step_all(archive.bare(), statement); }, load, 9);
  bench::compare(
      "study load, " + size + ", stepped and read", 1.3,
      [&] {
        if (step_and_read(archive.bare()) == 0) bench::stop("no rows");
      },
      load, 9);
}

/// Ours answers the largest record as the plain scan does.
template <class Ours>
void beside(const std::string& figure, const std::vector<bench::PlainRow>& rows,
            int32_t (*plain)(const std::vector<bench::PlainRow>&), Ours ours) {
  const int32_t expected = plain(rows);
  const auto check = [&](int32_t largest) {
    if (largest != expected) bench::stop(figure + ": " + std::to_string(largest) + " " + std::to_string(expected));
  };
  bench::compare(
      figure, 2, [&] { check(plain(rows)); }, [&] { check(ours()); }, 9);
}

int32_t record_of_groups(const Draws& draws, size_t group_size) {
  study::GroupQuestion question;
  question.size = group_size;
  question.by = study::RankedBy::record;
  return study::group_figures(draws, question).at(0).figures.record;
}

void measure_figures(const std::string& size, const Draws& draws) {
  const std::vector<bench::PlainRow> rows = bench::plain_rows(*draws);
  beside("study numbers, " + size, rows, bench::plain_numbers, [&] {
    int32_t largest = 0;
    for (const auto& row : study::number_figures(draws, {}, vestara::WheelView::each))
      largest = std::max(largest, row.figures.record);
    return largest;
  });
  beside("study pairs, " + size, rows, bench::plain_pairs, [&] { return record_of_groups(draws, 2); });
  beside("study triples, " + size, rows, bench::plain_triples, [&] { return record_of_groups(draws, 3); });
  beside("study groups of four, " + size, rows, bench::plain_fours, [&] { return record_of_groups(draws, 4); });
  study::SearchQuestion question{{}, study::set_family("cadenze").front().numbers, 2};
  vestara::NumberMask mask;
  for (const uint8_t number : question.numbers) mask.add(number);
  bench::compare(
      "study search, " + size, 2,
      [&] {
        if (bench::plain_search(rows, mask.low, mask.high).empty()) bench::stop("nothing found");
      },
      [&] {
        if (study::search_drawings(draws, question).empty()) bench::stop("nothing found");
      },
      9);
}

/// What has no plain counterpart: its own time.
void measure_alone(const std::string& size, const Draws& draws) {
  const auto one = [&](const char* figure, const std::function<void()>& work) {
    std::vector<double> times;
    for (int i = 0; i < 7; ++i) times.push_back(bench::milliseconds(work));
    std::printf("%-44s %.3f ms\n", (std::string("study ") + figure + ", " + size).c_str(), bench::median(times));
  };
  one("numbers together", [&] { study::number_figures(draws, {}, vestara::WheelView::together); });
  one("sets decine", [&] {
    study::set_figures(draws, {{}, vestara::WheelView::each, study::set_family("decine"), 2});
  });
  one("fairness", [&] { study::fairness_tests(draws, {}); });
}

void measure(const std::string& size, const bench::LoadedArchive& archive) {
  measure_loading(size, archive);
  const Draws draws = vestara::load_draws(archive.connector());
  measure_figures(size, draws);
  measure_alone(size, draws);
}

}  // namespace

int main() {
  measure("archive", bench::LoadedArchive("study", bench::archive_tuples()));
  measure("1M rows", bench::LoadedArchive("study-million", bench::synthetic_tuples(bench::million_rows)));
}
