#include "dorvane/schema.h"

#include <gtest/gtest.h>

#include <array>

#include "automation/text.h"

namespace dorvane {
namespace {

SchemaFacts complete() {
  SchemaFacts facts;
  for (const Table& table : tables())
    for (const std::string_view column : table.columns)
      facts.columns.insert(automation::lower_case(automation::concatenated({table.name, ".", column})));
  facts.indexes = {"an_index"};
  for (const char* wheel : {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"})
    facts.wheels.insert(wheel);
  return facts;
}

constexpr std::array<Creation, 1> indexes{{{"An_Index", "CREATE INDEX …"}}};

TEST(Schema, ACompleteArchiveLacksNothing) { EXPECT_TRUE(missing_from(complete(), indexes).empty()); }

TEST(Schema, EverythingThatIsMissingHasItsLine) {
  struct Row {
    void (*damage)(SchemaFacts&);
    const char* line;
  };
  for (const Row& row :
       {Row{[](SchemaFacts& facts) { facts.columns.erase("storico.estr4"); }, "column storico.estr4 is missing"},
        Row{[](SchemaFacts& facts) { facts.indexes.clear(); },
            "index An_Index is missing: answers are right but slow; CreateSchema makes it"},
        Row{[](SchemaFacts& facts) { facts.wheels.erase("RN"); },
            "wheel RN is missing from ruote; CreateSchema adds it"},
        Row{[](SchemaFacts& facts) {
              std::erase_if(facts.columns, [](const std::string& name) { return name.starts_with("tsistemi."); });
            },
            "table tSistemi is missing; CreateSchema makes it"},
        Row{[](SchemaFacts& facts) {
              std::erase_if(facts.columns, [](const std::string& name) { return name.starts_with("storico."); });
              facts.columns.insert("storico_copy.id");
            },
            "table storico is missing; CreateSchema makes it"}}) {
    SchemaFacts facts = complete();
    row.damage(facts);
    EXPECT_EQ(missing_from(facts, indexes), std::vector<std::string>{row.line});
  }
  EXPECT_EQ(missing_from({}, {}).size(), 5U) << "an empty database lacks its tables, not their columns and wheels";
}

TEST(Schema, ColumnsAreSpelledAsTheTablesSpellThem) {
  EXPECT_EQ(column_spelling("DTESTR"), "dtEstr");
  EXPECT_EQ(column_spelling("idsis"), "idSis");
  EXPECT_EQ(column_spelling("dmax"), "");
}

}  // namespace
}  // namespace dorvane
