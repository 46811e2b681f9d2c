#include "hosts/cli/study/frequency_figures.h"

#include <algorithm>

#include "hosts/cli/library_failure.h"
#include "hosts/cli/widened.h"
#include "vestara/foundation/wheels.h"
#include "vestara/frequency/loads.h"

namespace vestara::host {
namespace {

/// Appends the entries that are in use: the number is 0 or less behind them.
template <class Value, class Cell, class Measure>
void append_ranking(Figures<Value>& figures, const Ranking<Cell>& ranking, Measure measure) {
  for (int32_t index = ranking_first; index <= ranking_last && ranking.at(index).number > 0; ++index) {
    const auto& entry = ranking.at(index);
    figures.ranking.push_back({entry.number, entry.wheel, measure(entry.value)});
  }
}

template <class Value, class Cell, class Measure>
void copy_grid(WheelGrid<Value>& into, const WheelSelection& wheels, const WheelGrid<Cell>& from, Measure measure) {
  for (const int16_t wheel : chosen_wheels(wheels))
    for (int16_t number = 1; number <= number_count; ++number) into.at(wheel, number) = measure(from.at(wheel, number));
}

template <class Value>
void sort_ranking(Figures<Value>& figures) {
  std::stable_sort(figures.ranking.begin(), figures.ranking.end(),
                   [](const auto& left, const auto& right) { return left.value > right.value; });
}

/// Asks as often as the range needs: `take` gets the wheels and what `load` answers for them.
template <class Load, class Take>
void load_each(const ArchiveSession& session, const DrawRange& range, const char* otherwise, Load load, Take take) {
  PreloadRuoteAlias(session.connector());
  for (const WheelSelection& wheels : wheel_loads(range)) {
    const DrawSelection selection = selection_of({wheels, range.from, range.to});
    take(wheels, answer(session, otherwise, [&](DbConnector& connector) { return load(connector, selection); }));
  }
}

constexpr const char* no_counts = "the frequencies cannot be counted";

int32_t as_it_is(int32_t value) { return value; }

template <class Load>
Figures<int32_t> whole_figures(const ArchiveSession& session, const DrawRange& range, int32_t none,
                               const char* otherwise, Load load) {
  Figures<int32_t> figures;
  figures.grid.fill(none);
  load_each(session, range, otherwise, load, [&](const WheelSelection& wheels, const auto& loaded) {
    append_ranking(figures, loaded.ranking, as_it_is);
    copy_grid(figures.grid, wheels, loaded.grid, as_it_is);
  });
  sort_ranking(figures);
  return figures;
}

}  // namespace

Figures<int32_t> load_delays(const ArchiveSession& session, const DrawRange& range) {
  constexpr int32_t never = -1;
  return whole_figures(session, range, never, "the delays cannot be counted",
                       [](DbConnector& connector, const DrawSelection& selection) {
                         return vestara::load_delays(connector, selection);
                       });
}

Figures<int32_t> load_counts(const ArchiveSession& session, const DrawRange& range) {
  return whole_figures(session, range, 0, no_counts, [](DbConnector& connector, const DrawSelection& selection) {
    return vestara::load_counts(connector, selection);
  });
}

AverageFigures load_averages(const ArchiveSession& session, const DrawRange& range) {
  AverageFigures figures;
  figures.percent.grid.fill(0);
  figures.times.fill(0);
  const auto load = [](DbConnector& connector, const DrawSelection& selection) {
    return vestara::load_averages(connector, selection);
  };
  load_each(session, range, no_counts, load, [&](const WheelSelection& wheels, const Averages& averages) {
    append_ranking(figures.percent, averages.ranking, widened);
    copy_grid(figures.percent.grid, wheels, averages.grid, widened);
    copy_grid(figures.times, wheels, averages.times, as_it_is);
  });
  sort_ranking(figures.percent);
  return figures;
}

}  // namespace vestara::host
