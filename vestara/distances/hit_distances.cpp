#include "vestara/distances/hit_distances.h"

#include <utility>

#include "automation/text.h"
#include "vestara/distances/gap_text.h"
#include "vestara/foundation/query.h"
#include "vestara/foundation/sql_text.h"
#include "vestara/foundation/trap.h"

namespace vestara {

using automation::Ref;
using automation::Variant;

void cDistanze::ActiveConnection(Ref<DbConnector> connector) { connector_ = std::move(connector); }

void cDistanze::LoadDistanze(const std::string& sNum, int16_t combinazioneTipo, const std::string& sRuote,
                             const Variant& dtDa, const Variant& dtA, automation::InOut<bool> bTutteLeEstrazioni,
                             bool bTutteLeRuote, automation::InOut<bool> bSortASC) {
  const DateOrder order = date_order(*bSortASC);
  gaps_.restart(order);
  trapped(*bSortASC ? "cDistanze.LoadDistanzeASC()" : "cDistanze.LoadDistanzeDESC()", [&] {
    if (sNum.empty()) *bTutteLeEstrazioni = true;
    const std::string wheels =
        bTutteLeRuote && *bTutteLeEstrazioni ? std::string() : FormatRuoteToSql(sRuote, WheelChoice::listed);
    walk_rows(connector_, gap_statement({sNum, combinazioneTipo, automation::split(wheels, ','), dtDa, dtA, order}),
              [&](RecordSet& rows) { walk_gaps(rows, gaps_); });
  });
  if (ItemCount() > 0) aggregates_ = aggregates_of(gaps_);
}

}  // namespace vestara
