#pragma once  // installed

#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "automation/date.h"
#include "automation/export.h"
#include "automation/object.h"
#include "automation/ref.h"

namespace automation {

class Variant;

/// Holds no value yet.
struct Empty {
  bool operator==(const Empty&) const = default;
};
/// The unknown value of databases.
struct Null {
  bool operator==(const Null&) const = default;
};
/// An optional argument that the caller left out.
struct Missing {
  bool operator==(const Missing&) const = default;
};

/// The kinds of Variant, in the order of its storage.
enum class VariantKind : uint8_t {
  empty,
  null,
  missing,
  boolean,
  integer,       ///< 16 bits
  long_integer,  ///< 32 bits
  single,
  double_precision,
  date,
  text,
  object,
  array,
};

/// A typed array of values with a lower bound per dimension, as hosts index it. Copies are deep.
class AUTOMATION_API Array {
 public:
  struct Bound {
    int32_t lower = 0;
    int32_t count = 0;
    bool operator==(const Bound&) const = default;
  };

  Array();
  ~Array();
  Array(const Array&);
  Array(Array&&) noexcept;
  Array& operator=(const Array&);
  Array& operator=(Array&&) noexcept;

  /// One dimension holding `items`. `element` is the declared kind; `empty` means any.
  Array(VariantKind element, int32_t lower, std::vector<Variant> items);
  /// Any number of dimensions, every element Empty. The first index runs fastest.
  Array(VariantKind element, std::vector<Bound> bounds);

  VariantKind element() const { return element_; }
  const std::vector<Bound>& bounds() const { return bounds_; }
  /// Bounds of a dimension counted from 0. Error 9 when there is no such dimension.
  int32_t lower(size_t dimension = 0) const;
  int32_t upper(size_t dimension = 0) const;
  /// The element at one index per dimension. Error 9 when one is out of its bounds.
  Variant& at(std::span<const int32_t> indexes);
  const Variant& at(std::span<const int32_t> indexes) const;
  Variant& at(int32_t index);
  const Variant& at(int32_t index) const;
  std::vector<Variant>& items() { return items_; }
  const std::vector<Variant>& items() const { return items_; }

  bool operator==(const Array& other) const;

 private:
  VariantKind element_ = VariantKind::empty;
  std::vector<Bound> bounds_;
  std::vector<Variant> items_;
};

/// A value whose type is known at run time. Text is UTF-8. An empty object reference is "nothing".
class AUTOMATION_API Variant {
 public:
  using Storage =
      std::variant<Empty, Null, Missing, bool, int16_t, int32_t, float, double, Date, std::string, Ref<Object>, Array>;

  Variant() = default;
  Variant(Empty) {}
  Variant(Null value) : value_(value) {}
  Variant(Missing value) : value_(value) {}
  Variant(std::same_as<bool> auto value) : value_(value) {}
  Variant(int16_t value) : value_(value) {}
  Variant(int32_t value) : value_(value) {}
  Variant(float value) : value_(value) {}
  Variant(double value) : value_(value) {}
  Variant(Date value) : value_(value) {}
  Variant(std::string value) : value_(std::move(value)) {}
  Variant(std::string_view value) : value_(std::string(value)) {}
  Variant(const char* value) : value_(std::string(value)) {}
  Variant(Array value) : value_(std::move(value)) {}
  template <class T>
  Variant(Ref<T> object) : value_(Ref<Object>(std::move(object))) {}

  VariantKind kind() const { return static_cast<VariantKind>(value_.index()); }
  bool is_empty() const { return kind() == VariantKind::empty; }
  bool is_null() const { return kind() == VariantKind::null; }
  bool is_missing() const { return kind() == VariantKind::missing; }
  bool is_object() const { return kind() == VariantKind::object; }

  /// The value when it is exactly a `T`, else null.
  template <class T>
  const T* get_if() const {
    return std::get_if<T>(&value_);
  }
  template <class T>
  T* get_if() {
    return std::get_if<T>(&value_);
  }
  const Storage& storage() const { return value_; }

  /// Same kind and same value.
  bool operator==(const Variant& other) const = default;

 private:
  Storage value_;
};

}  // namespace automation
