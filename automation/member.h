#pragma once  // installed

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/in_out.h"
#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"

// The surface of a class as a table: one constexpr row per member, in interface order. Types, arity and
// write-back of a row come from the C++ signature; names, optional flags, defaults and help are written in it. A
// parameter that takes a value, a Variant too, gets the plain value of an object: a member never sees the object itself
// unless its parameter is an object.

namespace automation {

enum class MemberKind : uint8_t { method, get, put, putref };

/// Declared types of parameters and results.
enum class ValueType : uint8_t {
  nothing,
  variant,
  boolean,
  integer,
  long_integer,
  single,
  double_precision,
  date,
  text,
  object,
  array,
};

enum class Passing : uint8_t { by_reference, by_value };

/// The value of an optional parameter that the caller left out. `missing` leaves it Missing.
struct DefaultValue {
  VariantKind kind = VariantKind::missing;
  int32_t number = 0;
  std::string_view text;

  Variant value() const {
    switch (kind) {
      case VariantKind::boolean:
        return Variant(number != 0);
      case VariantKind::integer:
        return Variant(static_cast<int16_t>(number));
      case VariantKind::long_integer:
        return Variant(number);
      case VariantKind::text:
        return Variant(text);
      default:
        return Variant(Missing{});
    }
  }
};

struct Parameter {
  std::string_view name;
  ValueType type = ValueType::variant;
  std::string_view class_name;  ///< of an object parameter
  bool optional = false;
  bool missable = false;  ///< not optional in the interface, yet a call may leave it out
  DefaultValue default_value;
  Passing passing = Passing::by_reference;  ///< as the interface declares it
  bool writes_back = false;                 ///< a call may change the caller's variable
};

/// Parameters of a row. The type is filled in from the signature.
constexpr Parameter parameter(std::string_view name) { return {.name = name}; }
constexpr Parameter optional(std::string_view name) { return {.name = name, .optional = true}; }
constexpr Parameter optional(std::string_view name, bool value) {
  return {.name = name, .optional = true, .default_value = {VariantKind::boolean, value ? 1 : 0, {}}};
}
constexpr Parameter optional(std::string_view name, int32_t value) {
  return {.name = name, .optional = true, .default_value = {VariantKind::long_integer, value, {}}};
}
constexpr Parameter optional(std::string_view name, const char* value) {
  return {.name = name, .optional = true, .default_value = {VariantKind::text, 0, value}};
}
constexpr Parameter by_value(Parameter row) {
  row.passing = Passing::by_value;
  return row;
}

constexpr Parameter missable(Parameter row) {
  row.missable = true;
  return row;
}

inline constexpr size_t most_parameters = 10;

struct Member {
  using Thunk = Variant (*)(Object& self, std::span<Variant> arguments);

  int32_t id = 0;  ///< 0 is the default member; the rows of one property share their id
  MemberKind kind = MemberKind::method;
  std::string_view name;
  std::array<Parameter, most_parameters> parameter_rows{};
  uint8_t parameter_count = 0;
  ValueType result = ValueType::nothing;
  std::string_view result_class;  ///< of an object result
  std::string_view help;
  Thunk thunk = nullptr;  ///< runs the member; takes one Variant per parameter and converts it in place

  std::span<const Parameter> parameters() const { return {parameter_rows.data(), parameter_count}; }
};

struct Event {
  int32_t id = 0;
  std::string_view name;
  std::array<Parameter, 2> parameter_rows{};
  uint8_t parameter_count = 0;
  std::string_view help;

  std::span<const Parameter> parameters() const { return {parameter_rows.data(), parameter_count}; }
};

/// Everything that a surface says about one class.
struct ClassDescription {
  std::string_view library;          ///< the first half of the programmatic identifier: "Library" of "Library.Reader"
  std::string_view name;             ///< the other half: "Reader"
  std::string_view interface_name;   ///< "_Reader"
  std::string_view event_interface;  ///< "__Reader", empty when the class raises no events
  std::string_view help;
  std::optional<int32_t> first_item;  ///< of a collection, which has Count, and Item by default: its first index
  std::span<const Member> members;
  std::span<const Event> events;

