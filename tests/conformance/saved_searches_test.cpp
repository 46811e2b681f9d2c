#include <gtest/gtest.h>

#include "tests/conformance/back_end.h"
#include "tests/support/connectors.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "vestara/archive/lotto.h"

namespace conformance {
namespace {

using automation::Missing;
using automation::Ref;
using automation::Variant;
using testing_support::day;
using Lines = std::vector<std::string>;

class SavedSearchesTest : public BackEnd {
 protected:
  SavedSearchesTest() { lotto_.ActiveConnection(connector_); }

  bool save(int32_t id, std::string description, const Variant& saved = Missing{}) {
    return lotto_.SaveRicerchePersonalizzate(id, description, "5,12", 2, "BA", saved);
  }
  /// One field of every search that a listing gives.
  std::vector<Variant> listed(int32_t id, const char* field) {
    const auto rows = lotto_.GetRicerchePersonalizzate(id);
    std::vector<Variant> result;
    if (!rows) return {"nothing"};
    for (; !rows->at_end(); rows->move_next()) result.push_back(rows->value(rows->column(field)));
    return result;
  }

  testing_support::LogCapture log_;
  vestara::cLotto lotto_;
};

INSTANTIATE_TEST_SUITE_P(Engines, SavedSearchesTest, engines(), engine_name);

TEST_P(SavedSearchesTest, SaveListUpdateDelete) {
  EXPECT_EQ(listed(-1, "idRicerca"), std::vector<Variant>{});
  ASSERT_TRUE(lotto_.SaveRicerchePersonalizzate(0, "Ambo", "5,12", 2, "BA,NA", day(2026, 11, 15), "02/01/2026"));
  ASSERT_TRUE(save(0, "second"));
  const std::string all = "SELECT idRicerca,descRicerca,numeri,combinazione,ruote,dtSave,dtDa,dtA FROM tRicerche ";
  EXPECT_EQ(rows(all + "ORDER BY idRicerca"),
            (Lines{"1 Ambo 5,12 2 BA,NA 15/11/2026 02/01/2026 Null", "2 second 5,12 2 BA Null Null Null"}));
  EXPECT_EQ(listed(2, "descRicerca"), std::vector<Variant>{"second"});
  EXPECT_EQ(listed(0, "descRicerca"), std::vector<Variant>{});
  EXPECT_EQ(listed(-1, "dtSave"), (std::vector<Variant>{day(2026, 11, 15), automation::Null{}}));
  ASSERT_TRUE(save(1, "changed"));
  EXPECT_EQ(one(all + "WHERE idRicerca=1"), "1 changed 5,12 2 BA Null Null Null");
  EXPECT_TRUE(save(5, "nobody")) << "an update of a search that there is not";
  EXPECT_EQ(one("SELECT count(*) FROM tRicerche"), "2");
  EXPECT_TRUE(lotto_.DeleteRicerchePersonalizzate(1));
  EXPECT_TRUE(lotto_.DeleteRicerchePersonalizzate(1)) << "nothing left to delete";
  EXPECT_EQ(listed(-1, "idRicerca"), std::vector<Variant>{2});
  EXPECT_EQ(log_.bytes(), "");
}

TEST_P(SavedSearchesTest, TextsSurviveUnchanged) {
  const std::string texts[] = {"O'Hara",
                               "''",
                               "'",
                               R"(C:\lotto\nuovo)",
                               R"(ends with \)",
                               R"(\')",
                               R"(\\server\\)",
                               "100% _x_ %s %20",
                               "però, città: 5 €, Ω, 数, 🎱",
                               "two\r\nlines\tand a tab",
                               "a; DELETE FROM tRicerche; -- /* ? :x $1 \"q\" `b` [c]",
                               "  blanks around  ",
                               "   ",
                               "",
                               std::string(100000, 'x'),
                               [] {
                                 std::string text;
                                 while (text.size() < 100000) text += "it's \\ 5€ ";
                                 return text;
                               }()};
  int32_t id = 0;
  for (const std::string& text : texts) {
    SCOPED_TRACE(text.substr(0, 60));
    ++id;
    for (const int32_t given : {0, id}) {
      std::string description = text, numbers = text, wheels = text;
      ASSERT_TRUE(lotto_.SaveRicerchePersonalizzate(given, description, numbers, 2, wheels)) << connector_->LastError();
      for (const char* field : {"descRicerca", "numeri", "ruote"})
        EXPECT_TRUE(listed(id, field) == std::vector<Variant>{text}) << field;
    }
  }
  for (; id > 0; --id) EXPECT_TRUE(lotto_.DeleteRicerchePersonalizzate(id));
  EXPECT_EQ(one("SELECT count(*) FROM tRicerche"), "0");
}

TEST_P(SavedSearchesTest, NewestFirstAndTiesByKey) {
  for (const Variant& saved : {Variant(day(2026, 1, 2)), Variant(day(2026, 11, 15)), Variant(day(2026, 1, 2)),
                               Variant(day(1999, 12, 31)), Variant(day(2026, 11, 15))})
    ASSERT_TRUE(save(0, "x", saved));
  EXPECT_EQ(listed(-1, "idRicerca"), (std::vector<Variant>{2, 5, 1, 3, 4}));
}

TEST_P(SavedSearchesTest, TheNextKeyFollowsTheLargest) {
  ASSERT_TRUE(execute("INSERT INTO tRicerche(idRicerca,descRicerca)VALUES(41,'x')"));
  ASSERT_TRUE(save(0, "next"));
  EXPECT_EQ(listed(42, "descRicerca"), std::vector<Variant>{"next"});
  ASSERT_TRUE(lotto_.DeleteRicerchePersonalizzate(42));
  ASSERT_TRUE(save(0, "again"));
  EXPECT_EQ(listed(42, "descRicerca"), std::vector<Variant>{"again"});
}

// Two hosts that ask for the largest key at once both get the same next one.
TEST_P(SavedSearchesTest, TheSecondOfTwoEqualKeysIsRefused) {
  ASSERT_TRUE(save(0, "first"));
  vestara::cLotto other;
  other.ActiveConnection(automation::make<testing_support::FailingConnector>(
      another(), testing_support::FailurePlan{.fail_statement = 2, .how = testing_support::Failure::refuses}));
  EXPECT_FALSE(other.SaveRicerchePersonalizzate(0, "second", "5", 1, "BA"));
  EXPECT_EQ(listed(-1, "descRicerca"), std::vector<Variant>{"first"});
  EXPECT_TRUE(other.SaveRicerchePersonalizzate(0, "third", "5", 1, "BA"));
  EXPECT_EQ(listed(2, "descRicerca"), std::vector<Variant>{"third"});
  EXPECT_EQ(log_.bytes(), "");
}

}  // namespace
}  // namespace conformance
