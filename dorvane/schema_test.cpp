#include "dorvane/schema.h"

#include <gtest/gtest.h>

#include "automation/text.h"

namespace dorvane {
namespace {

using vestara::SchemaGap;

SchemaFacts complete() {
  SchemaFacts facts;
  for (const vestara::ArchiveTable& table : vestara::archive_tables())
    for (const vestara::TableColumn& column : table.columns)
      facts.columns.insert(automation::lower_case(automation::concatenated({table.name, ".", column.name})));
  for (const vestara::ArchiveIndex& index : vestara::archive_indexes()) facts.indexes.emplace(index.name);
  for (const std::string_view wheel : vestara::wheel_aliases) facts.wheels.emplace(wheel);
  return facts;
}

TEST(Schema, ACompleteArchiveLacksNothing) { EXPECT_TRUE(missing_from(complete()).empty()); }

TEST(Schema, WhateverIsMissingIsFound) {
  using enum SchemaGap::Kind;
  struct Row {
    void (*damage)(SchemaFacts&);
    SchemaGap gap;
  };
  for (const Row& row :
       {Row{[](SchemaFacts& facts) { facts.columns.erase("storico.estr4"); }, {column, "storico", "estr4"}},
        Row{[](SchemaFacts& facts) { facts.indexes.erase("vestara_storico_rows"); },
            {index, "storico", "vestara_storico_rows"}},
        Row{[](SchemaFacts& facts) { facts.indexes.erase("vestara_sistema_detail"); },
            {index, "tSistemaDetail", "vestara_sistema_detail"}},
        Row{[](SchemaFacts& facts) { facts.wheels.erase("RN"); }, {wheel, "ruote", "RN"}},
        Row{[](SchemaFacts& facts) {
              std::erase_if(facts.columns, [](const std::string& name) { return name.starts_with("tsistemi."); });
            },
            {table, "tSistemi", "tSistemi"}},
        Row{[](SchemaFacts& facts) {
              std::erase_if(facts.columns, [](const std::string& name) { return name.starts_with("storico."); });
              facts.columns.insert("storico_copy.id");
            },
            {table, "storico", "storico"}}}) {
    SchemaFacts facts = complete();
    row.damage(facts);
    EXPECT_EQ(missing_from(facts), std::vector<SchemaGap>{row.gap}) << row.gap.name;
  }
  EXPECT_EQ(missing_from({}).size(), 14U) << "an empty database lacks its tables and indexes, not columns and wheels";
}

TEST(Schema, ColumnsAreSpelledAsTheTablesSpellThem) {
  EXPECT_EQ(column_spelling("DTESTR"), "dtEstr");
  EXPECT_EQ(column_spelling("idsis"), "idSis");
  EXPECT_EQ(column_spelling("dmax"), "");
}

TEST(Schema, TheWheelsAreAddedByThisStatement) {
  EXPECT_EQ(wheels_statement(),
            "INSERT INTO ruote(enumeratore,enumeratoreBit,ruotaAlias) WITH wheel(i,bit,alias) AS (SELECT 1,1,'BA'"
            " UNION ALL SELECT 2,2,'CA' UNION ALL SELECT 3,4,'FI' UNION ALL SELECT 4,8,'GE' UNION ALL SELECT 5,16,'MI'"
            " UNION ALL SELECT 6,32,'NA' UNION ALL SELECT 7,64,'PA' UNION ALL SELECT 8,128,'RM' UNION ALL SELECT"
            " 9,256,'TO' UNION ALL SELECT 10,512,'VE' UNION ALL SELECT 11,1024,'RN') SELECT i,bit,alias FROM wheel"
            " WHERE i NOT IN (SELECT enumeratore FROM ruote) AND alias NOT IN (SELECT ruotaAlias FROM ruote) ORDER BY"
            " i");
}

}  // namespace
}  // namespace dorvane
