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

const automation::ClassRegistrar<cLotto> lotto;
const automation::ClassRegistrar<cEstrazione> draw;
const automation::ClassRegistrar<cStatistiche> statistics;
const automation::ClassRegistrar<cSistemi> systems;
const automation::ClassRegistrar<cDistanze> hit_distances;
const automation::ClassRegistrar<cDistanze2> number_distances;
const automation::ClassRegistrar<cFrequenza> frequency;
const automation::ClassRegistrar<cTabAnalytics> analytic_table;
const automation::ClassRegistrar<Study> plain_figures;

const automation::HandedOut<automation::Collection> collection;

}  // namespace
}  // namespace vestara
