#include <algorithm>
#include <cmath>

#include "tests/support/big_number.h"
#include "tests/support/study_oracle.h"

namespace testing_support::study {

namespace {

/// How long a bet goes without a win at best even: the least draws after which it has lost all of them with a chance
/// of at most one half. Doubled until it is enough, then halved down to the least.
int32_t median_draws(long double loses) {
  int32_t too_few = 0;
  int32_t enough = 1;
  const auto is_enough = [&](int32_t draws) { return std::pow(loses, static_cast<long double>(draws)) <= 0.5L; };
  while (!is_enough(enough)) too_few = std::exchange(enough, 2 * enough);
  while (enough - too_few > 1) {
    const int32_t middle = too_few + (enough - too_few) / 2;
    (is_enough(middle) ? enough : too_few) = middle;
  }
  return enough;
}

}  // namespace

Table odds(int32_t count, int32_t wheels) {
  Table table{.columns = {"bet", "chance", "one_in", "median_draws"}, .rows = {}};
  const auto every = static_cast<uint64_t>(binomial(90, 5));
  int32_t hits = 0;
  for (const char* bet : {"ambata", "ambo", "terno", "quaterna", "cinquina"}) {
    if (++hits > count) break;
    const BigNumber cases = power(BigNumber(every), wheels);
    const BigNumber lost = power(BigNumber(every - static_cast<uint64_t>(drawings_with(count, hits))), wheels);
    table.rows.push_back({bet, static_cast<double>(ratio(cases - lost, cases)),
                          static_cast<double>(ratio(cases, cases - lost)), median_draws(ratio(lost, cases))});
  }
  return table;
}

}  // namespace testing_support::study
