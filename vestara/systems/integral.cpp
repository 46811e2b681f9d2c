#include "vestara/systems/integral.h"

#include "automation/error.h"
#include "automation/int16.h"
#include "automation/yield.h"
#include "vestara/foundation/combination_lines.h"
#include "vestara/foundation/combination_walk.h"

namespace vestara {
namespace {

constexpr int32_t mask_bits = 32;

/// The line of one combination, rewritten from the first item that changes.
class Line {
 public:
  Line(std::span<const std::string_view> items, size_t chosen) : items_(items), ends_(chosen) {}

  const std::string& write(std::span<const int32_t> places, size_t from) {
    text_.resize(from == 0 ? 0 : ends_[from - 1]);
    for (size_t i = from; i < places.size(); ++i) {
      if (i > 0) text_ += ',';
      text_ += items_[static_cast<size_t>(places[i] - 1)];
      ends_[i] = text_.size();
    }
    return text_;
  }

 private:
  std::span<const std::string_view> items_;
  std::vector<size_t> ends_;
  std::string text_;
};

/// Bytes of all lines: every item stands in the same share of them.
size_t size_of_lines(std::span<const std::string_view> items, size_t chosen, size_t count) {
  size_t bytes = 0;
  for (const std::string_view item : items) bytes += item.size();
  return bytes * (count * chosen / items.size()) + count * (chosen - 1 + line_break.size());
}

}  // namespace

double integral_count(int16_t items, int16_t chosen) {
  double product = 0;
  int32_t factorial = 1;
  automation::Int16 factor = items;
  for (int32_t i = 1; i <= chosen; ++i) {
    product = i == 1 ? factor.value() : product * factor.value();
    --factor;
    factorial = automation::checked_long(int64_t{factorial} * i);
  }
  return product / factorial;
}

std::string integral_lines(std::span<const std::string_view> items, int16_t chosen, int32_t count) {
  const auto size = static_cast<size_t>(chosen);
  std::string lines;
  lines.reserve(size_of_lines(items, size, static_cast<size_t>(count)));
  CombinationWalk walk(static_cast<int32_t>(items.size()), chosen);
  Line line(items, size);
  do {
    lines.append(line.write(walk.places(), walk.changed_from())).append(line_break);
    automation::yield_to_host();
  } while (walk.advance());
  lines.resize(lines.size() - line_break.size());
  return lines;
}

std::vector<uint32_t> integral_masks(int16_t items, int16_t chosen) {
  if (items > mask_bits || chosen < 1 || chosen > items) throw automation::subscript_out_of_range();
  std::vector<uint32_t> masks;
  CombinationWalk walk(items, chosen);
  do {
    uint32_t mask = 0;
    for (const int32_t place : walk.places()) mask |= uint32_t{1} << (place - 1);
    masks.push_back(mask);
  } while (walk.advance());
  return masks;
}

}  // namespace vestara
