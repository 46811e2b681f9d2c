#include "automation/variant.h"

#include <utility>

#include "automation/error.h"

namespace automation {

static_assert(std::variant_size_v<Variant::Storage> == static_cast<size_t>(VariantKind::array) + 1);

Array::Array() = default;
Array::~Array() = default;
Array::Array(const Array&) = default;
Array::Array(Array&&) noexcept = default;
Array& Array::operator=(const Array&) = default;
Array& Array::operator=(Array&&) noexcept = default;

Array::Array(VariantKind element, int32_t lower, std::vector<Variant> items)
    : element_(element), bounds_{{lower, static_cast<int32_t>(items.size())}}, items_(std::move(items)) {}

Array::Array(VariantKind element, std::vector<Bound> bounds) : element_(element), bounds_(std::move(bounds)) {
  size_t count = bounds_.empty() ? 0 : 1;
  for (const Bound& bound : bounds_) count *= static_cast<size_t>(bound.count);
  items_.resize(count);
}

int32_t Array::lower(size_t dimension) const {
  if (dimension >= bounds_.size()) throw subscript_out_of_range();
  return bounds_[dimension].lower;
}

int32_t Array::upper(size_t dimension) const {
  if (dimension >= bounds_.size()) throw subscript_out_of_range();
  return bounds_[dimension].lower + bounds_[dimension].count - 1;
}

const Variant& Array::at(std::span<const int32_t> indexes) const {
  if (bounds_.empty() || indexes.size() != bounds_.size()) throw subscript_out_of_range();
  size_t place = 0;
  for (size_t i = bounds_.size(); i-- > 0;) {
    const int64_t offset = int64_t{indexes[i]} - bounds_[i].lower;
    if (offset < 0 || offset >= bounds_[i].count) throw subscript_out_of_range();
    place = place * static_cast<size_t>(bounds_[i].count) + static_cast<size_t>(offset);
  }
  return items_[place];
}

Variant& Array::at(std::span<const int32_t> indexes) { return const_cast<Variant&>(std::as_const(*this).at(indexes)); }

Variant& Array::at(int32_t index) { return at(std::span<const int32_t>(&index, 1)); }
const Variant& Array::at(int32_t index) const { return at(std::span<const int32_t>(&index, 1)); }

bool Array::operator==(const Array& other) const {
  return element_ == other.element_ && bounds_ == other.bounds_ && items_ == other.items_;
}

}  // namespace automation
