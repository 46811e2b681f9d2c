#include <string>
#include <type_traits>
#include <vector>

#include "automation/c_abi/convert.h"
#include "automation/c_abi/failure.h"
#include "automation/error.h"

namespace automation::c_abi {
namespace {

VariantKind element_kind(au_kind kind) {
  if (kind < AU_EMPTY || kind > AU_ARRAY) throw Misuse{AU_BAD_ARGUMENT, "an unknown kind of element"};
  return static_cast<VariantKind>(kind);
}

Variant& element(Array& array, size_t place) {
  if (place >= array.items().size()) throw subscript_out_of_range();
  return array.items()[place];
}

/// Calls `take` for `count` elements from `first`, `stride` apart.
template <class Take>
void walk(const Array& array, size_t first, size_t stride, size_t count, Take take) {
  if (count == 0) return;
  const size_t size = array.items().size();
  if (stride == 0 || first >= size || (count - 1) > (size - 1 - first) / stride) throw subscript_out_of_range();
  for (size_t i = 0; i < count; ++i) take(i, array.items()[first + i * stride]);
}

struct NumberIn {
  double operator()(bool value) const { return value ? 1 : 0; }
  double operator()(Date value) const { return value.serial(); }
  template <class T>
  double operator()(const T& value) const {
    if constexpr (std::is_arithmetic_v<T>)
      return static_cast<double>(value);
    else
      return 0;
  }
};

}  // namespace
}  // namespace automation::c_abi

using namespace automation::c_abi;

au_status au_make_array(au_value* value, au_kind element, const au_bound* bounds, size_t dimensions) {
  return guarded([&] {
    std::vector<automation::Array::Bound> sizes;
    int64_t total = 1;
    for (size_t i = 0; i < dimensions; ++i) {
      const au_bound& bound = (&required(bounds))[i];
      if (bound.count < 0) throw automation::subscript_out_of_range();
      total *= bound.count;
      if (total > INT32_MAX) throw automation::out_of_memory();
      sizes.push_back({bound.lower, bound.count});
    }
    to_value(automation::Variant(automation::Array(element_kind(element), sizes)), required(value));
  });
}

au_status au_array_shape(const au_value* array, size_t* dimensions, au_bound* bounds, size_t room, size_t* count) {
  return guarded([&] {
    const automation::Array& source = array_of(required(array));
    if (dimensions) *dimensions = source.bounds().size();
    for (size_t i = 0; bounds && i < room && i < source.bounds().size(); ++i)
      bounds[i] = {source.bounds()[i].lower, source.bounds()[i].count};
    if (count) *count = source.items().size();
  });
}

au_status au_array_get(const au_value* array, size_t place, au_value* element_out) {
  return guarded([&] { to_value(element(array_of(required(array)), place), required(element_out)); });
}

au_status au_array_put(au_value* array, size_t place, const au_value* element_in) {
  return guarded([&] { element(array_of(required(array)), place) = from_value(required(element_in)); });
}

au_status au_array_numbers(const au_value* array, size_t first, size_t stride, size_t count, double* numbers,
                           uint8_t* kinds) {
  return guarded([&] {
    walk(array_of(required(array)), first, stride, count, [&](size_t i, const automation::Variant& value) {
      if (numbers) numbers[i] = std::visit(NumberIn{}, value.storage());
      if (kinds) kinds[i] = static_cast<uint8_t>(value.kind());
    });
  });
}

au_status au_array_texts(const au_value* array, size_t first, size_t stride, size_t count, au_value* joined,
                         size_t* lengths) {
  return guarded([&] {
    std::string all;
    walk(array_of(required(array)), first, stride, count, [&](size_t i, const automation::Variant& value) {
      const auto* text = value.get_if<std::string>();
      if (text) all += *text;
      if (lengths) lengths[i] = text ? text->size() : 0;
    });
    to_value(automation::Variant(std::move(all)), required(joined));
  });
}
