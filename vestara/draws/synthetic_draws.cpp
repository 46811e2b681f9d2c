#include "vestara/draws/synthetic_draws.h"

#include <limits>
#include <numeric>
#include <random>
#include <utility>

#include "vestara/draws/calendar.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {
namespace {

// The distributions of the standard library differ from one implementation to the next; the engine does not.
class Urn {
 public:
  explicit Urn(uint64_t seed) : engine_(seed) { std::iota(balls_.begin(), balls_.end(), int8_t{1}); }

  std::array<int8_t, drawn_count> draw() {
    std::array<int8_t, drawn_count> numbers{};
    for (size_t i = 0; i < numbers.size(); ++i) {
      std::swap(balls_[i], balls_[i + below(balls_.size() - i)]);
      numbers[i] = balls_[i];
    }
    return numbers;
  }

 private:
  /// Every value below `bound` is equally likely: what lies behind the last whole multiple is drawn again.
  size_t below(uint64_t bound) {
    constexpr uint64_t most = std::numeric_limits<uint64_t>::max();
    const uint64_t last = most - (most % bound + 1) % bound;
    uint64_t value = engine_();
    while (value > last) value = engine_();
    return static_cast<size_t>(value % bound);
  }

  std::mt19937_64 engine_;
  std::array<int8_t, number_count> balls_{};
};

}  // namespace

void synthetic_draws(uint64_t seed, int32_t from, int32_t to, const std::function<bool(const DrawRow&)>& take) {
  Urn urn(seed);
  for (int32_t day = first_draw_day(); day <= to; ++day) {
    if (!is_draw_day(day)) continue;
    for (int32_t wheel = 1; wheel <= wheel_count; ++wheel) {
      if (!is_drawn_on(wheel, day)) continue;
      const DrawRow row{day, 0, static_cast<int8_t>(wheel), urn.draw()};
      if (day >= from && !take(row)) return;
    }
  }
}

}  // namespace vestara
