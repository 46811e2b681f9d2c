#include "vestara/statistics/statistics.h"

#include <optional>
#include <utility>
#include <vector>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/int16.h"
#include "automation/text.h"
#include "automation/values/doubles.h"
#include "automation/yield.h"
#include "vestara/foundation/trap.h"
#include "vestara/statistics/combinations.h"

namespace vestara {

using automation::Collection;
using automation::Int16;
using automation::Ref;
using automation::Variant;

namespace {

int16_t piece_count(std::string_view list) {
  return Int16::checked(static_cast<int64_t>(automation::split(list, ',').size()));
}

/// The pieces of a list that has at least one: an empty text is one empty piece here.
std::vector<std::string_view> pieces_of(std::string_view list) {
  std::vector<std::string_view> pieces = automation::split(list, ',');
  if (pieces.empty()) pieces.emplace_back();
  return pieces;
}

std::string chosen_pieces(std::span<const std::string_view> pieces, std::span<const int32_t> places) {
  std::string text;
  for (const int32_t place : places) text.append(pieces[static_cast<size_t>(place - 1)]).append(",");
  text.pop_back();
  return text;
}

}  // namespace

cStatistiche::cStatistiche() : distances_(automation::make<cDistanze>()) {}

void cStatistiche::ActiveConnection(Ref<DbConnector> connector) {
  connector_ = std::move(connector);
  distances_->ActiveConnection(connector_);
}

void cStatistiche::EstrNumeriString(const std::string& numbers) {
  numbers_ = numbers;
  if (!automation::is_blank(numbers_)) numbers_played_ = piece_count(numbers_);
}

void cStatistiche::EstrRuoteString(const std::string& wheels) {
  wheels_ = wheels;
  if (!automation::is_blank(wheels_)) wheels_played_ = piece_count(wheels_);
}

void cStatistiche::DataDa(const Variant& date) { from_ = automation::to_plain(date); }
void cStatistiche::DataA(const Variant& date) { to_ = automation::to_plain(date); }

double cStatistiche::CalcolaPercTeorica(int16_t QtaNumeriGiocati, int16_t kComb, int16_t QtaRuoteGiocate) const {
  return trapped("cStatistiche.CalcolaPercTeorica()", 0.0, [&] {
    // Each count has a trap of its own and is 0 after an error: kept on purpose.
    const auto ways = [this](int16_t items, int16_t chosen) { return CalcolaCombSemplici(items, chosen); };
    return theoretical_percent(QtaNumeriGiocati, kComb, QtaRuoteGiocate, ways);
  });
}

double cStatistiche::EstrCalcolaPercEffettiva() const {
  return trapped("cStatistiche.EstrCalcolaPercEffettiva()", 0.0, [&] {
    if (draws_in_range_ <= 0) return 0.0;
    return static_cast<double>(draws_with_hit_) / draws_in_range_ * 100;
  });
}

double cStatistiche::CalcolaNumEstrDaPerc(bool bEffettiva) const {
  const double percentage =
      bEffettiva ? EstrCalcolaPercEffettiva() : CalcolaPercTeorica(numbers_played_, combination_, wheels_played_);
  return percentage > 0 ? 100 / percentage : -1;
}

double cStatistiche::CalcolaCombSemplici(int16_t nCifre, int16_t nComb) const {
  return trapped("cStatistiche.CalcolaCombSemplici()", 0.0, [&] { return combination_count(nCifre, nComb); });
}

Ref<Collection> cStatistiche::CombinazioniSempliciString() const {
  return trapped("cStatistiche.CombinazioniSempliciString()", Ref<Collection>(), [&]() -> Ref<Collection> {
    const std::string numbers = numbers_;
    const std::vector<std::string_view> pieces = pieces_of(numbers);
    const int16_t items = Int16::checked(static_cast<int64_t>(pieces.size()));
    auto walk = trapped("cStatistiche.CombinazioniS()", std::optional<CombinationWalk>(), [&] {
      if (automation::round_to_long(CalcolaCombSemplici(items, combination_)) < 1)
        throw automation::subscript_out_of_range();
      return std::optional(CombinationWalk(items, combination_));
    });
    if (!walk) return nullptr;
    auto texts = automation::make<Collection>();
    texts->add(chosen_pieces(pieces, walk->places()));
    while (walk->advance()) {
      automation::yield_to_host();
      texts->add(chosen_pieces(pieces, walk->places()));
    }
    return texts;
  });
}

}  // namespace vestara
