#include "vestara/systems/systems.h"

#include <gtest/gtest.h>

#include "tests/conformance/back_end.h"
#include "tests/support/log_capture.h"

namespace conformance {
namespace {

using automation::Variant;
using Lines = std::vector<std::string>;

class SystemsTest : public BackEnd {
 protected:
  SystemsTest() { systems_.ActiveConnection(connector_); }

  /// Saves a system and gives its key; 0 when it was not saved.
  int32_t save(const std::string& title, std::string combinations = "1,2\r\n1,3", int32_t key = 0,
               const std::string& description = "d") {
    const bool saved = systems_.SalvaSistema(key, combinations, title, description, "10,20,30", 3, 20, 40, 2);
    EXPECT_TRUE(saved) << connector_->LastError();
    return saved ? key : 0;
  }
  /// The titles of a listing.
  static Lines titles(const automation::Ref<vestara::RecordSet>& rows) {
    if (!rows) return {"nothing"};
    Lines result;
    for (; !rows->at_end(); rows->move_next()) result.emplace_back(rows->text(rows->column("titolo")));
    return result;
  }
  Lines found(const std::string& title) { return titles(systems_.GetSistemiLista(0, "", title)); }
  std::string combinations(int32_t key, const std::string& numbers = {}) {
    std::string text = "left";
    const auto rows = systems_.GetSistemaCombi(key, numbers, text);
    EXPECT_TRUE(rows);
    return text;
  }

