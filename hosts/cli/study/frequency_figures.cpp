#include "hosts/cli/study/frequency_figures.h"

#include <algorithm>

#include "hosts/cli/library_failure.h"
#include "hosts/cli/widened.h"
#include "vestara/frequency/frequency.h"

namespace vestara::host {
namespace {

using automation::Variant;

/// Appends the entries that are in use: `number` gives 0 or less behind them.
template <class Value, class Number, class Wheel, class Measure>
void append_ranking(Figures<Value>& figures, Number number, Wheel wheel, Measure measure) {
  for (int16_t index = ranking_first; index <= ranking_last && number(index) > 0; ++index)
    figures.ranking.push_back({number(index), wheel(index), measure(index)});
}

template <class Value, class Measure>
void copy_grid(Figures<Value>& figures, const WheelSelection& wheels, Measure measure) {
  for (const int16_t wheel : chosen_wheels(wheels))
    for (int16_t number = 1; number <= number_count; ++number)
      figures.grid.at(wheel, number) = measure(number, Variant(wheel));
}

/// Asks as often as the range needs: `load` with the library's object, the wheels, and where the figures go.
template <class Value, class Load>
Figures<Value> loaded(const ArchiveSession& session, const DrawRange& range, Value none, Load load) {
  Figures<Value> figures;
  figures.grid.fill(none);
  for (const WheelSelection& wheels : wheel_loads(range)) {
    cFrequenza library;
    library.ActiveConnection(session.connector());
    load(library, wheels, figures);
  }
  std::stable_sort(figures.ranking.begin(), figures.ranking.end(),
                   [](const auto& left, const auto& right) { return left.value > right.value; });
  return figures;
}

}  // namespace

Figures<int32_t> load_delays(const ArchiveSession& session, const DrawRange& range) {
  constexpr int32_t never = -1;
  return loaded(session, range, never, [&](cFrequenza& library, const WheelSelection& wheels, auto& figures) {
    library.LoadRitardi(date_bound(range.from), date_bound(range.to), wheels.codes);
    // A ranking that was built begins with a delay or with -1.
    require(library.GetRitTopTen(0) != 0, session, "the delays cannot be counted");
    append_ranking(
        figures, [&](int16_t i) { return library.GetRitTopTenNumero(i); },
        [&](int16_t i) { return library.GetRitTopTenERuota(i); }, [&](int16_t i) { return library.GetRitTopTen(i); });
    copy_grid(figures, wheels, [&](int16_t number, const Variant& wheel) { return library.GetRitNum(number, wheel); });
  });
}

Figures<int32_t> load_counts(const ArchiveSession& session, const DrawRange& range) {
  return loaded(session, range, int32_t{0}, [&](cFrequenza& library, const WheelSelection& wheels, auto& figures) {
    library.LoadFrequenti(date_bound(range.from), date_bound(range.to), wheels.codes);
    require(library.GetFrqTopTen(0) != 0, session, "the frequencies cannot be counted");
    append_ranking(
        figures, [&](int16_t i) { return library.GetFrqTopTenNumero(i); },
        [&](int16_t i) { return library.GetFrqTopTenERuota(i); }, [&](int16_t i) { return library.GetFrqTopTen(i); });
    copy_grid(figures, wheels, [&](int16_t number, const Variant& wheel) { return library.GetFrqNum(number, wheel); });
  });
}

Figures<double> load_averages(const ArchiveSession& session, const DrawRange& range) {
  return loaded(session, range, 0.0, [&](cFrequenza& library, const WheelSelection& wheels, auto& figures) {
    const Variant from = date_bound(range.from);
    const Variant to = date_bound(range.to);
    library.LoadFrequenti(from, to, wheels.codes);  // number and wheel of an average are readable behind it only
    library.LoadFrequenzaMedia(from, to, wheels.codes);
    const bool nothing_counted = library.GetFrqTopTen(0) < 0;
    require(nothing_counted || library.GetFrqTopTenAVG(0) > 0, session, "the average frequencies cannot be counted");
    append_ranking(
        figures, [&](int16_t i) { return library.GetFrqTopTenNumeroAVG(i); },
        [&](int16_t i) { return library.GetFrqTopTenERuotaAVG(i); },
        [&](int16_t i) { return widened(library.GetFrqTopTenAVG(i)); });
    copy_grid(figures, wheels,
              [&](int16_t number, const Variant& wheel) { return widened(library.GetFrqNumAVG(number, wheel)); });
  });
}

}  // namespace vestara::host
