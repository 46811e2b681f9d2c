#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/coercion.h"
#include "dorvane/connector.h"
#include "tests/support/temporary_folder.h"

namespace testing_support {

/// Tests of the embedded database: an archive in a folder of its own.
class SqliteArchive : public testing::Test {
 protected:
  std::string url(const std::string& options = {}) const {
    return "sqlite:" + folder_.path_to("archive.sqlite") + options;
  }

  automation::Ref<dorvane::DbConnector> opened(const std::string& options = {}) const {
    auto connector = automation::make<dorvane::DbConnector>();
    EXPECT_TRUE(connector->Open(url(options))) << connector->LastError();
    return connector;
  }

  automation::Ref<dorvane::DbConnector> created() const {
    auto connector = opened();
    EXPECT_TRUE(connector->CreateSchema()) << connector->LastError();
    return connector;
  }

  /// The rows of a statement, values as text, joined by blanks.
  static std::vector<std::string> rows(dorvane::DbConnector& connector, const std::string& statement) {
    automation::Ref<vestara::RecordSet> set;
    std::vector<std::string> result;
    if (!connector.OpenRecordset(set, statement)) return {"refused: " + connector.LastError()};
    for (; !set->at_end(); set->move_next()) {
      std::string line;
      for (int32_t i = 0; i < set->column_count(); ++i) {
        const automation::Variant value = set->value({i});
        line += (i == 0 ? "" : " ") + (value.is_null() ? std::string("Null") : automation::to_text(value));
      }
      result.push_back(line);
    }
    return result;
  }

  static std::string one(dorvane::DbConnector& connector, const std::string& statement) {
    return rows(connector, statement).at(0);
  }

  static std::string index_count(dorvane::DbConnector& connector) {
    return one(connector, "SELECT count(*) FROM sqlite_master WHERE type='index' AND name LIKE 'vestara%'");
  }

  static void fill(dorvane::DbConnector& connector, int count) {
    std::string text = "INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES";
    for (int i = 0; i < count; ++i)
      text += std::string(i == 0 ? "" : ",") + "(" + std::to_string(i % 200 + 1) + ",'2001-01-01','BA',1,2,3,4,5)";
    ASSERT_TRUE(connector.ExecuteSql(text)) << connector.LastError();
  }

  TemporaryFolder folder_;
};

}  // namespace testing_support
