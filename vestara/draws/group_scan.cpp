#include "vestara/draws/group_scan.h"

#include <array>

#include "vestara/draws/group_place.h"

namespace vestara {
namespace {

/// What a number subtracts from the last place of its groups when it is the `size`-th from their end.
constexpr uint32_t later(uint8_t number, size_t size) { return choices(size_t{number_count} - number, size); }

/// Calls `visit(place)` for every group of `Size` of the five numbers, which ascend.
template <size_t Size, class Visit>
void each_group(const DrawnNumbers& numbers, Visit visit) {
  constexpr uint32_t last = choices(number_count, Size) - 1;
  for (size_t i = 0; i < drawn_count; ++i) {
    const uint32_t of_first = last - later(numbers[i], Size);
    if constexpr (Size == 1) {
      visit(of_first);
    } else {
      for (size_t j = i + 1; j < drawn_count; ++j) {
        const uint32_t of_second = of_first - later(numbers[j], Size - 1);
        if constexpr (Size == 2)
          visit(of_second);
        else
          for (size_t k = j + 1; k < drawn_count; ++k) visit(of_second - later(numbers[k], 1));
      }
    }
  }
}

template <size_t Size>
void scan(const DrawSequence& sequence, std::vector<Occurrences>& found) {
  found.assign(choices(number_count, Size), Occurrences{});
  const LoadedDraws& draws = sequence.loaded();
  sequence.each_row([&](int32_t draw, size_t row) {
    const DrawnNumbers& drawn = draws.numbers(row);
    each_group<Size>(Size == 1 ? drawn : ascending(drawn), [&](uint32_t place) { found[place].occur(draw); });
  });
  for (Occurrences& one : found) one.end_run(sequence.draws());
}

/// An occurrence of a group.
struct GroupDraw {
  uint32_t group;
  int32_t draw;
};

void append_large_groups(const DrawnNumbers& numbers, size_t size, int32_t draw, std::vector<GroupDraw>& places) {
  if (size == drawn_count) return places.push_back({group_place(numbers, size), draw});
  for (size_t left_out = 0; left_out < drawn_count; ++left_out) {
    DrawnNumbers group{};
    for (size_t i = 0, to = 0; i < drawn_count; ++i)
      if (i != left_out) group[to++] = numbers[i];
    places.push_back({group_place(group, size), draw});
  }
}

/// Sorts by group; draws of a group stay in order. Two passes over thirteen bits each: the cost is linear.
void sort_by_group(std::vector<GroupDraw>& places) {
  constexpr uint32_t digit_bits = 13;
  constexpr uint32_t digits = 1U << digit_bits;
  std::vector<GroupDraw> sorted(places.size());
  for (const uint32_t shift : {0U, digit_bits}) {
    std::array<size_t, digits + 1> next{};
    for (const GroupDraw& place : places) ++next[(place.group >> shift) % digits + 1];
    for (size_t digit = 1; digit <= digits; ++digit) next[digit] += next[digit - 1];
    for (const GroupDraw& place : places) sorted[next[(place.group >> shift) % digits]++] = place;
    places.swap(sorted);
  }
}

}  // namespace

static_assert(choices(number_count, drawn_count) <= 1U << 26U, "two digits of thirteen bits hold every place");

void scan_small_groups(const DrawSequence& sequence, size_t size, std::vector<Occurrences>& found) {
  switch (size) {
    case 1:
      return scan<1>(sequence, found);
    case 2:
      return scan<2>(sequence, found);
    default:
      return scan<3>(sequence, found);
  }
}

void scan_large_groups(const DrawSequence& sequence, size_t size,
                       const std::function<void(uint32_t place, const Occurrences& found)>& take) {
  std::vector<GroupDraw> places;
  const LoadedDraws& draws = sequence.loaded();
  sequence.each_row(
      [&](int32_t draw, size_t row) { append_large_groups(ascending(draws.numbers(row)), size, draw, places); });
  sort_by_group(places);
  for (auto at = places.begin(); at != places.end();) {
    const uint32_t group = at->group;
    Occurrences found;
    for (; at != places.end() && at->group == group; ++at) found.occur(at->draw);
    found.end_run(sequence.draws());
    take(group, found);
  }
}

Occurrences scan_set(const DrawSequence& sequence, NumberMask set, int32_t hits) {
  Occurrences found;
  each_hit(sequence, set, hits, [&](int32_t draw) { found.occur(draw); });
  found.end_run(sequence.draws());
  return found;
}

}  // namespace vestara
