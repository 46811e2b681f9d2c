#include "tests/study/random_history.h"

#include <algorithm>

namespace study_test {

using automation::Date;
using testing_support::all_aliases;
using testing_support::Archive;
using testing_support::Random;

namespace {

/// One history before it is drawn.
struct Plan {
  std::vector<int32_t> days;
  std::vector<int32_t> pool;  ///< numbers that are ever drawn
  struct Wheel {
    std::string code;
    size_t first = 0;  ///< index of its first date
  };
  std::vector<Wheel> wheels;
  size_t missing = 0;   ///< one in so many draws of a wheel was not held; 0 is none
  size_t one_only = 0;  ///< one in so many dates has one wheel
};

bool chance(Random& random, size_t one_in) { return one_in != 0 && random.one_in(one_in); }

std::vector<int32_t> random_days(Random& random, size_t count) {
  std::vector<int32_t> days;
  auto day = random.pick<int32_t>({-10585, -40, 36000, 46000});
  for (size_t i = 0; i < count; ++i) {
    day += 1 + static_cast<int32_t>(random.below(7));
    if (random.one_in(15)) day += 365 * static_cast<int32_t>(1 + random.below(4));
    days.push_back(day);
  }
  return days;
}

std::vector<Plan::Wheel> random_wheels(Random& random, size_t dates) {
  std::vector<std::string> codes = all_aliases();
  shuffle(random, codes);
  codes.resize(random.pick<size_t>({1, 2, 4, 11, 11, 11, 11}));
  std::vector<Plan::Wheel> wheels;
  for (const auto& code : codes) wheels.push_back({code, random.one_in(3) ? random.below(dates + 1) : 0});
  return wheels;
}

Plan random_plan(Random& random) {
  Plan plan;
  plan.days = random_days(random, random.pick<size_t>({0, 1, 2, 5, 15, 15, 40, 60}));
  plan.pool = every_number();
  shuffle(random, plan.pool);
  plan.pool.resize(random.pick<size_t>({5, 7, 12, 30, 90}));
  plan.wheels = random_wheels(random, plan.days.size());
  plan.missing = random.pick<size_t>({0, 3, 10});
  plan.one_only = random.pick<size_t>({0, 6});
  return plan;
}

}  // namespace

std::vector<int32_t> every_number() {
  std::vector<int32_t> numbers;
  for (int32_t number = 1; number <= 90; ++number) numbers.push_back(number);
  return numbers;
}

std::array<std::optional<int32_t>, 5> random_drawing(Random& random, std::vector<int32_t> pool) {
  std::array<std::optional<int32_t>, 5> drawing;
  for (auto& number : drawing) {
    const size_t place = random.below(pool.size());
    number = pool[place];
    pool[place] = pool.back();
    pool.pop_back();
  }
  return drawing;
}

Archive random_history(Random& random) {
  const Plan plan = random_plan(random);
  Archive archive;
  int32_t contest = 0;
  for (size_t i = 0; i < plan.days.size(); ++i) {
    ++contest;
    const bool one_only = chance(random, plan.one_only);
    const size_t only = random.below(plan.wheels.size());
    for (size_t j = 0; j < plan.wheels.size(); ++j) {
      if (i < plan.wheels[j].first || (one_only && j != only) || chance(random, plan.missing)) continue;
      const auto noted = random.one_in(9) ? std::optional<int32_t>() : contest;
      archive.push_back({Date::from_day(plan.days[i]), noted, plan.wheels[j].code, random_drawing(random, plan.pool)});
    }
  }
  shuffle(random, archive);
  return archive;
}

Archive fair_history(Random& random, const std::string& wheel, size_t draws) {
  const auto pool = every_number();
  Archive archive;
  for (size_t i = 0; i < draws; ++i) {
    const auto number = static_cast<int32_t>(i + 1);
    archive.push_back({Date::from_day(30000 + number), number, wheel, random_drawing(random, pool)});
  }
  return archive;
}

}  // namespace study_test
