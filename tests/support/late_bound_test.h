#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/object.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"

namespace testing_support {

/// One object of a contract class whose members are called by name.
template <class Contract>
class LateBoundTest : public testing::Test {
 protected:
  /// What the call gave, or its error.
  std::string call(std::string_view member, std::vector<automation::Variant> arguments,
                   const std::vector<std::string_view>& names = {}) {
    given_ = std::move(arguments);
    return outcome([&] { return object_.call(member, automation::InvokeKind::method, given_, names); });
  }

  LogCapture log_;
  Contract object_;
  std::vector<automation::Variant> given_;  ///< as the last call left them
};

}  // namespace testing_support
