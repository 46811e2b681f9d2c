#include "automation/collection.h"
#include "automation/registry.h"
#include "vestara/archive/draw_record.h"
#include "vestara/archive/lotto.h"
#include "vestara/distances/hit_distances.h"
#include "vestara/distances/number_distances.h"
#include "vestara/frequency/analytic_table.h"
#include "vestara/frequency/frequency.h"
#include "vestara/statistics/statistics.h"
#include "vestara/study/study.h"
#include "vestara/systems/systems.h"

// The surface of the library: the classes that hosts create by name, and behind them those that their members hand
// out. A class is on the surface when its line is here.

namespace vestara {
namespace {

const struct Surface {
  automation::ClassRegistrar<cLotto> lotto;
  automation::ClassRegistrar<cEstrazione> draw;
  automation::ClassRegistrar<cStatistiche> statistics;
  automation::ClassRegistrar<cSistemi> systems;
  automation::ClassRegistrar<cDistanze> hit_distances;
  automation::ClassRegistrar<cDistanze2> number_distances;
  automation::ClassRegistrar<cFrequenza> frequency;
  automation::ClassRegistrar<cTabAnalytics> analytic_table;
  automation::ClassRegistrar<Study> plain_figures;

  automation::HandedOut<automation::Collection> collection;
} surface_of_the_library;

}  // namespace
}  // namespace vestara
