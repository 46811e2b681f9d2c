#include "automation/coercion.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "automation/error.h"
#include "automation/text.h"

namespace automation {
namespace {

/// The value that an object stands for: that of its default member, and so on while that is an object again. One
/// that leads nowhere within a few steps is error 13.
Variant plain_value(const Ref<Object>& object, int steps = 8) {
  if (!object) throw object_not_set();
  if (steps == 0) throw type_mismatch();
  Variant value = object->default_value();
  const auto* next = value.get_if<Ref<Object>>();
  return next ? plain_value(*next, steps - 1) : value;
}

/// Calls `read` with the plain value.
template <class Result, class Read>
Result read_plain(const Variant& value, Read read) {
  if (const auto* object = value.get_if<Ref<Object>>()) return std::visit(read, plain_value(*object).storage());
  return std::visit(read, value.storage());
}

/// What has no number: Null 94, everything else 13. The last overload of every reading below.
struct NotConvertible {
  template <class T>
  [[noreturn]] static void raise() {
    if constexpr (std::is_same_v<T, Null>) throw invalid_use_of_null();
    throw type_mismatch();
  }
};

struct ReadDouble {
  double operator()(Empty) const { return 0; }
  double operator()(bool value) const { return value ? -1 : 0; }
  double operator()(int16_t value) const { return value; }
  double operator()(int32_t value) const { return value; }
  double operator()(float value) const { return value; }
  double operator()(double value) const { return value; }
  double operator()(Date value) const { return value.serial(); }
  double operator()(const std::string& text) const {
    if (const auto number = parse_number(text)) return *number;
    throw type_mismatch();
  }
  template <class T>
  double operator()(const T&) const {
    NotConvertible::raise<T>();
  }
};

std::string shortest(double value, int digits) {
  if (value == 0) return "0";  // negative zero too
  std::array<char, 40> text{};
  char* const end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, digits).ptr;
  std::replace(text.data(), end, 'e', 'E');
  return {text.data(), end};
}

struct ReadText {
  std::string operator()(Empty) const { return {}; }
  std::string operator()(bool value) const { return value ? "True" : "False"; }
  std::string operator()(int16_t value) const { return std::to_string(value); }
  std::string operator()(int32_t value) const { return std::to_string(value); }
  std::string operator()(float value) const { return shortest(value, 7); }
  std::string operator()(double value) const { return number_to_text(value); }
  std::string operator()(Date value) const { return date_to_text(value); }
  std::string operator()(const std::string& text) const { return text; }
  template <class T>
  std::string operator()(const T&) const {
    NotConvertible::raise<T>();
  }
};

struct ReadBoolean {
  bool operator()(const std::string& text) const {
    if (equal_ignoring_case(text, "True")) return true;
    if (equal_ignoring_case(text, "False")) return false;
    return ReadDouble{}(text) != 0;
  }
  template <class T>
  bool operator()(const T& value) const {
    return ReadDouble{}(value) != 0;
  }
};

struct ReadDate {
  Date operator()(Date value) const { return value; }
  Date operator()(const std::string& text) const {
    if (const auto date = parse_date(text)) return *date;
    throw type_mismatch();
  }
  template <class T>
  Date operator()(const T& value) const {
    return Date::from_serial(ReadDouble{}(value));
  }
};

template <class Whole>
Whole round_to(double value) {
  const double nearest = std::nearbyint(value);  // the default rounding mode takes halves to even
  if (!(nearest >= std::numeric_limits<Whole>::min() && nearest <= std::numeric_limits<Whole>::max())) throw overflow();
  return static_cast<Whole>(nearest);
}

/// Length of the decimal number at the front: digits with at most one point and an exponent that has digits.
size_t number_length(std::string_view text) {
  size_t end = 0;
  size_t digits = 0;
  const auto take_digits = [&] {
    for (; end < text.size() && is_digit(text[end]); ++end) ++digits;
  };
  if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
  take_digits();
  if (end < text.size() && text[end] == '.') {
    ++end;
    take_digits();
  }
  if (digits == 0) return 0;
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    const size_t mantissa = end++;
    if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
    const size_t exponent = end;
    take_digits();
    if (end == exponent) end = mantissa;
  }
  return end;
}

double decimal_value(std::string_view number) {
  if (!number.empty() && number.front() == '+') number.remove_prefix(1);
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    // Too small rounds to nothing, too large is an error: the exponent's sign tells which.
    const auto exponent = number.find_first_of("eE");
    if (exponent != std::string_view::npos && number[exponent + 1] == '-') return 0;
    throw overflow();
  }
  return value;
}

}  // namespace

int16_t to_integer(const Variant& value) {
  if (const auto* plain = value.get_if<int16_t>()) return *plain;
  return round_to<int16_t>(to_double(value));
}

int32_t to_long(const Variant& value) {
  if (const auto* plain = value.get_if<int32_t>()) return *plain;
  return round_to<int32_t>(to_double(value));
}

float to_single(const Variant& value) {
  const double wide = to_double(value);
  if (std::fabs(wide) > std::numeric_limits<float>::max()) throw overflow();
  return static_cast<float>(wide);
}

double to_double(const Variant& value) { return read_plain<double>(value, ReadDouble{}); }
bool to_boolean(const Variant& value) { return read_plain<bool>(value, ReadBoolean{}); }
std::string to_text(const Variant& value) { return read_plain<std::string>(value, ReadText{}); }
Date to_date(const Variant& value) { return read_plain<Date>(value, ReadDate{}); }

Variant to_plain(const Variant& value) {
  const auto* object = value.get_if<Ref<Object>>();
  return object ? plain_value(*object) : value;
}

std::optional<Date> date_in(const Variant& value) {
  if (const auto* date = value.get_if<Date>()) return *date;
  if (const auto* text = value.get_if<std::string>()) return parse_date(*text);
  if (const auto* object = value.get_if<Ref<Object>>(); object && *object) return date_in(plain_value(*object));
  return std::nullopt;
}

bool is_numeric(const Variant& value) {
  if (const auto* object = value.get_if<Ref<Object>>()) return *object && is_numeric(plain_value(*object));
  switch (value.kind()) {
    case VariantKind::empty:
    case VariantKind::boolean:
    case VariantKind::integer:
    case VariantKind::long_integer:
    case VariantKind::single:
    case VariantKind::double_precision:
      return true;
    case VariantKind::text:
      return parse_number(*value.get_if<std::string>()).has_value();
    default:
      return false;
  }
}

std::optional<double> parse_number(std::string_view text) {
  const std::string_view number = trim(text);
  if (number.empty() || number_length(number) != number.size()) return std::nullopt;
  return decimal_value(number);
}

int16_t leading_number(std::string_view text) {
  const auto start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return 0;
  text.remove_prefix(start);
  const bool negative = text.front() == '-';
  if (negative || text.front() == '+') text.remove_prefix(1);
  int32_t value = 0;
  for (; !text.empty() && is_digit(text.front()); text.remove_prefix(1)) {
    value = value * 10 + (text.front() - '0');
    if (value > std::numeric_limits<int16_t>::max() + (negative ? 1 : 0)) throw overflow();
  }
  return static_cast<int16_t>(negative ? -value : value);
}

double leading_double(std::string_view text) {
  const auto start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return 0;
  text.remove_prefix(start);
  const size_t length = number_length(text);
  return length == 0 ? 0 : decimal_value(text.substr(0, length));
}

int16_t round_to_integer(double value) { return round_to<int16_t>(value); }
int32_t round_to_long(double value) { return round_to<int32_t>(value); }
std::string number_to_text(double value) { return shortest(value, 15); }

}  // namespace automation
