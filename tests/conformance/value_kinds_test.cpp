#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/coercion.h"
#include "tests/conformance/back_end.h"

namespace conformance {
namespace {

using automation::Ref;
using automation::Variant;
using automation::VariantKind;
using vestara::RecordSet;

/// A value of one declared type, as it is written and as it comes back.
struct Row {
  const char* type;
  const char* literal;
  VariantKind kind;
  const char* text;
};

constexpr VariantKind whole = VariantKind::long_integer;
constexpr VariantKind real = VariantKind::double_precision;
constexpr VariantKind date = VariantKind::date;
constexpr VariantKind text = VariantKind::text;

/// What every engine has.
const std::vector<Row> common{{"SMALLINT", "-7", whole, "-7"},
                              {"INT", "2147483647", whole, "2147483647"},
                              {"BIGINT", "7", whole, "7"},
                              {"BIGINT", "4294967296", real, "4294967296"},
                              {"REAL", "0.5", real, "0.5"},
                              {"DOUBLE PRECISION", "0.25", real, "0.25"},
                              {"DECIMAL(10,4)", "12", whole, "12"},
                              {"DECIMAL(10,4)", "12.5", real, "12.5"},
                              {"BOOLEAN", "TRUE", whole, "1"},
                              {"BOOLEAN", "FALSE", whole, "0"},
                              {"DATE", "'2005-02-09'", date, "09/02/2005"},
                              {"VARCHAR(20)", "'2005-02-09'", text, "2005-02-09"},
                              {"TEXT", "'è'", text, "è"},
                              {"TEXT", "''", text, ""}};

const std::vector<Row>& own(Engine engine) {
  static const std::vector<Row> sqlite{{"TIMESTAMP", "'2005-02-09 10:30:00'", date, "09/02/2005 10:30:00"},
                                       {"DATETIME", "'2005-02-09 10:30:00'", date, "09/02/2005 10:30:00"},
                                       {"BLOB", "'abc'", text, "abc"}};
  static const std::vector<Row> postgresql{{"oid", "7", whole, "7"},
                                           {"numeric", "12", whole, "12"},
                                           {"timestamp", "'2005-02-09 00:00:00'", date, "09/02/2005"},
                                           {"timestamp", "'2005-02-09 10:30:00'", date, "09/02/2005 10:30:00"},
                                           {"char(3)", "'abc'", text, "abc"}};
  static const std::vector<Row> mariadb{{"TINYINT", "7", whole, "7"},
                                        {"MEDIUMINT", "7", whole, "7"},
                                        {"YEAR", "2005", whole, "2005"},
                                        {"FLOAT", "0.5", real, "0.5"},
                                        {"DATETIME", "'2005-02-09 00:00:00'", date, "09/02/2005"},
                                        {"DATETIME", "'2005-02-09 10:30:00'", date, "09/02/2005 10:30:00"},
                                        {"TIMESTAMP", "'2005-02-09 00:00:00'", date, "09/02/2005"},
                                        {"TIMESTAMP", "'2005-02-09 10:30:00'", date, "09/02/2005 10:30:00"}};
  if (engine == Engine::sqlite) return sqlite;
  return engine == Engine::postgresql ? postgresql : mariadb;
}

class ValueKindsTest : public BackEnd {
 protected:
  void TearDown() override {
    if (!url_.empty()) execute("DROP TABLE IF EXISTS kinds");
  }
  Variant stored(const Row& row) {
    const std::string type = std::string(row.type);
    EXPECT_TRUE(execute("DROP TABLE IF EXISTS kinds")) << connector_->LastError();
    EXPECT_TRUE(execute("CREATE TABLE kinds(v " + type + ")")) << connector_->LastError();
    EXPECT_TRUE(execute(std::string("INSERT INTO kinds(v)VALUES(") + row.literal + ")")) << connector_->LastError();
    Ref<RecordSet> set;
    if (!connector_->OpenRecordset(set, "SELECT v FROM kinds")) return Variant();
    return set->value({0});
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, ValueKindsTest, engines(), engine_name);

TEST_P(ValueKindsTest, AValueIsOfTheKindThatItsColumnSays) {
  for (const std::vector<Row>* const rows : {&common, &own(GetParam())})
    for (const Row& row : *rows) {
      SCOPED_TRACE(std::string(row.type) + " " + row.literal);
      const Variant value = stored(row);
      EXPECT_EQ(value.kind(), row.kind);
      EXPECT_EQ(automation::to_text(value), row.text);
    }
}

}  // namespace
}  // namespace conformance