  /// "Library.Reader"; of an object of the host, which has no library, its name alone.
  std::string identifier() const {
    return library.empty() ? std::string(name) : std::string(library).append(".").append(name);
  }
};

/// How an object that is no `T` can serve as one. By default it cannot; a class that wraps foreign objects
/// specialises this.
template <class T>
struct Adapter {
  static Ref<T> adapt(const Ref<Object>&) { return {}; }
};

namespace detail {

/// How a C++ type stands in a surface. Classes that are handed over late-bound give their contract name.
template <class T>
struct TypeOf;
template <ValueType Type>
struct PlainType {
  static constexpr ValueType type = Type;
  static constexpr std::string_view class_name{};
};
template <>
struct TypeOf<void> : PlainType<ValueType::nothing> {};
template <>
struct TypeOf<Variant> : PlainType<ValueType::variant> {};
template <>
struct TypeOf<bool> : PlainType<ValueType::boolean> {};
template <>
struct TypeOf<int16_t> : PlainType<ValueType::integer> {};
template <>
struct TypeOf<int32_t> : PlainType<ValueType::long_integer> {};
template <>
struct TypeOf<float> : PlainType<ValueType::single> {};
template <>
struct TypeOf<double> : PlainType<ValueType::double_precision> {};
template <>
struct TypeOf<Date> : PlainType<ValueType::date> {};
template <>
struct TypeOf<std::string> : PlainType<ValueType::text> {};
template <>
struct TypeOf<Array> : PlainType<ValueType::array> {};
template <class T>
struct TypeOf<Ref<T>> {
  static constexpr ValueType type = ValueType::object;
  static constexpr std::string_view class_name = T::contract_name;
};
template <>
struct TypeOf<Ref<Object>> : PlainType<ValueType::object> {};

template <class T>
T convert(const Variant& value) {
  if constexpr (std::is_same_v<T, Variant>)
    return to_plain(value);
  else if constexpr (std::is_same_v<T, bool>)
    return to_boolean(value);
  else if constexpr (std::is_same_v<T, int16_t>)
    return to_integer(value);
  else if constexpr (std::is_same_v<T, int32_t>)
    return to_long(value);
  else if constexpr (std::is_same_v<T, float>)
    return to_single(value);
  else if constexpr (std::is_same_v<T, double>)
    return to_double(value);
  else if constexpr (std::is_same_v<T, Date>)
    return to_date(value);
  else if constexpr (std::is_same_v<T, std::string>)
    return to_text(value);
  else if constexpr (std::is_same_v<T, Array>) {
    if (const auto* array = value.get_if<Array>()) return *array;
    if (value.is_empty()) return {};  // an array that was not dimensioned yet
    if (value.is_object()) return convert<Array>(to_plain(value));
    throw type_mismatch();
  } else {
    return T::from(value);
  }
}

template <class T>
Ref<T> convert_object(const Variant& value) {
  const auto* object = value.get_if<Ref<Object>>();
  if (!object) throw type_mismatch();
  Ref<T> result = cast<T>(*object);
  if (*object && !result) result = Adapter<T>::adapt(*object);
  if (*object && !result) throw type_mismatch();
  return result;
}

/// A result on its way out: a wrapper around a host's object leaves as that object.
template <class T>
Variant outgoing(T&& value) {
  return Variant(std::forward<T>(value));
}
template <class T>
Variant outgoing(Ref<T>&& object) {
  return object ? Variant(object->host_object()) : Variant(Ref<Object>());
}

/// One argument on its way into a member and back.
template <class T>
class Argument {
 public:
  static constexpr bool writes_back = false;
  using Type = TypeOf<T>;
  explicit Argument(Variant& given) : value_(convert<T>(given)) {}
  T value() { return std::move(value_); }
  void write_back() {}

 private:
  T value_;
};
template <class T>
class Argument<Ref<T>> {
 public:
  static constexpr bool writes_back = false;
  using Type = TypeOf<Ref<T>>;
  explicit Argument(Variant& given) : value_(convert_object<T>(given)) {}
  Ref<T> value() { return value_; }
  void write_back() {}

 private:
  Ref<T> value_;
};
template <class T>
class Argument<const Ref<T>&> : public Argument<Ref<T>> {
 public:
  using Argument<Ref<T>>::Argument;
};
template <>
class Argument<const Variant&> {
 public:
  static constexpr bool writes_back = false;
  using Type = TypeOf<Variant>;
  explicit Argument(Variant& given) : given_(given) {
    if (given.is_object()) plain_ = to_plain(given);
  }
  const Variant& value() { return given_.is_object() ? plain_ : given_; }
  void write_back() {}

