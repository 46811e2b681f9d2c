#include "tests/support/values.h"

#include <charconv>

namespace testing_support {

using namespace automation;

namespace {

std::string shortest(double number) {
  char buffer[32];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr};
}

struct Describe {
  std::string operator()(Empty) const { return "Empty"; }
  std::string operator()(Null) const { return "Null"; }
  std::string operator()(Missing) const { return "Missing"; }
  std::string operator()(bool value) const { return value ? "True" : "False"; }
  std::string operator()(int16_t value) const { return "Integer " + std::to_string(value); }
  std::string operator()(int32_t value) const { return "Long " + std::to_string(value); }
  std::string operator()(float value) const { return "Single " + shortest(static_cast<double>(value)); }
  std::string operator()(double value) const { return "Double " + shortest(value); }
  std::string operator()(Date value) const { return "Date " + shortest(value.serial()); }
  std::string operator()(const std::string& value) const { return "text " + value; }
  std::string operator()(const Ref<Object>& value) const { return value ? "Object" : "Nothing"; }
  std::string operator()(const Array& value) const {
    std::string result = "Array";
    for (const auto& item : value.items()) result += " [" + describe(item) + "]";
    return result;
  }
};

}  // namespace

std::string describe(const Variant& value) { return std::visit(Describe{}, value.storage()); }

Date day(int32_t year, int32_t month, int32_t day) { return Date::from_civil(year, month, day).value(); }
Date moment(const CivilTime& parts) { return Date::from_civil(parts).value(); }

}  // namespace testing_support

namespace automation {

void PrintTo(const Variant& value, std::ostream* out) { *out << testing_support::describe(value); }

void PrintTo(const CivilTime& time, std::ostream* out) {
  *out << time.year << '-' << time.month << '-' << time.day << ' ' << time.hour << ':' << time.minute << ':'
       << time.second;
}

}  // namespace automation
