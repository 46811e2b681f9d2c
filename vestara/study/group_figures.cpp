#include <algorithm>
#include <queue>

#include "vestara/draws/group_place.h"
#include "vestara/draws/group_scan.h"
#include "vestara/study/figure_row.h"

namespace vestara::study {
namespace {

struct Candidate {
  double value;     ///< what groups are ranked by
  uint64_t offer;   ///< counted from 0
  size_t sequence;  ///< place of the sequence
  uint32_t group;   ///< group_place
  Occurrences found;
};

bool goes_before(const Candidate& left, const Candidate& right) {
  return left.value != right.value ? left.value > right.value : left.offer < right.offer;
}

/// The best of the candidates offered. Groups are offered in the order that equal values have: a later one goes before
/// an earlier one only by its value.
class Ranking {
 public:
  explicit Ranking(size_t most) : most_(most) {}

  void offer(double value, size_t sequence, uint32_t group, const Occurrences& found) {
    const uint64_t offer = offers_++;
    if (kept_.size() == most_) {
      if (value <= kept_.top().value) return;
      kept_.pop();
    }
    kept_.push({value, offer, sequence, group, found});
  }

  /// Best first.
  std::vector<Candidate> take() {
    std::vector<Candidate> best;
    best.reserve(kept_.size());
    for (; !kept_.empty(); kept_.pop()) best.push_back(kept_.top());
    std::reverse(best.begin(), best.end());
    return best;
  }

 private:
  struct Before {
    bool operator()(const Candidate& left, const Candidate& right) const { return goes_before(left, right); }
  };
  size_t most_;
  uint64_t offers_ = 0;
  std::priority_queue<Candidate, std::vector<Candidate>, Before> kept_;  ///< the worst on top
};

double value_of(RankedBy by, const Occurrences& found, int32_t draws, const Expectation& expected) {
  switch (by) {
    case RankedBy::delay:
      return found.delay(draws);
    case RankedBy::times:
      return found.times;
    case RankedBy::record:
      return found.record;
    case RankedBy::z:
      break;
  }
  return deviation(found.times, expected).value_or(0);
}

void offer_groups(const DrawSequence& sequence, size_t place, const GroupQuestion& question,
                  const Expectation& expected, Ranking& ranking) {
  const auto offer = [&](uint32_t group, const Occurrences& found) {
    ranking.offer(value_of(question.by, found, sequence.draws(), expected), place, group, found);
  };
  constexpr size_t largest_small_group = 3;
  if (question.size > largest_small_group) return scan_large_groups(sequence, question.size, offer);
  std::vector<Occurrences> found;
  scan_small_groups(sequence, question.size, found);
  for (uint32_t group = 0; group < found.size(); ++group) offer(group, found[group]);
}

}  // namespace

std::vector<GroupFigures> group_figures(const Draws& draws, const GroupQuestion& question) {
  const auto size = static_cast<int32_t>(question.size);
  const Chance chance = chance_of_hits(size, size);
  const auto sequences = draw_sequences(draws, question.selection.wheels, question.selection.period, question.view);
  std::vector<Expectation> expected;
  Ranking ranking(question.top);
  for (size_t place = 0; place < sequences.size(); ++place) {
    expected.push_back(expectation(sequences[place], chance));
    offer_groups(sequences[place], place, question, expected.back(), ranking);
  }
  std::vector<GroupFigures> rows;
  double previous = 0;
  for (const Candidate& one : ranking.take()) {
    const auto position = static_cast<int32_t>(rows.size()) + 1;
    const int32_t rank = rows.empty() || one.value != previous ? position : rows.back().rank;
    const DrawnNumbers numbers = group_at(one.group, question.size);
    previous = one.value;
    rows.push_back({rank, sequences[one.sequence].name(),
                    std::vector<uint8_t>(numbers.begin(), numbers.begin() + static_cast<ptrdiff_t>(question.size)),
                    figures_of(sequences[one.sequence], one.found, expected[one.sequence])});
  }
  return rows;
}

}  // namespace vestara::study
