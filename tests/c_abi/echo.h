#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "automation/c_abi/automation.h"

// A host of the C interface with an object of its own.

namespace c_abi {

/// A value that is given back.
struct Value : au_value {
  Value() : au_value{} {}
  ~Value() { au_clear(this); }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
};

inline au_value number(int32_t kind, int32_t n) {
  au_value value{};
  value.kind = kind;
  value.as.number = n;
  return value;
}

inline au_value real(int32_t kind, double n) {
  au_value value{};
  value.kind = kind;
  value.as.real = n;
  return value;
}

/// A host's object that gives its only argument back, in the argument and as the result.
struct Echo {
  int destroyed = 0;
};

inline au_status echo_id(void*, const char* member, size_t length, int32_t* id) {
  *id = 5;
  return std::string(member, length) == "Echo" ? AU_OK : AU_RAISED;
}
inline au_status echo_invoke(void*, int32_t, au_invoke_kind, au_value* arguments, size_t count, const char* const*,
                             size_t, au_value* result) {
  if (count == 0) return AU_RAISED;  // without au_raise
  if (arguments[0].kind == AU_LONG && arguments[0].as.number == 13) {
    au_raise(1234, "thirteen", "Echo");
    return AU_RAISED;
  }
  *result = arguments[0];
  arguments[0] = au_value{};
  return AU_OK;
}
inline void echo_destroy(void* host) { ++static_cast<Echo*>(host)->destroyed; }
inline const au_host_class echo_class{AU_ABI_VERSION, echo_id, echo_invoke, echo_destroy};

class CAbi : public testing::Test {
 protected:
  CAbi() { EXPECT_EQ(au_create_host_object(&echo_class, &echo_, &object_), AU_OK); }
  ~CAbi() override {
    if (object_) au_release(object_);
    EXPECT_EQ(echo_.destroyed, 1);
  }
  au_status echo(au_value& argument, au_value& result) {
    return au_call(object_, "Echo", AU_METHOD, &argument, 1, &result);
  }

  Echo echo_;
  au_object* object_ = nullptr;
};

}  // namespace c_abi
