#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "vestara/foundation/wheel_grid.h"
#include "vestara/study/chance/hit_chance.h"
#include "vestara/study/figures.h"

namespace vestara::study {
namespace {

constexpr std::array<std::string_view, drawn_count> bets{"ambata", "ambo", "terno", "quaterna", "cinquina"};

int32_t median_draws(double chance) {
  const double draws = std::numbers::ln2 / -std::log1p(-chance);
  return std::max(1, static_cast<int32_t>(std::ceil(draws)));
}

}  // namespace

std::vector<BetOdds> bet_odds(int32_t numbers, int32_t wheels) {
  std::vector<BetOdds> odds;
  for (int32_t hits = 1; hits <= std::min(numbers, drawn_count); ++hits) {
    const double chance = chance_on_wheels(hit_chance(numbers, hits), wheels);
    odds.push_back({bets[static_cast<size_t>(hits - 1)], chance, 1 / chance, median_draws(chance)});
  }
  return odds;
}

}  // namespace vestara::study
