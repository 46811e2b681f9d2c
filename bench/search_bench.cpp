#include <array>
#include <string>

#include "bench/archive.h"
#include "bench/harness.h"
#include "vestara/archive/hit_search.h"
#include "vestara/archive/lotto.h"
#include "vestara/archive/search_text.h"

// hit search: LoadLottoEstr against its own two statements stepped through the bare engine into nothing.
// record set: a complete static record set of the whole table against the usual loop that steps and reads every
// value.

namespace {

/// What a plain program does with every row: ask for each value by its type.
size_t step_and_read(sqlite3* database, const std::string& statement) {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(database, statement.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
    bench::stop(sqlite3_errmsg(database));
  const int columns = sqlite3_column_count(prepared);
  size_t sum = 0;
  while (sqlite3_step(prepared) == SQLITE_ROW) {
    for (int i = 0; i < columns; ++i) {
      switch (sqlite3_column_type(prepared, i)) {
        case SQLITE_INTEGER:
          sum += static_cast<size_t>(sqlite3_column_int64(prepared, i));
          break;
        case SQLITE_TEXT: {
          const std::string text(reinterpret_cast<const char*>(sqlite3_column_text(prepared, i)),
                                 static_cast<size_t>(sqlite3_column_bytes(prepared, i)));
          sum += text.size();
          break;
        }
        default:
          break;
      }
    }
  }
  sqlite3_finalize(prepared);
  return sum;
}

constexpr std::array<const char*, 5> number_lists{"53", "5,12", "5,12,33,47,90", "1,2,3,4,5,6,7,8,9,10",
                                                  "1,2,3,4,5,6,7,8,9,10,41,42,43,44,45,46,47,48,49,50"};
constexpr std::array<int, 5> list_sizes{1, 2, 5, 10, 20};

}  // namespace

int main() {
  const bench::LoadedArchive archive("search", bench::archive_tuples());
  const auto& connector = archive.connector();
  sqlite3* const bare = archive.bare();

  vestara::cLotto lotto;
  lotto.ActiveConnection(connector);
  for (size_t i = 0; i < number_lists.size(); ++i) {
    for (const char* wheel : {"VE", ""}) {
      const int16_t hits = list_sizes[i] > 1 ? 2 : 1;
      const bool all = *wheel == '\0';
      const vestara::SearchQuestion question{number_lists[i],
                                             hits,
                                             {vestara::WheelFilter::listed(wheel), {}, {}},
                                             vestara::DrawChoice::hits,
                                             vestara::DateOrder::newest_first};
      const std::string counting = vestara::counting_statement(question);
      const std::string dates = vestara::dates_statement(question);
      bench::compare(
          "hit search, " + std::to_string(list_sizes[i]) + (all ? " numbers, all wheels" : " numbers, one wheel"), 1.15,
          [&] {
            bench::step_all(bare, counting);
            bench::step_all(bare, dates);
          },
          [&] {
            if (!lotto.LoadLottoEstr(number_lists[i], hits, wheel)) bench::stop(connector->LastError());
          });
    }
  }

  const std::string all_rows =
      "SELECT dtEstr,ruota,estr1,estr2,estr3,estr4,estr5 FROM storico WHERE dtEstr>='1939-01-01' ORDER BY dtEstr DESC";
  size_t sum = 0;
  bench::compare(
      "complete record set", 1.00, [&] { sum += step_and_read(bare, all_rows); },
      [&] {
        automation::Ref<vestara::RecordSet> rows;
        if (!connector->OpenRecordset(rows, all_rows)) bench::stop(connector->LastError());
        sum += static_cast<size_t>(rows->record_count());
      });
  return sum == 0 ? 1 : 0;
}
