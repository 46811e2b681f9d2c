#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dorvane/connector.h"
#include "tests/support/random_archive.h"
#include "tests/support/temporary_folder.h"

namespace conformance {

/// The engines that the suite runs against.
enum class Engine { sqlite };

std::string engine_name(const testing::TestParamInfo<Engine>& info);

/// One fresh archive with its tables on one engine.
class BackEnd : public testing::TestWithParam<Engine> {
 protected:
  BackEnd();

  /// A further connection to the same archive.
  automation::Ref<dorvane::DbConnector> another() const;

  /// The rows of a statement as text, values joined by blanks; one line "refused" when it was.
  std::vector<std::string> rows(const std::string& statement);
  std::string one(const std::string& statement);
  bool execute(const std::string& statement) { return connector_->ExecuteSql(statement); }
  /// The archive becomes these draws.
  void store(const testing_support::Archive& archive);

  testing_support::TemporaryFolder folder_;
  automation::Ref<dorvane::DbConnector> connector_;
};

}  // namespace conformance
