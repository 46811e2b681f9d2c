#include "tests/conformance/back_end.h"

#include "automation/coercion.h"
#include "automation/system/file.h"

namespace conformance {

using automation::Ref;
using automation::Variant;

std::string engine_name(const testing::TestParamInfo<Engine>& info) {
  switch (info.param) {
    case Engine::sqlite:
      return "Sqlite";
    case Engine::postgresql:
      return "Postgresql";
    case Engine::mariadb:
      return "Mariadb";
  }
  return "Unknown";
}

namespace {

const char* variable_of(Engine engine) {
  return engine == Engine::postgresql ? "VESTARA_TEST_POSTGRESQL" : "VESTARA_TEST_MARIADB";
}

void drop_tables(dorvane::DbConnector& connector) {
  for (const char* table : {"storico", "tRicerche", "tSistemi", "tSistemaDetail", "ruote"})
    EXPECT_TRUE(connector.ExecuteSql(std::string("DROP TABLE IF EXISTS ") + table)) << connector.LastError();
}

}  // namespace

BackEnd::BackEnd()
    : url_(GetParam() == Engine::sqlite ? "sqlite:" + folder_.path_to("archive.sqlite")
                                        : automation::environment_variable(variable_of(GetParam()))),
      connector_(automation::make<dorvane::DbConnector>()) {
  if (url_.empty()) return;
  connector_ = another();
  if (GetParam() != Engine::sqlite) drop_tables(*connector_);
  EXPECT_TRUE(connector_->CreateSchema()) << connector_->LastError();
}

void BackEnd::SetUp() {
  if (!url_.empty()) return;
  const std::string missing = std::string("no server: ") + variable_of(GetParam()) + " is not set";
  if (automation::environment_variable("VESTARA_TEST_SERVERS") == "required") FAIL() << missing;
  GTEST_SKIP() << missing;
}

Ref<dorvane::DbConnector> BackEnd::another() const {
  auto connector = automation::make<dorvane::DbConnector>();
  EXPECT_TRUE(connector->Open(url_)) << connector->LastError();
  return connector;
}

std::vector<std::string> BackEnd::rows(const std::string& statement) {
  Ref<vestara::RecordSet> set;
  if (!connector_->OpenRecordset(set, statement)) return {"refused"};
  std::vector<std::string> result;
  for (; !set->at_end(); set->move_next()) {
    std::string line;
    for (int32_t i = 0; i < set->column_count(); ++i) {
      const Variant value = set->value({i});
      line += (i == 0 ? "" : " ") + (value.is_null() ? std::string("Null") : automation::to_text(value));
    }
    result.push_back(line);
  }
  connector_->CloseRecordset(set);
  return result;
}

void BackEnd::store(const testing_support::Archive& archive) {
  ASSERT_TRUE(execute("DELETE FROM storico"));
  const std::string statement = testing_support::insert_statement(archive);
  ASSERT_TRUE(statement.empty() || execute(statement)) << connector_->LastError();
}

std::string BackEnd::one(const std::string& statement) {
  const auto lines = rows(statement);
  return lines.size() == 1 ? lines[0] : std::to_string(lines.size()) + " rows";
}

}  // namespace conformance
