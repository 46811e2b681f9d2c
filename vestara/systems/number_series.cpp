#include "vestara/systems/number_series.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/yield.h"

namespace vestara {
namespace {

using automation::Array;
using automation::Variant;

constexpr int64_t largest_range = int64_t{1} << 30;

/// Draws from a range with the same chance for every number of it.
class Urn {
 public:
  Urn(int32_t least, int64_t size)
      : least_(least),
        size_(size),
        generator_(static_cast<uint32_t>(std::chrono::system_clock::now().time_since_epoch().count())) {}

  /// The place of a number in the range.
  int64_t draw() {
    constexpr double values = 4294967296.0;  // of the generator: the quotient stays below 1
    return static_cast<int64_t>(std::floor(static_cast<double>(generator_()) / values * static_cast<double>(size_)));
  }
  Variant number(int64_t place) const { return static_cast<int32_t>(least_ + place); }

 private:
  int64_t least_;
  int64_t size_;
  std::mt19937 generator_;
};

std::vector<Variant> draw_any(Urn& urn, size_t count) {
  std::vector<Variant> series;
  while (series.size() < count) {
    series.push_back(urn.number(urn.draw()));
    automation::yield_to_host();
  }
  return series;
}

std::vector<Variant> draw_distinct(Urn& urn, size_t count, int64_t size) {
  std::vector<Variant> series;
  std::vector<bool> used(static_cast<size_t>(size));
  while (series.size() < count) {
    const int64_t place = urn.draw();
    automation::yield_to_host();
    if (used[static_cast<size_t>(place)]) continue;
    used[static_cast<size_t>(place)] = true;
    series.push_back(urn.number(place));
  }
  return series;
}

}  // namespace

Array random_series(int32_t count, int32_t least, int32_t most, Repetition repetition) {
  const int64_t size = int64_t{most} - least + 1;
  if (count < 1 || size < 1) throw automation::subscript_out_of_range();
  if (count > most_random_numbers || size > largest_range) throw automation::out_of_memory();
  Urn urn(least, size);
  const auto numbers = static_cast<size_t>(count);
  return {automation::VariantKind::long_integer, 0,
          repetition == Repetition::allowed ? draw_any(urn, numbers) : draw_distinct(urn, numbers, size)};
}

namespace {

/// The first pass of a sort by exchanges. It looks at every element: one that is no number is met here, and what was
/// exchanged before it stays.
void exchange_once(std::vector<Variant>& items) {
  for (size_t i = 0; i + 1 < items.size(); ++i) {
    const int32_t number = automation::to_long(items[i]);
    if (number > automation::to_long(items[i + 1])) std::swap(items[i], items[i + 1]);
  }
}

}  // namespace

void sort_by_number(Variant& array) {
  if (array.is_object()) {
    Variant plain = automation::to_plain(array);
    sort_by_number(plain);
    array = std::move(plain);
    return;
  }
  auto* elements = array.get_if<Array>();
  if (!elements) throw automation::type_mismatch();
  if (elements->bounds().size() != 1) throw automation::subscript_out_of_range();
  std::vector<Variant>& items = elements->items();
  if (items.size() < 2) return;
  exchange_once(items);
  std::vector<std::pair<int32_t, size_t>> order;  // the number of each element, and where it was
  order.reserve(items.size());
  for (const Variant& item : items) order.emplace_back(automation::to_long(item), order.size());
  std::sort(order.begin(), order.end());
  std::vector<Variant> sorted;
  sorted.reserve(items.size());
  for (const auto& [number, place] : order) sorted.push_back(std::move(items[place]));
  items = std::move(sorted);
}

}  // namespace vestara
