#include "vestara/study/frequency_figures.h"

#include <algorithm>

#include "vestara/foundation/wheels.h"
#include "vestara/frequency/loads.h"
#include "vestara/study/widened.h"

namespace vestara {
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
void load_each(const Archive& archive, const DrawRange& range, Load load, Take take) {
  PreloadRuoteAlias(archive.connector());
  for (const WheelSelection& wheels : wheel_loads(range))
    take(wheels, load(*archive.connector(), selection_of({wheels, range.from, range.to})));
}

int32_t as_it_is(int32_t value) { return value; }

template <class Load>
Figures<int32_t> whole_figures(const Archive& archive, const DrawRange& range, int32_t none, Load load) {
  Figures<int32_t> figures;
  figures.grid.fill(none);
  load_each(archive, range, load, [&](const WheelSelection& wheels, const auto& loaded) {
    append_ranking(figures, loaded.ranking, as_it_is);
    copy_grid(figures.grid, wheels, loaded.grid, as_it_is);
  });
  sort_ranking(figures);
  return figures;
}

}  // namespace

Figures<int32_t> delay_figures(const Archive& archive, const DrawRange& range) {
  constexpr int32_t never = -1;
  return whole_figures(archive, range, never, [](DbConnector& connector, const DrawSelection& selection) {
    return load_delays(connector, selection);
  });
}

Figures<int32_t> count_figures(const Archive& archive, const DrawRange& range) {
  return whole_figures(archive, range, 0, [](DbConnector& connector, const DrawSelection& selection) {
    return load_counts(connector, selection);
  });
}

AverageFigures average_figures(const Archive& archive, const DrawRange& range) {
  AverageFigures figures;
  figures.percent.grid.fill(0);
  figures.times.fill(0);
  const auto load = [](DbConnector& connector, const DrawSelection& selection) {
    return load_averages(connector, selection);
  };
  load_each(archive, range, load, [&](const WheelSelection& wheels, const Averages& averages) {
    append_ranking(figures.percent, averages.ranking, widened);
    copy_grid(figures.percent.grid, wheels, averages.grid, widened);
    copy_grid(figures.times, wheels, averages.times, as_it_is);
  });
  sort_ranking(figures.percent);
  return figures;
}

}  // namespace vestara
