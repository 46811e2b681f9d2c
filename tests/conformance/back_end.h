#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dorvane/connector.h"
#include "tests/support/random_archive.h"
#include "tests/support/temporary_folder.h"

namespace conformance {

/// The engines that the suite runs against.
enum class Engine { sqlite, postgresql, mariadb };

inline auto engines() { return testing::Values(Engine::sqlite, Engine::postgresql, Engine::mariadb); }
std::string engine_name(const testing::TestParamInfo<Engine>& info);

/// One fresh archive with its tables on one engine. A server is the one that VESTARA_TEST_POSTGRESQL or
/// VESTARA_TEST_MARIADB names, whose archive is given up; without it the test is skipped, or failed where
/// VESTARA_TEST_SERVERS is "required".
class BackEnd : public testing::TestWithParam<Engine> {
 protected:
  BackEnd();
  void SetUp() override;

  /// A further connection to the same archive.
  automation::Ref<dorvane::DbConnector> another() const;

  /// The rows of a statement as text, values joined by blanks; one line "refused" when it was.
  std::vector<std::string> rows(const std::string& statement);
  std::string one(const std::string& statement);
  bool execute(const std::string& statement) { return connector_->ExecuteSql(statement); }
  /// The archive becomes these draws.
  void store(const testing_support::Archive& archive);

  /// Only SQLite takes the list "IN()"; a server refuses the statement, which is an ordinary False.
  bool takes_empty_lists() const { return GetParam() == Engine::sqlite; }
  /// After a statement that fails, only PostgreSQL gives up the transaction it was in.
  bool keeps_failed_transactions() const { return GetParam() != Engine::postgresql; }
  /// A thousand archives, fewer on a server: what differs there are statements, and all of them are asked early.
  uint64_t seeds() const { return GetParam() == Engine::sqlite ? 1000 : 200; }

  testing_support::TemporaryFolder folder_;
  std::string url_;  ///< "" when there is no such server
  automation::Ref<dorvane::DbConnector> connector_;
};

}  // namespace conformance