  testing_support::LogCapture log_;
  vestara::cSistemi systems_;
};

INSTANTIATE_TEST_SUITE_P(Engines, SystemsTest, engines(), engine_name);

TEST_P(SystemsTest, SaveListReadConvertRemove) {
  EXPECT_EQ(titles(systems_.GetSistemiLista()), Lines{});
  EXPECT_EQ(save("first", "  1,2\r\n1,3\r\n"), 1);
  EXPECT_EQ(save("second", "3,1"), 2);
  EXPECT_EQ(rows("SELECT idSis,titolo,descrizione,numeri,qtaNumeri,nGiocate,kColonne,garanzia,sisTipo FROM tSistemi "
                 "ORDER BY idSis"),
            (Lines{"1 first d 10,20,30 3 40 20 2 U", "2 second d 10,20,30 3 40 20 2 U"}));
  EXPECT_EQ(rows("SELECT idSis,combinazione FROM tSistemaDetail ORDER BY id"), (Lines{"1 1,2", "1 1,3", "2 3,1"}));
  EXPECT_EQ(combinations(1), "1,2\r\n1,3");
  EXPECT_EQ(combinations(1, "10,20,30"), "10,20\r\n10,30");
  EXPECT_EQ(combinations(2, "10,20,30"), "30,10");
  EXPECT_EQ(combinations(3), "");
  EXPECT_EQ(systems_.GetCombiNumbers(combinations(1)), "1,2,3");
  std::string converted;
  EXPECT_EQ(systems_.GetSisNumsConvert(combinations(1), "10,20,30", converted).items().size(), 2U);
  EXPECT_EQ(converted, combinations(1, "10,20,30"));
  EXPECT_TRUE(systems_.DelSistemaDetail(1));
  EXPECT_EQ(combinations(1), "");
  EXPECT_EQ(titles(systems_.GetSistemiLista()), (Lines{"first", "second"})) << "the header stays";
  EXPECT_TRUE(systems_.DelSistema(2));
  EXPECT_TRUE(systems_.DelSistema(2)) << "nothing left to remove";
  EXPECT_EQ(titles(systems_.GetSistemiLista()), Lines{"first"});
  EXPECT_EQ(one("SELECT count(*) FROM tSistemaDetail"), "0");
  EXPECT_EQ(log_.bytes(), "");
}

TEST_P(SystemsTest, AnEditedSystemMovesToANewKey) {
  save("first");
  save("second");
  EXPECT_EQ(save("changed", "5,6", 1), 3);
  EXPECT_EQ(rows("SELECT idSis,titolo FROM tSistemi ORDER BY idSis"), (Lines{"2 second", "3 changed"}));
  EXPECT_EQ(rows("SELECT idSis,combinazione FROM tSistemaDetail ORDER BY id"), (Lines{"2 1,2", "2 1,3", "3 5,6"}));
  EXPECT_EQ(save("last", "7", 3), 3) << "the largest key is free again";
  EXPECT_EQ(combinations(3), "7");
}

TEST_P(SystemsTest, EmptyCombinationsWriteTheHeaderOnly) {
  EXPECT_EQ(save("empty", ""), 1);
  EXPECT_EQ(save("blank", "   "), 2);
  EXPECT_EQ(one("SELECT count(*) FROM tSistemaDetail"), "0");
  EXPECT_EQ(found("").size(), 2U);
}

TEST_P(SystemsTest, ListsByEveryFilter) {
  ASSERT_TRUE(execute(
      "INSERT INTO tSistemi (idSis,titolo,descrizione,numeri,qtaNumeri,nGiocate,kColonne,garanzia,sisTipo) VALUES"
      "(1,'one','alpha','1',10,20,30,2,'U'),(2,'two','beta','1',10,21,31,3,'S'),(3,'three','alphabet','1',11,20,31,2,"
      "'S')"));
  const struct {
    automation::Ref<vestara::RecordSet> rows;
    Lines expected;
  } rows[] = {{systems_.GetSistemiLista(), {"one", "two", "three"}},
              {systems_.GetSistemiLista(2), {"two"}},
              {systems_.GetSistemiLista(4), {}},
              {systems_.GetSistemiLista(0, "S"), {"two", "three"}},
              {systems_.GetSistemiLista(0, "", "t"), {"two", "three"}},
              {systems_.GetSistemiLista(0, "", "", "alpha"), {"one", "three"}},
              {systems_.GetSistemiLista(0, "", "", "", 10), {"one", "two"}},
              {systems_.GetSistemiLista(0, "", "", "", 0, 20), {"one", "three"}},
              {systems_.GetSistemiLista(0, "", "", "", 0, 0, 31), {"two", "three"}},
              {systems_.GetSistemiLista(0, "", "", "", 0, 0, 0, 2), {"one", "three"}},
              {systems_.GetSistemiLista(3, "S", "h", "bet", 11, 20, 31, 2), {"three"}},
              {systems_.GetSistemiLista(3, "U"), {}}};
  for (const auto& row : rows) EXPECT_EQ(titles(row.rows), row.expected);
}

TEST_P(SystemsTest, TitlesAreFoundAgain) {
  const std::string texts[] = {"O'Hara",   "''",        R"(C:\lotto)",  R"(ends with \)",          R"(\')",
                               "100% _x_", "però, 5 €", "two\r\nlines", "a; DELETE -- /* ? \"q\"", "  blanks  "};
  for (const std::string& text : texts) {
    SCOPED_TRACE(text);
    const int32_t key = save(text, "1", 0, text);
    EXPECT_EQ(found(text), Lines{text});
    EXPECT_EQ(titles(systems_.GetSistemiLista(0, "", "", text)), Lines{text}) << "by its description";
    EXPECT_EQ(titles(systems_.GetSistemiLista(key)), Lines{text});
    EXPECT_TRUE(systems_.DelSistema(key));
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_P(SystemsTest, WildCardsOfAFilterKeepTheirMeaning) {
  for (const char* title : {"abc", "a_c", "a%c", "ac", R"(a\c)"}) save(title);
  const struct {
    const char* filter;
    Lines expected;
  } rows[] = {{"a_c", {"abc", "a_c", "a%c", R"(a\c)"}},
              {"a%c", {"abc", "a_c", "a%c", "ac", R"(a\c)"}},
              {"bc", {"abc"}},
              {"b_", {"abc"}},
              {"_b_", {"abc"}},
              {R"(a\c)", {R"(a\c)"}},
              {"____", {}},
              {"x", {}}};
  for (const auto& row : rows) EXPECT_EQ(found(row.filter), row.expected) << row.filter;
}

TEST_P(SystemsTest, NumbersWithAQuoteAreRefusedAndTheOldSystemIsLost) {
  const int32_t first = save("first");
  int32_t key = first;
  std::string combinations = "1,2";
  EXPECT_FALSE(systems_.SalvaSistema(key, combinations, "t", "d", "1'2", 1, 1, 1, 1));
  EXPECT_EQ(one("SELECT count(*) FROM tSistemi"), "0") << "there is no transaction";
  EXPECT_EQ(one("SELECT count(*) FROM tSistemaDetail"), "0");
  EXPECT_EQ(log_.bytes(), "") << "a refused statement writes no entry";
}

TEST_P(SystemsTest, AHostsTransactionKeepsTheOldSystem) {
  int32_t key = save("first");
  std::string combinations = "5,6";
  connector_->BeginTrans();
  EXPECT_FALSE(systems_.SalvaSistema(key, combinations, "t", "d", "1'2", 1, 1, 1, 1));
  connector_->RollbackTrans();
  EXPECT_EQ(found(""), Lines{"first"});
  EXPECT_EQ(this->combinations(1), "1,2\r\n1,3");
}

TEST_P(SystemsTest, AnIntegralSystemOfManyLinesComesBackWhole) {
  int32_t count = 0;
  const std::string all = systems_.CombinazioniIntegraliString("1,2,3,4,5,6,7,8,9,10,11,12,13,14", 5, count);
  EXPECT_EQ(count, 2002);
  connector_->BeginTrans();
  const int32_t key = save("integral", all);
  connector_->CommitTrans();
  EXPECT_TRUE(combinations(key) == all);
}

}  // namespace
}  // namespace conformance
