#include "vestara/study/study.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/registry.h"
#include "vestara/draws/archive_draws.h"
#include "vestara/foundation/late_bound.h"
#include "vestara/study/study_answers.h"
#include "vestara/study/words.h"

namespace vestara {

using automation::Ref;
using automation::Variant;

namespace {

study::Selection selection_of(const std::string& wheels, const Variant& since, const Variant& until) {
  return {study::wheels_in(wheels), study::period_in(since, until)};
}

WheelView view_of(bool together) { return together ? WheelView::together : WheelView::each; }

int32_t hits_of(int32_t hits, size_t numbers) { return study::within("Hits", hits, 1, study::most_hits(numbers)); }

size_t smallest(const std::vector<study::NamedNumbers>& sets) {
  size_t least = number_count;
  for (const auto& set : sets) least = std::min(least, set.numbers.size());
  return least;
}

}  // namespace

void Study::Open(const std::string& Url) {
  const Ref<automation::Object> made = automation::create_object("Dorvane.DbConnector");
  Ref<DbConnector> connector = automation::cast<DbConnector>(made);
  if (!connector) connector = late_bound_connector(made);
  std::array<Variant, 1> arguments{Variant(Url)};
  if (!automation::to_boolean(made->call("Open", automation::InvokeKind::method, arguments)))
    throw automation::failure(automation::FailureKind::database, reason_of(*connector));
  ActiveConnection(std::move(connector));
}

Ref<DbConnector> Study::ActiveConnection() const { return archive_ ? archive_->connector() : nullptr; }

void Study::ActiveConnection(Ref<DbConnector> connector) {
  archive_ = connector ? std::make_shared<ArchiveDraws>(std::move(connector)) : nullptr;
}

void Study::Refresh() {
  if (archive_) archive_->refresh();
}

std::shared_ptr<const LoadedDraws> Study::draws() {
  // A connector of the host may take the archive away while it is read: this one stays until the end.
  const std::shared_ptr<ArchiveDraws> archive = archive_;
  if (!archive) throw automation::object_not_set();
  return archive->current();
}

Study::Answer Study::Draws(const std::string& Wheels, const Variant& Since, const Variant& Until) {
  const auto selection = selection_of(Wheels, Since, Until);
  return study::as_records(study::drawings(draws(), selection));
}

Study::Answer Study::Search(const std::string& Numbers, int32_t Hits, const std::string& Wheels, const Variant& Since,
                            const Variant& Until) {
  study::SearchQuestion question{selection_of(Wheels, Since, Until), study::numbers_in(Numbers)};
  question.hits = hits_of(Hits, question.numbers.size());
  return study::as_records(study::search_drawings(draws(), question));
}

Study::Answer Study::Numbers(const std::string& Wheels, const Variant& Since, const Variant& Until, bool Together) {
  const auto selection = selection_of(Wheels, Since, Until);
  return study::as_records(study::number_figures(draws(), selection, view_of(Together)));
}

Study::Answer Study::Groups(int32_t Size, const std::string& Wheels, const Variant& Since, const Variant& Until,
                            bool Together, const std::string& By, int32_t Top) {
  study::GroupQuestion question{selection_of(Wheels, Since, Until), view_of(Together)};
  question.size = static_cast<size_t>(study::within("Size", Size, 2, drawn_count));
  question.by = study::ranked_by(By);
  question.top = static_cast<size_t>(study::within("Top", Top, 1, std::numeric_limits<int32_t>::max()));
  return study::as_records(study::group_figures(draws(), question));
}

Study::Answer Study::Sets(const std::string& Sets, int32_t Hits, const std::string& Wheels, const Variant& Since,
                          const Variant& Until, bool Together) {
  study::SetQuestion question{selection_of(Wheels, Since, Until), view_of(Together), study::sets_in(Sets)};
  question.hits = hits_of(Hits, smallest(question.sets));
  return study::as_records(study::set_figures(draws(), question));
}

Study::Answer Study::Gaps(const std::string& Numbers, const Variant& Hits, const std::string& Wheels,
                          const Variant& Since, const Variant& Until, bool Together) {
  study::GapQuestion question{selection_of(Wheels, Since, Until), view_of(Together), study::numbers_in(Numbers)};
  const int32_t most = study::most_hits(question.numbers.size());
  question.hits = Hits.is_missing() ? most : study::within("Hits", automation::to_long(Hits), 1, most);
  return study::as_records(study::gaps_of(draws(), question));
}

Study::Answer Study::Fairness(const std::string& Wheels, const Variant& Since, const Variant& Until) {
  const auto selection = selection_of(Wheels, Since, Until);
  return study::as_records(study::fairness_tests(draws(), selection));
}

Study::Answer Study::Odds(int32_t Count, const Variant& Wheels) {
  study::within("Count", Count, 1, number_count);
  return study::as_records(study::bet_odds(Count, study::wheels_played(Wheels)));
}

}  // namespace vestara
