
#include <gtest/gtest.h>

#include <cmath>

#include "vestara/study/chance/hit_chance.h"
#include "vestara/study/figures.h"

namespace vestara::study {
namespace {

TEST(Chances, OfHitsAsPublished) {
  // Exactly so many hits, of one number to ten.
  const std::vector<std::vector<double>> published{
      {.9444444444, .0555555556},
      {.8913857678, .1061173533, .0024968789},
      {.8407388492, .1519407559, .0072352741, 8.512087e-5},
      {.7924205245, .1932732987, .0139715638, .00033265628, 1.956802e-6},
      {.7463495638, .2303548036, .0224736394, .0008123002, 9.67024e-6, 2.27535e-8},
      {.7024466483, .2634174931, .0325206782, .0015863745, 2.866942e-5, 1.365210e-7},
      {.6606343478, .2926861034, .0439029155, .0027100565, 6.609894e-5, 4.778237e-7},
      {.6208370979, .3183779989, .0564214175, .0042316063, .0001306051, 1.274196e-6},
      {.5829811773, .3407032854, .0698878534, .0061925946, .0002322223, 2.866942e-6},
      {.5469946849, .3598649243, .0841242680, .0086281301, .0003822589, 5.733884e-6}};
  for (size_t i = 0; i < published.size(); ++i) {
    const auto numbers = static_cast<int32_t>(i) + 1;
    for (size_t hits = 0; hits < published[i].size(); ++hits) {
      const auto least = static_cast<int32_t>(hits);
      const double more = hits < 5 ? hit_chance(numbers, least + 1) : 0;
      EXPECT_NEAR((hit_chance(numbers, least) - more) / published[i][hits], 1, 1e-6) << numbers << " " << hits;
    }
  }
  EXPECT_EQ(hit_chance(90, 5), 1);
  EXPECT_EQ(hit_chance(86, 1), 1);
  EXPECT_EQ(hit_chance(85, 1), 1 - 1 / 43949268.0);
  EXPECT_EQ(hit_chance(2, 3), 0);
}

TEST(Chances, HaveAnExactComplement) {
  const double one_drawing = 1 / 43949268.0;
  const struct {
    int32_t numbers, hits;
    double against;
  } rows[] = {{1, 1, 85.0 / 90}, {85, 1, one_drawing}, {86, 1, 0}, {86, 2, 86 * one_drawing}, {90, 5, 0}, {7, 0, 0}};
  for (const auto& row : rows) {
    EXPECT_DOUBLE_EQ(chance_of_hits(row.numbers, row.hits).against, row.against) << row.numbers << " " << row.hits;
    EXPECT_EQ(chance_of_hits(row.numbers, row.hits).of, hit_chance(row.numbers, row.hits));
  }
}

TEST(Chances, OnSeveralWheels) {
  const double tiny = hit_chance(5, 5);
  const struct {
    double chance;
    int32_t wheels;
    double together;
  } rows[] = {{5.0 / 90, 1, 5.0 / 90},
              {5.0 / 90, 2, 1 - 85.0 / 90 * 85 / 90},
              {5.0 / 90, 10, 1 - std::pow(85.0 / 90, 10)},
              {1, 3, 1},
              {tiny, 10, 10 * tiny - 45 * tiny * tiny}};
  for (const auto& row : rows) EXPECT_NEAR(chance_on_wheels(row.chance, row.wheels) / row.together, 1, 1e-12);
}

TEST(BetOdds, AsPublished) {
  const struct {
    int32_t numbers, wheels;
    std::vector<BetOdds> bets;
  } rows[] = {{1, 1, {{"ambata", 5.0 / 90, 18, 13}}},
              {2, 1, {{"ambata", 1 - .8913857678, 801 / 87.0, 7}, {"ambo", 2 / 801.0, 400.5, 278}}},
              {3,
               1,
               {{"ambata", 1 - .8407388492, 6.279000, 4},
                {"ambo", .0072352741 + 8.512087e-5, 136.604652, 95},
                {"terno", 1 / 11748.0, 11748, 8143}}}};
  for (const auto& row : rows) {
    const auto bets = bet_odds(row.numbers, row.wheels);
    ASSERT_EQ(bets.size(), row.bets.size());
    for (size_t i = 0; i < bets.size(); ++i) {
      EXPECT_EQ(bets[i].bet, row.bets[i].bet);
      EXPECT_NEAR(bets[i].chance / row.bets[i].chance, 1, 1e-8) << bets[i].bet;
      EXPECT_NEAR(bets[i].one_in / row.bets[i].one_in, 1, 1e-6) << bets[i].bet;
      EXPECT_EQ(bets[i].median_draws, row.bets[i].median_draws) << bets[i].bet;
    }
  }
  EXPECT_EQ(bet_odds(90, 11).size(), 5U);
  EXPECT_EQ(bet_odds(5, 1)[4].median_draws, 30463311);
  for (const BetOdds& sure : bet_odds(90, 1)) EXPECT_EQ(sure.median_draws, 1) << sure.bet;
}

TEST(BetOdds, TheMedianIsTheLeastNumberOfDraws) {
  for (const int32_t wheels : {1, 2, 10, 11})
    for (int32_t numbers = 1; numbers <= 90; ++numbers)
      for (const BetOdds& bet : bet_odds(numbers, wheels)) {
        const double without = std::log1p(-bet.chance);
        ASSERT_LE(bet.median_draws * without, -std::log(2) * (1 - 1e-12)) << numbers << " " << wheels;
        if (bet.median_draws > 1) {
          ASSERT_GT((bet.median_draws - 1) * without, -std::log(2)) << numbers << " " << wheels;
        }
      }
}

}  // namespace
}  // namespace vestara::study
