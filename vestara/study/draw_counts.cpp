#include "vestara/study/draw_counts.h"

#include <algorithm>

#include "vestara/draws/group_place.h"

namespace vestara::study {
namespace {

/// Draw by draw, what the counts need of the draws before.
class DrawCounter {
 public:
  explicit DrawCounter(DrawCounts& counts) : counts_(counts) { last_.fill(never); }

  void add(int32_t draw, const DrawnNumbers& numbers, NumberMask mask) {
    add_numbers(draw, numbers);
    add_pairs(ascending(numbers));
    ++counts_.first[numbers[0] - size_t{1}];
    if (draw > 0) {
      const int32_t common = (mask & before_).count();
      ++counts_.overlap[static_cast<size_t>(std::min(common, overlap_cells - 1))];
    }
    before_ = mask;
  }

 private:
  static constexpr int32_t never = -1;

  void add_numbers(int32_t draw, const DrawnNumbers& numbers) {
    int32_t sum = 0;
    size_t even = 0;
    for (const uint8_t number : numbers) {
      sum += number;
      even += number % 2 == 0 ? 1U : 0U;
      const size_t place = number - size_t{1};
      ++counts_.numbers[place];
      if (last_[place] != never) {
        const int32_t gap = draw - last_[place] - 1;
        ++counts_.gaps[static_cast<size_t>(std::min(gap / gap_class_width, gap_classes - 1))];
      }
      last_[place] = draw;
    }
    ++counts_.even[even];
    counts_.sums.push_back(sum);
  }

  void add_pairs(const DrawnNumbers& numbers) {
    for (size_t i = 0; i < drawn_count; ++i)
      for (size_t j = i + 1; j < drawn_count; ++j) ++counts_.pairs[group_place({numbers[i], numbers[j]}, 2)];
  }

  DrawCounts& counts_;
  std::array<int32_t, number_count> last_{};
  NumberMask before_;
};

}  // namespace

DrawCounts count_draws(const DrawSequence& sequence) {
  DrawCounts counts;
  counts.draws = sequence.draws();
  counts.pairs.assign(number_pairs, 0);
  counts.sums.reserve(static_cast<size_t>(counts.draws));
  DrawCounter counter(counts);
  const LoadedDraws& draws = sequence.loaded();
  sequence.each_row([&](int32_t draw, size_t row) { counter.add(draw, draws.numbers(row), draws.mask(row)); });
  return counts;
}

}  // namespace vestara::study
