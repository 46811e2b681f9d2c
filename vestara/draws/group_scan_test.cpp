#include "vestara/draws/group_scan.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "tests/support/random.h"

namespace vestara {
namespace {

using testing_support::Random;

TEST(Occurrences, CountRunsAtBothEnds) {
  const struct {
    const char* what;
    std::vector<int32_t> occurs;
    int32_t draws, times, delay, record, record_first;
  } rows[] = {{"never", {}, 7, 0, 7, 7, 0},
              {"in the newest alone", {6}, 7, 1, 0, 6, 0},
              {"in the oldest alone", {0}, 7, 1, 6, 6, 1},
              {"in all", {0, 1, 2}, 3, 3, 0, 0, 0},
              {"the earliest of equal runs", {2, 5, 8}, 11, 3, 2, 2, 0},
              {"a longer run later", {1, 5}, 7, 2, 1, 3, 2},
              {"the open run is the longest", {0, 2}, 9, 2, 6, 6, 3},
              {"twice on one date", {1, 1, 1}, 3, 1, 1, 1, 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    Occurrences found;
    for (const int32_t draw : row.occurs) found.occur(draw);
    found.end_run(row.draws);
    EXPECT_EQ(found.times, row.times);
    EXPECT_EQ(found.delay(row.draws), row.delay);
    EXPECT_EQ(found.record, row.record);
    EXPECT_EQ(found.record_first, row.record_first);
  }
}

DrawnNumbers random_numbers(Random& random, size_t highest) {
  DrawnNumbers numbers{};
  NumberMask mask;
  for (uint8_t& number : numbers) {
    do number = static_cast<uint8_t>(1 + random.below(highest));
    while (mask.contains(number));
    mask.add(number);
  }
  return numbers;
}

/// Few numbers, so that large groups come back.
std::shared_ptr<const LoadedDraws> random_draws(uint64_t seed, size_t highest) {
  Random random(seed);
  LoadedDraws::ByWheel draws;
  for (const size_t wheel : {0U, 4U, 10U})
    for (int32_t day = 1; day <= 40; ++day)
      if (!random.one_in(4)) draws[wheel].push_back({day, day, random_numbers(random, highest)});
  return std::make_shared<const LoadedDraws>(std::move(draws));
}

/// Every group's draws, found by asking each draw for each of its groups.
std::map<uint32_t, std::set<int32_t>> slowly(const DrawSequence& sequence, size_t size) {
  std::map<uint32_t, std::set<int32_t>> found;
  sequence.each_row([&](int32_t draw, size_t row) {
    const DrawnNumbers numbers = ascending(sequence.loaded().numbers(row));
    for (uint32_t chosen = 0; chosen < 32; ++chosen) {
      if (static_cast<size_t>(std::popcount(chosen)) != size) continue;
      DrawnNumbers group{};
      size_t to = 0;
      for (size_t i = 0; i < 5; ++i)
        if ((chosen >> i & 1U) != 0) group[to++] = numbers[i];
      found[group_place(group, size)].insert(draw);
    }
  });
  return found;
}

void expect_equal(const Occurrences& found, const std::set<int32_t>& draws, int32_t all, uint32_t place) {
  Occurrences expected;
  for (const int32_t draw : draws) expected.occur(draw);
  expected.end_run(all);
  ASSERT_EQ(found.times, expected.times) << place;
  ASSERT_EQ(found.last, expected.last) << place;
  ASSERT_EQ(found.record, expected.record) << place;
  ASSERT_EQ(found.record_first, expected.record_first) << place;
}

std::vector<DrawSequence> sequences_of(uint64_t seed) {
  const auto draws = random_draws(seed, seed % 2 == 0 ? 8 : 90);
  auto sequences = draw_sequences(draws, WheelSet::all(), {5, 38}, WheelView::each);
  sequences.push_back(DrawSequence::of_dates(draws, WheelSet::all(), {}));
  return sequences;
}

TEST(GroupScan, FindsEverySmallGroup) {
  std::vector<Occurrences> found;
  for (uint64_t seed = 1; seed <= 6; ++seed)
    for (const DrawSequence& sequence : sequences_of(seed))
      for (const size_t size : {1U, 2U, 3U}) {
        scan_small_groups(sequence, size, found);
        ASSERT_EQ(found.size(), choices(90, size));
        auto expected = slowly(sequence, size);
        for (uint32_t place = 0; place < found.size(); ++place)
          expect_equal(found[place], expected[place], sequence.draws(), place);
      }
}

TEST(GroupScan, FindsEveryLargeGroupThatOccurred) {
  for (uint64_t seed = 1; seed <= 6; ++seed)
    for (const DrawSequence& sequence : sequences_of(seed))
      for (const size_t size : {4U, 5U}) {
        const auto expected = slowly(sequence, size);
        auto next = expected.begin();
        scan_large_groups(sequence, size, [&](uint32_t place, const Occurrences& found) {
          ASSERT_NE(next, expected.end());
          ASSERT_EQ(place, next->first);
          expect_equal(found, next->second, sequence.draws(), place);
          ++next;
        });
        EXPECT_EQ(next, expected.end());
      }
}

TEST(GroupScan, FindsSetsByTheirHits) {
  NumberMask set;
  for (const int32_t number : {1, 3, 5, 8}) set.add(number);
  for (uint64_t seed = 2; seed <= 6; seed += 2)
    for (const DrawSequence& sequence : sequences_of(seed))
      for (int32_t hits = 1; hits <= 4; ++hits) {
        std::set<int32_t> draws;
        sequence.each_row([&](int32_t draw, size_t row) {
          int32_t held = 0;
          for (const uint8_t number : sequence.loaded().numbers(row)) held += set.contains(number) ? 1 : 0;
          if (held >= hits) draws.insert(draw);
        });
        expect_equal(scan_set(sequence, set, hits), draws, sequence.draws(), 0);
      }
}

}  // namespace
}  // namespace vestara