 private:
  const Variant& given_;
  Variant plain_;
};
template <>
class Argument<const std::string&> {
 public:
  static constexpr bool writes_back = false;
  using Type = TypeOf<std::string>;
  explicit Argument(Variant& given) : direct_(given.get_if<std::string>()) {
    if (!direct_) own_ = to_text(given);
  }
  const std::string& value() { return direct_ ? *direct_ : own_; }
  void write_back() {}

 private:
  std::string own_;
  const std::string* direct_;
};
template <>
class Argument<std::string_view> {
 public:
  static constexpr bool writes_back = false;
  using Type = TypeOf<std::string>;
  explicit Argument(Variant& given) : text_(given) {}
  std::string_view value() { return text_.value(); }
  void write_back() {}

 private:
  Argument<const std::string&> text_;
};
/// An object that the member hands out or takes back. What the caller's variable held before does not matter
/// unless it is such an object.
template <class T>
class Argument<Ref<T>&> {
 public:
  static constexpr bool writes_back = true;
  using Type = TypeOf<Ref<T>>;
  explicit Argument(Variant& given) : given_(given) {
    if (const auto* object = given.get_if<Ref<Object>>()) value_ = cast<T>(*object);
  }
  Ref<T>& value() { return value_; }
  void write_back() { given_ = outgoing(Ref<T>(value_)); }

 private:
  Variant& given_;
  Ref<T> value_;
};
template <class T>
class Argument<InOut<T>> {
 public:
  static constexpr bool writes_back = true;
  using Type = TypeOf<T>;
  explicit Argument(Variant& given) : given_(given), value_(convert<T>(given)), before_(value_) {}
  InOut<T> value() { return InOut<T>(value_); }
  /// The caller's variable keeps its type as long as its value did not change; a flag comes back as what ran.
  void write_back() {
    if (std::is_same_v<T, bool> || !(value_ == before_)) given_ = Variant(std::move(value_));
  }

