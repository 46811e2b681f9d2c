#pragma once  // for hosts

#include <string>
#include <utility>

#include "automation/error.h"

namespace vestara {

using automation::FailureKind;

/// A run-time error that says what it is about. The text reads "what was wrong, where; what would be right"; further
/// lines may follow it.
class Failure : public automation::RunTimeError {
 public:
  Failure(FailureKind kind, std::string text) : automation::RunTimeError(automation::failure(kind, std::move(text))) {}
};

}  // namespace vestara
