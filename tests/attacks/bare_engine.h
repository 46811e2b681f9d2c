#pragma once

#include <memory>
#include <string>

#include "tests/conformance/back_end.h"

namespace attacks {

/// An engine by its own client, under the modes that a connection of ours sets and without the statement guard.
class BareEngine {
 public:
  virtual ~BareEngine() = default;
  /// The values of the first row, a bar behind each; "refused" for a statement that the engine does not take.
  virtual std::string answer(const std::string& statement) = 0;
};

std::unique_ptr<BareEngine> bare_engine(conformance::Engine engine, const std::string& url);

}  // namespace attacks