 private:
  Variant& given_;
  T value_;
  T before_;
};

template <class Class, auto Function, class Result, class... Arguments, size_t... Index>
Variant invoke_member(Object& self, [[maybe_unused]] std::span<Variant> given, std::index_sequence<Index...>) {
  auto& object = static_cast<Class&>(self);
  std::tuple<Argument<Arguments>...> arguments{Argument<Arguments>(given[Index])...};
  const auto write_back = [&] { (std::get<Index>(arguments).write_back(), ...); };
  try {
    if constexpr (std::is_void_v<Result>) {
      (object.*Function)(std::get<Index>(arguments).value()...);
      write_back();
      return {};
    } else {
      Variant result = outgoing((object.*Function)(std::get<Index>(arguments).value()...));
      write_back();
      return result;
    }
  } catch (...) {
    // A variable passed by reference holds what the member left in it, by whatever way the member ends.
    write_back();
    throw;
  }
}

template <class Class, auto Function, class Result, class... Arguments>
struct Signature {
  static Variant thunk(Object& self, std::span<Variant> given) {
    return invoke_member<Class, Function, Result, Arguments...>(self, given, std::index_sequence_for<Arguments...>{});
  }
  template <class... Rows>
  static consteval Member row(int32_t id, MemberKind kind, std::string_view name, std::string_view help, Rows... rows) {
    static_assert(sizeof...(Rows) == sizeof...(Arguments), "one parameter row per parameter of the signature");
    Member member{.id = id,
                  .kind = kind,
                  .name = name,
                  .result = TypeOf<Result>::type,
                  .result_class = TypeOf<Result>::class_name,
                  .help = help,
                  .thunk = &thunk};
    [[maybe_unused]] size_t place = 0;
    ((rows.type = Argument<Arguments>::Type::type, rows.class_name = Argument<Arguments>::Type::class_name,
      rows.writes_back = Argument<Arguments>::writes_back, member.parameter_rows[place++] = rows),
     ...);
    member.parameter_count = sizeof...(Rows);
    return member;
  }
};

template <class Class, auto Function>
struct Deduce;
template <class Class, class Base, class Result, class... Arguments, Result (Base::*Function)(Arguments...)>
struct Deduce<Class, Function> : Signature<Class, Function, Result, Arguments...> {};
template <class Class, class Base, class Result, class... Arguments, Result (Base::*Function)(Arguments...) const>
struct Deduce<Class, Function> : Signature<Class, Function, Result, Arguments...> {};

}  // namespace detail

/// The rows of a property that can be read and assigned.
using PropertyRows = std::array<Member, 2>;

namespace detail {

/// How a setter takes its value.
template <class Value>
struct Assigned {
  using Type = Value;
  static constexpr MemberKind kind = MemberKind::put;
};
template <class Value>
requires(std::is_same_v<Value, std::string> || std::is_same_v<Value, Variant>) struct Assigned<Value> {
  using Type = const Value&;
  static constexpr MemberKind kind = MemberKind::put;
};
template <class Class>
struct Assigned<Ref<Class>> {
  using Type = Ref<Class>;
  static constexpr MemberKind kind = MemberKind::putref;
};

template <class Part>
inline constexpr size_t rows_in = 1;
template <>
inline constexpr size_t rows_in<PropertyRows> = std::tuple_size_v<PropertyRows>;

}  // namespace detail

/// The table of a class: its rows in interface order, each property with its two.
template <class... Parts>
consteval auto member_rows(const Parts&... parts) {
  std::array<Member, (detail::rows_in<Parts> + ...)> rows;
  auto place = rows.begin();
  const auto add = [&](const auto& part) {
    if constexpr (std::is_same_v<std::remove_cvref_t<decltype(part)>, Member>)
      *place++ = part;
    else
      for (const Member& row : part) *place++ = row;
  };
  (add(parts), ...);
  return rows;
}

/// Builds the rows of one class:
///   using row = Rows<Reader>;
///   constexpr auto rows = member_rows(
///       row::property<int16_t, &Reader::Size, &Reader::Size>(1, "Size", "How many there are."),
///       row::method<&Reader::Next>(2, "Next", "The next one, as text."));
template <class Class>
struct Rows {
  template <auto Function, class... Parameters>
  static consteval Member method(int32_t id, std::string_view name, std::string_view help, Parameters... rows) {
    return detail::Deduce<Class, Function>::row(id, MemberKind::method, name, help, rows...);
  }
  /// A read-only property, with parameters when it is indexed.
  template <auto Function, class... Parameters>
  static consteval Member read_only(int32_t id, std::string_view name, std::string_view help, Parameters... rows) {
    return detail::Deduce<Class, Function>::row(id, MemberKind::get, name, help, rows...);
  }
  /// A property: how it is read, then how it is assigned, an object by reference. Both say `help` unless the assignment
  /// has words of its own.
  template <class Value, Value (Class::*Read)() const, void (Class::*Assign)(typename detail::Assigned<Value>::Type)>
  static consteval PropertyRows property(int32_t id, std::string_view name, std::string_view help,
                                         std::string_view help_of_assignment = {}) {
    return {get<Value, Read>(id, name, help),
            assignment<Value, Assign>(id, name, help_of_assignment.empty() ? help : help_of_assignment)};
  }
  /// The same where the interface lists the assignment first.
  template <class Value, Value (Class::*Read)() const, void (Class::*Assign)(typename detail::Assigned<Value>::Type)>
  static consteval PropertyRows assigned_property(int32_t id, std::string_view name, std::string_view help) {
    return {assignment<Value, Assign>(id, name, help), get<Value, Read>(id, name, help)};
  }
  /// A property that is only read, where the name has two functions.
  template <class Value, Value (Class::*Function)() const>
  static consteval Member get(int32_t id, std::string_view name, std::string_view help) {
    return detail::Signature<Class, Function, Value>::row(id, MemberKind::get, name, help);
  }
  /// A property that is only assigned: a value, or an object by reference.
  template <class Value, void (Class::*Function)(Value)>
  static consteval Member put(int32_t id, std::string_view name, std::string_view help) {
    return detail::Signature<Class, Function, void, Value>::row(id, MemberKind::put, name, help, parameter("value"));
  }
  template <class Value, void (Class::*Function)(Value)>
  static consteval Member putref(int32_t id, std::string_view name, std::string_view help) {
    return detail::Signature<Class, Function, void, Value>::row(id, MemberKind::putref, name, help, parameter("value"));
  }

 private:
  template <class Value, void (Class::*Assign)(typename detail::Assigned<Value>::Type)>
  static consteval Member assignment(int32_t id, std::string_view name, std::string_view help) {
    using Assigned = detail::Assigned<Value>;
    return detail::Signature<Class, Assign, void, typename Assigned::Type>::row(id, Assigned::kind, name, help,
                                                                                parameter("value"));
  }
};

}  // namespace automation
