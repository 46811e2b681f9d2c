#pragma once

#include <gtest/gtest.h>

#include "dorvane/connector.h"
#include "tests/study/question.h"
#include "tests/support/log_capture.h"
#include "tests/support/random_archive.h"

namespace study_test {

/// A Study as a script has it, over an archive in memory.
class StudyArchive : public testing::Test {
 protected:
  StudyArchive();
  /// Whatever a question meets is raised, never logged.
  void TearDown() override { EXPECT_EQ(log_.bytes(), ""); }

  /// The archive becomes these draws.
  void store(const testing_support::Archive& archive);
  /// A further Study over the same archive.
  automation::Ref<automation::Object> another_study() const;
  /// "" when the answer is the wanted one, else what differs; an error is told too.
  static std::string disagreement(automation::Object& study, const Question& question, const Table& wanted, Walk walk);

  testing_support::LogCapture log_;
  automation::Ref<dorvane::DbConnector> connector_ = automation::make<dorvane::DbConnector>();
  automation::Ref<automation::Object> study_;
};

}  // namespace study_test
