#include "automation/registry.h"
#include "vestara/archive/draw_record.h"
#include "vestara/archive/lotto.h"
#include "vestara/distances/hit_distances.h"
#include "vestara/distances/number_distances.h"
#include "vestara/frequency/analytic_table.h"
#include "vestara/frequency/frequency.h"
#include "vestara/statistics/statistics.h"
#include "vestara/systems/systems.h"

// The classes that hosts create by name. A class is on the surface when its line is here.

namespace vestara {
namespace {

const automation::ClassRegistrar<cLotto> lotto{"Vestara.cLotto"};
const automation::ClassRegistrar<cEstrazione> draw{"Vestara.cEstrazione"};
const automation::ClassRegistrar<cStatistiche> statistics{"Vestara.cStatistiche"};
const automation::ClassRegistrar<cSistemi> systems{"Vestara.cSistemi"};
const automation::ClassRegistrar<cDistanze> hit_distances{"Vestara.cDistanze"};
const automation::ClassRegistrar<cDistanze2> number_distances{"Vestara.cDistanze2"};
const automation::ClassRegistrar<cFrequenza> frequency{"Vestara.cFrequenza"};
const automation::ClassRegistrar<cTabAnalytics> analytic_table{"Vestara.cTabAnalytics"};

}  // namespace
}  // namespace vestara
