#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "tests/support/big_number.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "vestara/statistics/statistics.h"

namespace vestara {
namespace {

using testing_support::BigNumber;
using Lines = std::vector<std::string>;

constexpr int64_t all_hands = 43949268;  // ways to draw 5 of 90

class ProbabilitiesTest : public testing::Test {
 protected:
  testing_support::LogCapture log_;
  cStatistiche statistics_;
};

TEST_F(ProbabilitiesTest, KnownPercentages) {
  const struct {
    const char* what;
    int16_t numbers, hits, wheels;
    double percent;
  } rows[] = {
      {"one number: one in eighteen", 1, 1, 1, 100.0 / 18},
      {"ambo secco: one in 400.5", 2, 2, 1, 100 / 400.5},
      {"terno secco: one in 11748", 3, 3, 1, 100.0 / 11748},
      {"quaterna secca: one in 511038", 4, 4, 1, 100.0 / 511038},
      {"cinquina secca", 5, 5, 1, 100.0 / 43949268},
      {"one number on all wheels", 1, 1, 11, 46.6738071389},
      {"an ambo of five numbers", 5, 2, 1, 2.3295632592},
      {"ninety numbers always hit", 90, 5, 1, 100},
      {"no numbers never do", 0, 1, 1, 0},
      {"86 numbers leave too few others", 86, 1, 1, 100},
      {"k of 0 is that of 1", 7, 0, 3, 71.1674237337},
      {"and below 0", 7, -5, 3, 71.1674237337},
      {"no wheels are one", 1, 1, 0, 100.0 / 18},
      {"and below 0", 1, 1, -3, 100.0 / 18},
      {"more than five of five: the sum stops at four", 5, 7, 1, 100.0 / 43949268},
      {"certain on one wheel, so on three", 90, 5, 3, 100},
      {"more than certain: no root of a negative number", 100, 1, 3, 100 * (1 - std::pow(-2002.0 / 43949268, 3))},
      {"more numbers than there are", 91, 1, 1, (1 + 1.0 / 43949268) * 100},
      {"fewer than none: below 0", -1, 1, 1, (1 - 46504458.0 / 43949268) * 100}};
  for (const auto& row : rows)
    EXPECT_NEAR(statistics_.CalcolaPercTeorica(row.numbers, row.hits, row.wheels), row.percent, 1e-9) << row.what;
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(ProbabilitiesTest, AgreeWithExactArithmetic) {
  int64_t triangle[91][6] = {};
  for (auto& row : triangle) row[0] = 1;
  for (int n = 1; n <= 90; ++n)
    for (int k = 1; k <= 5; ++k) triangle[n][k] = triangle[n - 1][k - 1] + triangle[n - 1][k];
  ASSERT_EQ(triangle[90][5], all_hands);
  for (int16_t n = 1; n <= 90; ++n) {
    int64_t misses = 0;
    for (int16_t k = 1; k <= 5; ++k) {
      misses += triangle[n][k - 1] * triangle[90 - n][6 - k];
      const BigNumber missed(static_cast<uint64_t>(misses));
      for (int16_t r = 1; r <= 11; ++r) {
        const BigNumber all = power(BigNumber(all_hands), r);
        const auto exact = static_cast<double>(100 * ratio(all - power(missed, r), all));
        const double percent = statistics_.CalcolaPercTeorica(n, k, r);
        ASSERT_NEAR(percent, exact, 1e-12 * exact) << n << ' ' << k << ' ' << r;
      }
    }
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(ProbabilitiesTest, FailuresAreZeroUnderTheLabelOfTheFirstTrap) {
  const std::string theory = "cStatistiche.CalcolaPercTeorica() 6";
  const std::string binomial = "cStatistiche.CalcolaCombSemplici() 6";
  const struct {
    const char* what;
    std::function<double(cStatistiche&)> call;
    double result;
    Lines log;
  } rows[] = {
      {"90 - n beyond 16 bits", [](cStatistiche& s) { return s.CalcolaPercTeorica(-32768, 1, 1); }, 0, {theory}},
      {"by one", [](cStatistiche& s) { return s.CalcolaPercTeorica(-32678, 1, 1); }, 0, {theory}},
      {"a power too large", [](cStatistiche& s) { return s.CalcolaPercTeorica(-32677, 1, 32767); }, 0, {theory}},
      {"a percentage too large", [](cStatistiche& s) { return s.CalcolaPercTeorica(-32327, 1, 24); }, 0, {theory}},
      {"k - 1 below 16 bits", [](cStatistiche& s) { return s.CalcolaPercTeorica(5, -32768, 1); }, 0, {theory}},
      {"a binomial below 16 bits", [](cStatistiche& s) { return s.CalcolaCombSemplici(-32768, 1); }, 0, {binomial}},
      {"a binomial too large", [](cStatistiche& s) { return s.CalcolaCombSemplici(32767, 100); }, 0, {binomial}},
      {"a factorial too large", [](cStatistiche& s) { return s.CalcolaCombSemplici(5, 171); }, 0, {binomial}},
      {"a term that fails counts nothing",
       [](cStatistiche& s) { return s.CalcolaPercTeorica(90, 172, 1); },
       100,
       {binomial}},
      {"each of them has its entry",
       [](cStatistiche& s) { return s.CalcolaPercTeorica(90, 174, 1); },
       100,
       {binomial, binomial, binomial}}};
  for (const auto& row : rows) {
    EXPECT_EQ(row.call(statistics_), row.result) << row.what;
    EXPECT_EQ(log_.take(), row.log) << row.what;
  }
}

TEST_F(ProbabilitiesTest, EffectivePercentage) {
  const struct {
    int32_t draws, with_hit;
    double percent;
  } rows[] = {{0, 0, 0}, {0, 5, 0}, {-3, 5, 0}, {200, 5, 2.5}, {3, 1, 1.0 / 3 * 100}, {4, 8, 200}, {5, -1, -20}};
  for (const auto& row : rows) {
    statistics_.EstrContaTutteLeEstrazioniNelleDate(row.draws);
    statistics_.EstrContaTutteLeEstrazioniSortiteNelleDate(row.with_hit);
    const double percent = statistics_.EstrCalcolaPercEffettiva();
    EXPECT_EQ(percent, row.percent) << row.draws << ' ' << row.with_hit;
    EXPECT_EQ(statistics_.CalcolaNumEstrDaPerc(true), row.percent > 0 ? 100 / row.percent : -1.0);
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(ProbabilitiesTest, ExpectedDrawsOfAHit) {
  const struct {
    const char* what;
    int16_t numbers, hits, wheels;
    double draws;
    Lines log;
  } rows[] = {{"one number", 1, 1, 1, 18, {}},
              {"a terno secco", 3, 3, 1, 11748, {}},
              {"never", 0, 1, 1, -1, {}},
              {"a negative percentage", -1, 1, 1, -1, {}},
              {"after an error", -32768, 1, 1, -1, {"cStatistiche.CalcolaPercTeorica() 6"}}};
  for (const auto& row : rows) {
    statistics_.EstrNumeriGiocatiQta(row.numbers);
    statistics_.EstrCombinazione(row.hits);
    statistics_.EstrRuoteGiocateQta(row.wheels);
    EXPECT_NEAR(statistics_.CalcolaNumEstrDaPerc(), row.draws, row.draws < 0 ? 0 : 1e-6) << row.what;
    EXPECT_EQ(log_.take(), row.log) << row.what;
  }
}

TEST_F(ProbabilitiesTest, ByName) {
  using automation::InvokeKind;
  using automation::Variant;
  automation::Object& object = statistics_;
  const auto call = [&](std::string_view member, std::vector<Variant> arguments) {
    const std::vector<Variant> before = arguments;
    const std::string result =
        testing_support::outcome([&] { return object.call(member, InvokeKind::method, arguments); });
    EXPECT_EQ(arguments, before) << member;
    return result;
  };
  EXPECT_EQ(call("CalcolaCombSemplici", {90, "5"}), "Double 43949268");
  EXPECT_EQ(call("CalcolaCombSemplici", {90}), "error 449");
  EXPECT_EQ(call("CalcolaCombSemplici", {40000, 1}), "error 6");
  EXPECT_EQ(call("CalcolaPercTeorica", {90, 1, 1}), "Double 100");
  EXPECT_EQ(call("CalcolaNumEstrDaPerc", {}), "Double -1");
  EXPECT_EQ(call("calcolanumestrdaperc", {true}), "Double -1");
  EXPECT_EQ(call("EstrCalcolaPercEffettiva", {}), "Double 0");
  EXPECT_EQ(log_.bytes(), "");
}

}  // namespace
}  // namespace vestara
