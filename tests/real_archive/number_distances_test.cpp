#include "vestara/distances/number_distances.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>

#include "automation/text.h"
#include "tests/real_archive/real_archive.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"

namespace real_archive {
namespace {

using automation::Missing;
using testing_support::day;
using List = std::vector<int32_t>;

struct Draw {
  std::string date;
  std::array<int32_t, 5> numbers;
  bool holds(int32_t number) const { return std::ranges::find(numbers, number) != numbers.end(); }
};

/// The draws of a wheel, as the lines of the file have them.
std::vector<Draw> draws_of(const std::string& wheel) {
  std::vector<Draw> draws;
  std::ifstream file(path());
  std::string line;
  while (std::getline(file, line)) {
    const auto fields = automation::split(line, ',');
    if (fields.size() != 7 || fields[1] != wheel) continue;
    draws.push_back({std::string(fields[0]), {}});
    for (size_t i = 0; i < 5; ++i) draws.back().numbers[i] = std::stoi(std::string(fields[i + 2]));
  }
  return draws;
}

/// Draws from each appearance to the next, before the first one the draws up to it.
template <class Appears>
List plain_distances(const std::vector<Draw>& draws, Appears appears) {
  List distances;
  int32_t distance = 0;
  for (const auto& draw : draws) {
    if (appears(draw)) distances.push_back(std::exchange(distance, 0));
    ++distance;
  }
  return distances;
}

List values_of(const automation::Array& array) {
  List list;
  for (const auto& item : array.items()) list.push_back(*item.get_if<int32_t>());
  return list;
}

class RealNumberDistances : public testing::Test {
 protected:
  void SetUp() override {
    if (path().empty()) GTEST_SKIP() << "no real archive: VESTARA_REAL_ARCHIVE is not set";
    distances_.ActiveConnection(connector());
  }
  void TearDown() override { EXPECT_EQ(log_.bytes(), ""); }

  testing_support::LogCapture log_;
  vestara::cDistanze2 distances_;
};

// Absences that the press published. A distance counts the draw that ends it too, so it is one more.
const struct Record {
  int32_t number;
  const char* wheel;
  int32_t enumerator;
  automation::Date earlier, later;
  int32_t absences;
} records[] = {{53, "VE", 10, day(2003, 5, 10), day(2005, 2, 9), 182},
               {8, "RM", 8, day(1937, 10, 9), day(1941, 8, 23), 201},
               {34, "CA", 2, day(2004, 9, 8), day(2006, 4, 1), 203},
               {78, "BA", 1, day(2023, 2, 14), day(2024, 3, 8), 201},
               {53, "RN", 11, day(2015, 6, 3), day(2017, 1, 24), 257}};

TEST_F(RealNumberDistances, Records) {
  for (const auto& record : records) {
    SCOPED_TRACE(std::to_string(record.number) + " " + record.wheel);
    auto draws = draws_of(record.wheel);
    std::erase_if(draws, [&](const Draw& draw) {
      return draw.date < automation::iso_day(record.earlier) || draw.date > automation::iso_day(record.later);
    });
    const List plain = plain_distances(draws, [&](const Draw& draw) { return draw.holds(record.number); });
    EXPECT_EQ(plain, (List{0, record.absences + 1}));
    for (const bool ascending : {false, true}) {
      EXPECT_TRUE(distances_.LoadDistanze1(record.wheel, record.earlier, record.later, ascending));
      EXPECT_EQ(values_of(distances_.GetDistanzeSingleNumber(record.number, record.enumerator)), plain);
      double least = 0, most = 0;
      EXPECT_EQ(distances_.GetDistanzeAVG1(record.number, record.wheel, least, most), record.absences + 1);
      EXPECT_EQ(least, record.absences + 1);
      EXPECT_EQ(most, record.absences + 1);
    }
  }
}

TEST_F(RealNumberDistances, AllDistancesOfTheNumber) {
  EXPECT_TRUE(distances_.LoadDistanze1("", Missing{}, Missing{}, true));
  for (const auto& record : records) {
    SCOPED_TRACE(std::to_string(record.number) + " " + record.wheel);
    const auto plain =
        plain_distances(draws_of(record.wheel), [&](const Draw& draw) { return draw.holds(record.number); });
    const auto enumerator = static_cast<int16_t>(record.enumerator);
    EXPECT_EQ(values_of(distances_.GetDistanzeSingleNumber(record.number, enumerator)), plain);
    EXPECT_EQ(distances_.ItemCount(static_cast<int16_t>(record.number), enumerator), std::ssize(plain));
    EXPECT_NE(std::ranges::find(plain, record.absences + 1), plain.end());
    double least = 0, most = 0;
    distances_.GetDistanzeAVG1(record.number, record.wheel, least, most);
    EXPECT_EQ(most, *std::max_element(plain.begin() + 1, plain.end()));
    EXPECT_EQ(least, *std::min_element(plain.begin() + 1, plain.end()));
  }
}

TEST_F(RealNumberDistances, NewestFirstTheFirstElementIsTheCurrentDelay) {
  EXPECT_TRUE(distances_.LoadDistanze1(""));
  for (const auto& record : records) {
    auto draws = draws_of(record.wheel);
    std::ranges::reverse(draws);
    const auto plain = plain_distances(draws, [&](const Draw& draw) { return draw.holds(record.number); });
    EXPECT_EQ(values_of(distances_.GetDistanzeSingleNumber(record.number, record.enumerator)), plain) << record.wheel;
  }
}

TEST_F(RealNumberDistances, PairsOfAWheel) {
  EXPECT_TRUE(distances_.LoadDistanze2Ambi("", Missing{}, Missing{}, true));
  const struct {
    int32_t first, second;
    const char* wheel;
    int32_t enumerator;
  } rows[] = {{1, 2, "BA", 1}, {1, 90, "FI", 3}, {53, 78, "VE", 10}, {89, 90, "RN", 11}, {8, 34, "RM", 8}};
  for (const auto& [first, second, wheel, enumerator] : rows) {
    const auto plain = plain_distances(
        draws_of(wheel), [a = first, b = second](const Draw& draw) { return draw.holds(a) && draw.holds(b); });
    EXPECT_GT(plain.size(), 1U);
    EXPECT_EQ(values_of(distances_.GetDistanzeAmbi(first, second, enumerator)), plain) << wheel;
  }
}

}  // namespace
}  // namespace real_archive
