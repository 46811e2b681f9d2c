#include "vestara/distances/hit_distances.h"

#include <utility>

#include "automation/member.h"
#include "automation/text.h"
#include "vestara/distances/gap_text.h"
#include "vestara/foundation/late_bound.h"
#include "vestara/foundation/query.h"
#include "vestara/foundation/sql_text.h"
#include "vestara/foundation/trap.h"

namespace vestara {

using automation::Ref;
using automation::Variant;

namespace {

constexpr std::string_view open_side = "########";  // in place of a date: no hit bounds the gap there
constexpr std::string_view no_value = "##";         // in place of a value that does not exist

/// The hit that ends the gap in the walk is handed out as a Date, the hit before it as the text of one.
Variant reached_date(const std::optional<automation::Date>& date) { return date ? Variant(*date) : Variant(open_side); }
Variant previous_date(const std::optional<automation::Date>& date) {
  return date ? Variant(automation::date_to_text(*date)) : Variant(open_side);
}

}  // namespace

Variant cDistanze::DatePrec(int32_t Index) const {
  const Gap gap = gaps_.gap(Index);
  return ISSortASC() ? previous_date(gap.earlier) : reached_date(gap.earlier);
}

Variant cDistanze::DateLast(int32_t Index) const {
  const Gap gap = gaps_.gap(Index);
  return ISSortASC() ? reached_date(gap.later) : previous_date(gap.later);
}

Variant cDistanze::DateDiff(int32_t Index) const {
  const auto days = gaps_.days(Index);
  return days ? Variant(*days) : Variant(no_value);
}

std::string cDistanze::Ruota(int32_t Index) const {
  return std::string(gaps_.is_trailing(Index) ? no_value : gaps_.gap(Index).wheel);
}

Variant cDistanze::combinazione(int32_t Index) const {
  const Gap gap = gaps_.gap(Index);
  return gap.numbers_hit ? Variant(*gap.numbers_hit) : Variant(no_value);
}

Variant cDistanze::ConcorsoNumero(int32_t Index) const {
  if (gaps_.is_trailing(Index)) return no_value;
  const Gap gap = gaps_.gap(Index);
  return gap.contest ? Variant(*gap.contest) : Variant(automation::Null{});
}

void cDistanze::ActiveConnection(Ref<DbConnector> connector) { connector_ = std::move(connector); }

void cDistanze::LoadDistanze(const std::string& sNum, int16_t combinazioneTipo, const std::string& sRuote,
                             const Variant& dtDa, const Variant& dtA, automation::InOut<bool> bTutteLeEstrazioni,
                             bool bTutteLeRuote, automation::InOut<bool> bSortASC) {
  const DateOrder order = date_order(*bSortASC);
  gaps_.restart(order);
  trapped(*bSortASC ? "cDistanze.LoadDistanzeASC()" : "cDistanze.LoadDistanzeDESC()", [&] {
    if (sNum.empty()) *bTutteLeEstrazioni = true;
    // The wheels are dropped only together with the numbers: the contract's rule, kept on purpose.
    WheelFilter wheels = bTutteLeRuote && *bTutteLeEstrazioni ? WheelFilter() : formatted_wheels(sRuote);
    const GapQuestion question{
        sNum, combinazioneTipo, {std::move(wheels), DateBound::given(dtDa), DateBound::given(dtA)}, order};
    load_gaps(required(connector_), question, gaps_);
  });
  if (ItemCount() > 0) aggregates_ = aggregates_of(gaps_);
}

}  // namespace vestara
