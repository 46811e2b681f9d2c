#include "automation/registry.h"
#include "vestara/archive/draw_record.h"
#include "vestara/archive/lotto.h"

// The classes that hosts create by name. A class is on the surface when its line is here.

namespace vestara {
namespace {

const automation::ClassRegistrar<cLotto> lotto{"Vestara.cLotto"};
const automation::ClassRegistrar<cEstrazione> draw{"Vestara.cEstrazione"};

}  // namespace
}  // namespace vestara
