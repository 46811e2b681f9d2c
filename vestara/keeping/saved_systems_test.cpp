#include "vestara/keeping/saved_systems.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/support/connectors.h"
#include "tests/support/values.h"
#include "vestara/keeping/catalogue_text.h"

namespace vestara {
namespace {

using automation::make;
using testing_support::error_of;
using testing_support::FailingConnector;
using testing_support::FailurePlan;
using testing_support::is_refused;
using Calls = std::vector<std::string>;

constexpr SystemHeader header{"Ambo", "in due", "5,12,33", 3, 2, 1, 2};
constexpr std::array<std::string_view, 2> combinations{"1,2", "1,3"};

class SavedSystems : public testing::Test {
 protected:
  SavedSystems() { scripted_->max_ids["tSistemi.idSis"] = 4; }

  automation::Ref<testing_support::ScriptedConnector> scripted_ = make<testing_support::ScriptedConnector>();
  automation::Ref<testing_support::RecordingConnector> recorder_ = make<testing_support::RecordingConnector>(scripted_);
};

TEST_F(SavedSystems, AreStoredUnderTheNextNumber) {
  const Calls storing{"GetMaxId tSistemi idSis", "ExecuteSql " + system_insert_statement(5, header),
                      "ExecuteSql " + combination_insert_statement(5, "1,2"),
                      "ExecuteSql " + combination_insert_statement(5, "1,3")};
  EXPECT_EQ(save_system(*recorder_, 0, header, combinations), 5);
  EXPECT_EQ(recorder_->take(), storing);
  EXPECT_EQ(save_system(*recorder_, 3, header, combinations), 5);
  Calls replacing{"ExecuteSql " + edited_system_delete_statement(3),
                  "ExecuteSql " + edited_combinations_delete_statement(3)};
  replacing.insert(replacing.end(), storing.begin(), storing.end());
  EXPECT_EQ(recorder_->take(), replacing);
}

TEST_F(SavedSystems, EveryRefusedStatementEndsTheCall) {
  for (int32_t statement = 1; statement <= 6; ++statement) {
    const auto failing = make<FailingConnector>(recorder_, FailurePlan{.fail_statement = statement});
    if (statement == 3) continue;  // the largest number: it has no refusal of its own
    EXPECT_TRUE(is_refused([&] { save_system(*failing, 3, header, combinations); })) << statement;
    EXPECT_EQ(failing->statements(), statement);
  }
}

TEST_F(SavedSystems, AreDeletedWithTheirCombinations) {
  delete_system(*recorder_, 7);
  EXPECT_EQ(recorder_->take(),
            (Calls{"ExecuteSql " + combinations_delete_statement(7), "ExecuteSql " + system_delete_statement(7)}));
  for (const std::string& statement : {combinations_delete_statement(7), system_delete_statement(7)}) {
    scripted_->refused = {statement};
    EXPECT_TRUE(is_refused([&] { delete_system(*scripted_, 7); })) << statement;
  }
}

}  // namespace
}  // namespace vestara
