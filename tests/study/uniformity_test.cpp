#include "tests/study/uniformity.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>

#include "automation/system/file.h"
#include "tests/study/random_history.h"
#include "tests/study/study_archive.h"

// What Study says of archives drawn by chance. Runs when VESTARA_FAIR_ARCHIVES says of how many wheels: 1000 for the
// figures that are quoted.

namespace study_test {
namespace {

using testing_support::Archive;
using testing_support::Random;

TEST(UniformChance, KnownPlaces) {
  std::vector<double> even;
  for (int i = 0; i < 1000; ++i) even.push_back((i + 0.5) / 1000);
  EXPECT_NEAR(uniform_chance(even), 1, 1e-6);
  // The asymptotic 5 % point is 1.3581.
  const double shift = 1.3581 / (std::sqrt(1000.0) + 0.12 + 0.11 / std::sqrt(1000.0));
  for (double& value : even) value = value * (1 - shift) + 0.0005 * shift;
  EXPECT_NEAR(uniform_chance(even), 0.05, 0.006);
}

class ManyArchives : public StudyArchive {
 protected:
  void SetUp() override {
    if (wheels() == 0) GTEST_SKIP() << "VESTARA_FAIR_ARCHIVES is not set";
  }
  static size_t wheels() {
    const std::string wanted = automation::environment_variable("VESTARA_FAIR_ARCHIVES");
    return wanted.empty() ? 0 : std::stoul(wanted);
  }
  Table fairness_of(const Archive& archive) {
    store(archive);
    return rows_of(ask(*study_, {"Fairness", {}}), Walk::by_interface);
  }
};

/// Every wheel by itself.
Archive eleven_fair_histories(Random& random, size_t draws) {
  Archive archive;
  for (const auto& wheel : testing_support::all_aliases())
    for (const auto& row : fair_history(random, wheel, draws)) archive.push_back(row);
  return archive;
}

TEST_F(ManyArchives, ChancesAreUniform) {
  for (const size_t draws : {size_t{3000}, size_t{10000}}) {
    std::map<std::string, std::vector<double>> p;
    for (uint64_t seed = 1; 11 * (seed - 1) < wheels(); ++seed) {
      Random random(seed * 1000003 + draws);
      for (const auto& row : fairness_of(eleven_fair_histories(random, draws)).rows)
        p[*row.at(1).get_if<std::string>()].push_back(*row.at(4).get_if<double>());
    }
    EXPECT_EQ(p.size(), 8U);
    for (const auto& [test, values] : p) {
      const double chance = uniform_chance(values);
      std::cout << draws << " draws, " << values.size() << " wheels, " << test << ": " << chance << '\n';
      EXPECT_GT(chance, 0.001) << test;
    }
  }
}

/// A wheel without draws has no p.
bool is_significant(const std::vector<automation::Variant>& row) {
  const auto* adjusted = row.at(5).get_if<double>();
  return adjusted && *adjusted < 0.05;
}

TEST_F(ManyArchives, APlantedBiasIsFound) {
  size_t found = 0;
  for (uint64_t seed = 1; seed <= 100; ++seed) {
    Random random(seed);
    store(biased_history(random, 10000));
    const Table table = rows_of(ask(*study_, {"Fairness", {{"Wheels", "BA"}}}), Walk::by_interface);
    if (std::ranges::any_of(table.rows, is_significant)) ++found;
  }
  std::cout << "found in " << found << " of 100 archives\n";
  EXPECT_GE(found, 95U);
}

}  // namespace
}  // namespace study_test
