#include <gtest/gtest.h>

#include "tests/conformance/back_end.h"

// Rows that a program hands over as values. Each engine must store what it is given, and all of a call or nothing.

namespace conformance {
namespace {

using vestara::RowValue;
using Lines = std::vector<std::string>;
using Values = std::vector<RowValue>;
using Names = std::vector<std::string_view>;

const Names draw_columns{"concorsoNumero", "dtEstr", "ruota", "estr1", "estr2", "estr3", "estr4", "estr5"};

Values draw(int64_t contest, std::string_view date, std::string_view wheel, int64_t first = 1) {
  Values values{RowValue::of(contest), RowValue::of(date), RowValue::of(wheel)};
  for (const int64_t number : {first, int64_t{2}, int64_t{3}, int64_t{4}, int64_t{5}})
    values.push_back(RowValue::of(number));
  return values;
}

class RowValuesTest : public BackEnd {
 protected:
  bool insert(std::string_view table, const Names& columns, const Values& values) {
    return connector_->row_inserter()->InsertRows({table, columns, values});
  }
  Lines stored() { return rows("SELECT concorsoNumero,dtEstr,ruota,estr1 FROM storico ORDER BY id"); }
};

INSTANTIATE_TEST_SUITE_P(Engines, RowValuesTest, engines(), engine_name);

TEST_P(RowValuesTest, AreStoredAsTheyAre) {
  Values values = draw(7, "2026-01-02", "BA");
  for (const RowValue& value : draw(8, "1871-01-07", "FI", 90)) values.push_back(value);
  ASSERT_TRUE(insert("storico", draw_columns, values)) << connector_->LastError();
  EXPECT_EQ(stored(), (Lines{"7 02/01/2026 BA 1", "8 07/01/1871 FI 90"}));
  ASSERT_TRUE(insert(
      "tRicerche", {"idRicerca", "descRicerca", "numeri", "combinazione", "ruote"},
      {RowValue::of(3), RowValue::of("it's a \\ 'quoted' text; --"), RowValue::of(""), RowValue::of(-2), RowValue()}))
      << connector_->LastError();
  EXPECT_EQ(rows("SELECT idRicerca,descRicerca,combinazione FROM tRicerche WHERE numeri='' AND ruote IS NULL"),
            Lines{"3 it's a \\ 'quoted' text; -- -2"});
}

TEST_P(RowValuesTest, ARefusedRowTakesTheOthersOfItsCallAway) {
  const Names columns{"id", "concorsoNumero", "dtEstr", "ruota"};
  const auto rows_with_keys = [](int64_t first, int64_t second) {
    Values values;
    for (const int64_t key : {first, second})
      for (const RowValue& value : {RowValue::of(key), RowValue::of(7), RowValue::of("2026-01-02"), RowValue::of("BA")})
        values.push_back(value);
    return values;
  };
  ASSERT_TRUE(insert("storico", columns, rows_with_keys(1, 2))) << connector_->LastError();
  EXPECT_FALSE(insert("storico", columns, rows_with_keys(3, 2))) << "a key is there already";
  EXPECT_NE(connector_->LastError(), "");
  EXPECT_EQ(rows("SELECT id FROM storico ORDER BY id"), (Lines{"1", "2"}));
}

TEST_P(RowValuesTest, BelongToTheOpenTransaction) {
  connector_->BeginTrans();
  ASSERT_TRUE(insert("storico", draw_columns, draw(7, "2026-01-02", "BA")));
  EXPECT_ANY_THROW(connector_->BeginTrans()) << "the transaction has changes";
  connector_->RollbackTrans();
  EXPECT_EQ(stored(), Lines{});
  connector_->BeginTrans();
  ASSERT_TRUE(insert("storico", draw_columns, draw(8, "2026-01-02", "BA")));
  connector_->CommitTrans();
  EXPECT_EQ(stored(), Lines{"8 02/01/2026 BA 1"});
}

TEST_P(RowValuesTest, NamesAreNoStatements) {
  for (const std::string_view table : {"storico(id)VALUES(1);DROP TABLE ruote;--", "", "a b", "\"storico\""})
    EXPECT_FALSE(insert(table, draw_columns, draw(7, "2026-01-02", "BA"))) << table;
  EXPECT_FALSE(insert("storico", {"concorsoNumero", "dtEstr)VALUES(1,2);--"}, {RowValue::of(1), RowValue::of(2)}));
  EXPECT_FALSE(insert("storico", draw_columns, {RowValue::of(1)})) << "no whole row";
  EXPECT_FALSE(insert("nowhere", draw_columns, draw(7, "2026-01-02", "BA")));
  EXPECT_TRUE(insert("storico", draw_columns, {})) << "nothing is no failure";
  EXPECT_EQ(stored(), Lines{});
}

TEST_P(RowValuesTest, NothingIsStoredThroughAConnectionThatIsClosedOrReadsOnly) {
  const auto reader = automation::make<dorvane::DbConnector>();
  ASSERT_TRUE(reader->Open(url_ + (url_.find('?') == std::string::npos ? "?" : "&") + "mode=ro"));
  EXPECT_FALSE(reader->row_inserter()->InsertRows({"storico", draw_columns, draw(7, "2026-01-02", "BA")}));
  connector_->Close();
  EXPECT_FALSE(insert("storico", draw_columns, draw(7, "2026-01-02", "BA")));
  EXPECT_EQ(connector_->LastError(), "no archive is open");
}

}  // namespace
}  // namespace conformance
