#include "tests/conformance/back_end.h"

#include "automation/coercion.h"

namespace conformance {

using automation::Ref;
using automation::Variant;

std::string engine_name(const testing::TestParamInfo<Engine>& info) {
  switch (info.param) {
    case Engine::sqlite:
      return "Sqlite";
  }
  return "Unknown";
}

BackEnd::BackEnd() : connector_(another()) { EXPECT_TRUE(connector_->CreateSchema()) << connector_->LastError(); }

Ref<dorvane::DbConnector> BackEnd::another() const {
  auto connector = automation::make<dorvane::DbConnector>();
  EXPECT_TRUE(connector->Open("sqlite:" + folder_.path_to("archive.sqlite"))) << connector->LastError();
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
