#include "tests/study/study_archive.h"

#include "automation/error.h"
#include "automation/registry.h"

namespace study_test {

using automation::Object;
using automation::Ref;
using automation::Variant;
using testing_support::Archive;

StudyArchive::StudyArchive() {
  EXPECT_TRUE(connector_->Open("sqlite::memory:") && connector_->CreateSchema()) << connector_->LastError();
  study_ = another_study();
}

Ref<Object> StudyArchive::another_study() const {
  Ref<Object> study = automation::create_object("Vestara.Study");
  std::vector<Variant> arguments{Variant(connector_)};
  study->call("ActiveConnection", automation::InvokeKind::putref, arguments);
  return study;
}

void StudyArchive::store(const Archive& archive) {
  connector_->BeginTrans();
  ASSERT_TRUE(connector_->ExecuteSql("DELETE FROM storico")) << connector_->LastError();
  for (const auto& statement : testing_support::insert_statements(archive))
    ASSERT_TRUE(connector_->ExecuteSql(statement)) << connector_->LastError();
  connector_->CommitTrans();
}

std::string StudyArchive::disagreement(Object& study, const Question& question, const Table& wanted, Walk walk) {
  try {
    return difference(wanted, rows_of(ask(study, question), walk));
  } catch (const automation::RunTimeError& error) {
    return "error " + std::to_string(error.number()) + ": " + error.description();
  }
}

}  // namespace study_test
