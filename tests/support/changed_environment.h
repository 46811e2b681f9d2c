#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace testing_support {

/// A variable of the environment with another value, or none, as long as one lives.
class ChangedEnvironment {
 public:
  ChangedEnvironment(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    set(value);
  }
  ChangedEnvironment(const ChangedEnvironment&) = delete;
  ChangedEnvironment& operator=(const ChangedEnvironment&) = delete;
  ~ChangedEnvironment() { set(before_); }

 private:
  void set(const std::optional<std::string>& value) const {
#ifdef _WIN32
    ::_putenv_s(name_, value ? value->c_str() : "");
#else
    value ? ::setenv(name_, value->c_str(), 1) : ::unsetenv(name_);
#endif
  }

  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace testing_support
