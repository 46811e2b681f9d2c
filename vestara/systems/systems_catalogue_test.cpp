#include <gtest/gtest.h>

#include <limits>

#include "tests/support/connectors.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "vestara/systems/systems.h"

namespace vestara {
namespace {

using automation::Empty;
using automation::InvokeKind;
using automation::make;
using automation::Missing;
using automation::Null;
using automation::Ref;
using automation::Variant;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::outcome;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using testing_support::Table;
using Calls = std::vector<std::string>;

constexpr int32_t largest = std::numeric_limits<int32_t>::max();
const std::string combinations_of =
    "SELECT tSistemi.sisTipo, tSistemaDetail.combinazione, tSistemaDetail.id FROM tSistemi LEFT JOIN tSistemaDetail "
    "ON tSistemi.idSis = tSistemaDetail.idSis WHERE tSistemaDetail.idSis=";

class SystemsCatalogueTest : public testing::Test {
 protected:
  SystemsCatalogueTest() { systems_.ActiveConnection(recorder_); }
  void connect_failing(FailurePlan plan) {
    systems_.ActiveConnection(make<FailingConnector>(recorder_, plan));
    recorder_->calls.clear();
  }
  void answer_combinations(const Variant& kind, const std::vector<Variant>& combinations) {
    Table table{{"tSistemi.sisTipo", "tSistemaDetail.combinazione", "tSistemaDetail.id"}, {}};
    for (const auto& combination : combinations)
      table.rows.push_back({kind, combination, static_cast<int32_t>(table.rows.size() + 1)});
    scripted_->answers[combinations_of + "7"] = std::move(table);
  }
  std::string call(std::string_view member, std::vector<Variant> arguments,
                   const std::vector<std::string_view>& names = {}, InvokeKind kind = InvokeKind::method) {
    given_ = std::move(arguments);
    return outcome([&] { return systems_.call(member, kind, given_, names); });
  }

  testing_support::LogCapture log_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  cSistemi systems_;
  std::vector<Variant> given_;
};

Calls sql(const std::vector<std::string>& statements) {
  Calls calls;
  for (const auto& statement : statements)
    calls.push_back((statement.starts_with("SELECT") ? "GetRecordset " : "ExecuteSql ") + statement);
  return calls;
}

TEST_F(SystemsCatalogueTest, TheConnectorIsOnlyStored) {
  EXPECT_TRUE(systems_.ActiveConnection() == Ref<DbConnector>(recorder_));
  EXPECT_EQ(recorder_->calls, Calls{});
  EXPECT_EQ(call("ActiveConnection", {}, {}, InvokeKind::get), "Object");
  EXPECT_EQ(call("ActiveConnection", {Ref<automation::Object>()}, {}, InvokeKind::putref), "Empty");
  EXPECT_FALSE(systems_.ActiveConnection());
  EXPECT_EQ(call("ActiveConnection", {}, {}, InvokeKind::get), "Nothing");
  EXPECT_EQ(call("ActiveConnection", {Ref<automation::Object>(recorder_)}, {}, InvokeKind::putref), "Empty");
  EXPECT_TRUE(systems_.ActiveConnection() == Ref<DbConnector>(recorder_));
  EXPECT_EQ(recorder_->calls, Calls{});
}

TEST_F(SystemsCatalogueTest, ListsWhatMeetsTheFilters) {
  scripted_->default_answer = Table{{"idSis", "titolo"}, {{7, "seven"}, {5, "five"}}};
  const auto rows = systems_.GetSistemiLista();
  ASSERT_TRUE(rows);
  EXPECT_TRUE(rows->is_open());
  EXPECT_EQ(rows->record_count(), 2);
  EXPECT_EQ(rows->value({1}), Variant("seven")) << "stands on its first row";
  EXPECT_EQ(recorder_->take(), sql({"SELECT * FROM tSistemi"}));
  EXPECT_TRUE(systems_.GetSistemiLista(7, "U", "l'a", "b\\", 10, 40, 20, 3));
  EXPECT_EQ(recorder_->take(), sql({"SELECT * FROM tSistemi WHERE (sistipo='U') AND (titolo LIKE '%l''a%') AND "
                                    "(descrizione LIKE '%b\\\\%') AND (qtaNumeri=10) AND (kColonne=20) AND "
                                    "(garanzia=3) AND (nGiocate=40) AND (idSis=7)"}));
  EXPECT_TRUE(rows->is_open());
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(SystemsCatalogueTest, ListLateBound) {
  const std::string list = "SELECT * FROM tSistemi";
  const struct {
    std::vector<Variant> arguments;
    std::vector<std::string_view> names;
    const char *expected, *where;
  } rows[] = {{{}, {}, "Object", ""},
              {{0, "", "", "", 0, 0, 0, 0}, {}, "Object", ""},
              {{Empty{}, Empty{}, Missing{}, Missing{}, "0"}, {}, "Object", ""},
              {{7}, {}, "Object", " WHERE (idSis=7)"},
              {{"7", "S"}, {}, "Object", " WHERE (sistipo='S') AND (idSis=7)"},
              {{Missing{}, Missing{}, "it's"}, {}, "Object", " WHERE (titolo LIKE '%it''s%')"},
              {{3, 20}, {"garanzia", "kColonne"}, "Object", " WHERE (kColonne=20) AND (garanzia=3)"},
              {{"x", 40, 10},
               {"DESCRIZIONE", "nGiocate", "qtaNumeri"},
               "Object",
               " WHERE (descrizione LIKE '%x%') AND (qtaNumeri=10) AND (nGiocate=40)"},
              {{"x"}, {}, "error 13", nullptr},
              {{0, Null{}}, {}, "error 94", nullptr},
              {{70000}, {"garanzia"}, "error 6", nullptr},
              {{1}, {"lIdSis"}, "error 448", nullptr}};
  for (const auto& row : rows) {
    EXPECT_EQ(call("GetSistemiLista", row.arguments, row.names), row.expected);
    EXPECT_EQ(recorder_->take(), row.where ? sql({list + row.where}) : Calls{});
    EXPECT_EQ(given_, row.arguments);
  }
}

TEST_F(SystemsCatalogueTest, ListThatFailsAndTheNextCallWorks) {
  const struct {
    Failure how;
    Calls log;
  } rows[] = {{Failure::refuses, {}},
              {Failure::raises_error, {"cSistemi.GetSistemiLista() 3001"}},
              {Failure::raises_exception, {"cSistemi.GetSistemiLista() -2147467259"}},
              {Failure::hands_over_nothing, {}}};
  for (const auto& row : rows) {
    connect_failing({.how = row.how});
    EXPECT_FALSE(systems_.GetSistemiLista());
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_TRUE(systems_.GetSistemiLista());
  }
  systems_.ActiveConnection(Ref<DbConnector>());
  EXPECT_FALSE(systems_.GetSistemiLista());
  EXPECT_EQ(log_.take(), Calls{"cSistemi.GetSistemiLista() 91"});
}

TEST_F(SystemsCatalogueTest, CombinationsOfASystem) {
  const struct {
    const char* what;
    Variant kind;
    std::vector<Variant> stored;
    const char* numbers;
    const char* expected;
    int32_t error;
  } rows[] = {{"no numbers", "U", {"1,2", "1,3"}, "", "1,2\r\n1,3", 0},
              {"kind S, no numbers", "S", {"1,2", "1,3"}, "", "1,2\r\n1,3", 0},
              {"positions", "U", {"1,2", "1,3"}, "10,20,30", "10,20\r\n10,30", 0},
              {"kind S stores numbers", "S", {"1,2", "1,3"}, "10,20,30", "1,2\r\n1,3", 0},
              {"another kind", "s", {"1,2"}, "10,20,30", "10,20", 0},
              {"another kind", "", {"1,2"}, "10,20,30", "10,20", 0},
              {"no kind", Null{}, {"1,2"}, "10,20,30", "10,20", 0},
              {"no kind, no numbers", Null{}, {"1,2"}, "", "1,2", 0},
              {"one row", "U", {"3,2,1"}, "10,20,30", "30,20,10", 0},
              {"a number", "U", {2}, "10,20,30", "20", 0},
              {"as it stands", "U", {" x;9 ", "", "1"}, "", " x;9 \r\n\r\n1", 0},
              {"an empty one first", "U", {"", "1"}, "10,20,30", "\r\n10", 0},
              {"empty ones only", "U", {"", ""}, "", "\r\n", 0},
              {"blanks of the list stay", "U", {"1, 2"}, "10, 20", "10, 20", 0},
              {"no combination", "U", {}, "10,20", "", 0},
              {"position 0", "U", {"0,1"}, "10,20", "", 9},
              {"position behind the last", "U", {"1,2", "1,3"}, "10,20", "", 9},
              {"negative position", "U", {"-1"}, "10,20", "", 9},
              {"no position", "U", {"1,x"}, "10,20", "", 13},
              {"position beyond 32 bits", "U", {"9999999999"}, "10,20", "", 6},
              {"no combination in the row", "U", {Null{}}, "10,20", "", 94},
              {"no combination in the row", "U", {Null{}}, "", "", 94}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    answer_combinations(row.kind, row.stored);
    std::string text = "left";
    const auto found = systems_.GetSistemaCombi(7, row.numbers, text);
    EXPECT_EQ(recorder_->take().front(), "GetRecordset " + combinations_of + "7");
    EXPECT_EQ(static_cast<bool>(found), row.error == 0);
    EXPECT_EQ(log_.take(), row.error == 0 ? Calls{} : Calls{"cSistemi.GetSistemaCombi() " + std::to_string(row.error)});
    EXPECT_EQ(text, found ? row.expected : "left");
    if (!found) continue;
    ASSERT_TRUE(found->is_open());
    EXPECT_EQ(found->record_count(), static_cast<int32_t>(row.stored.size()));
    EXPECT_EQ(found->at_end(), row.stored.empty());
    if (!row.stored.empty()) {
      EXPECT_EQ(found->value(found->column("id")), Variant(1)) << "stands on its first row";
    }
  }
}

TEST_F(SystemsCatalogueTest, OnlyTheFirstRowTellsTheKind) {
  Table table{{"sisTipo", "combinazione", "id"}, {{"U", "1,2", 1}, {"S", "2,1", 2}}};
  std::string text;
  scripted_->answers[combinations_of + "7"] = table;
  EXPECT_TRUE(systems_.GetSistemaCombi(7, "10,20", text));
  EXPECT_EQ(text, "10,20\r\n20,10");
  std::swap(table.rows[0], table.rows[1]);
  scripted_->answers[combinations_of + "7"] = table;
  EXPECT_TRUE(systems_.GetSistemaCombi(7, "10,20", text));
  EXPECT_EQ(text, "2,1\r\n1,2");
}

TEST_F(SystemsCatalogueTest, CombinationsLateBound) {
  answer_combinations("U", {"1,2", "1,3"});
  const struct {
    std::vector<Variant> arguments;
    std::vector<std::string_view> names;
    const char* expected;
    std::vector<Variant> left;
  } rows[] = {{{7}, {}, "Object", {7}},
              {{7, "10,20,30", "left"}, {}, "Object", {7, "10,20,30", "10,20\r\n10,30"}},
              {{"7", Missing{}, "left"}, {}, "Object", {"7", Missing{}, "1,2\r\n1,3"}},
              {{"left", 7}, {"sResCombi", "lIdSis"}, "Object", {"1,2\r\n1,3", 7}},
              {{7, "10,20,30"}, {}, "Object", {7, "10,20,30"}},
              {{7, "", Empty{}}, {}, "Object", {7, "", "1,2\r\n1,3"}},
              {{}, {}, "error 449", {}},
              {{7, Null{}}, {}, "error 94", {7, Null{}}}};
  for (const auto& row : rows) {
    EXPECT_EQ(call("GetSistemaCombi", row.arguments, row.names), row.expected);
    EXPECT_EQ(given_, row.left);
  }
  EXPECT_EQ(call("GetSistemaCombi", {8, "", "left"}), "Object") << "a system that there is not has no rows";
  EXPECT_EQ(given_[2], Variant(""));
  EXPECT_EQ(call("GetSistemaCombi", {7, "10", "left"}), "Nothing");
  EXPECT_EQ(log_.take(), Calls{"cSistemi.GetSistemaCombi() 9"});
}

TEST_F(SystemsCatalogueTest, CombinationsThatFailAndTheNextCallWorks) {
  answer_combinations("U", {"1,2", "1,3"});
  const Calls raised{"cSistemi.GetSistemaCombi() 3001"}, lost{"cSistemi.GetSistemaCombi() 3002"};
  const struct {
    Failure how;
    int32_t good_calls;
    Calls log;
  } rows[] = {{Failure::refuses, 0, {}},
              {Failure::raises_error, 0, raised},
              {Failure::raises_exception, 0, {"cSistemi.GetSistemaCombi() -2147467259"}},
              {Failure::hands_over_nothing, 0, {}},
              {Failure::rows_raise, 0, lost},
              {Failure::rows_raise, 1, lost},
              {Failure::rows_raise, 2, lost},
              {Failure::rows_raise, 4, lost},
              {Failure::rows_raise, 6, lost}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.how) + " after " + std::to_string(row.good_calls));
    connect_failing({.how = row.how, .good_calls = row.good_calls});
    std::string text = "left";
    EXPECT_FALSE(systems_.GetSistemaCombi(7, "10,20,30", text));
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_EQ(text, "left");
    EXPECT_TRUE(systems_.GetSistemaCombi(7, "10,20,30", text));
    EXPECT_EQ(text, "10,20\r\n10,30");
  }
  systems_.ActiveConnection(Ref<DbConnector>());
  std::string text = "left";
  EXPECT_FALSE(systems_.GetSistemaCombi(7, "", text));
  EXPECT_EQ(text, "left");
  EXPECT_EQ(log_.take(), Calls{"cSistemi.GetSistemaCombi() 91"});
}

TEST_F(SystemsCatalogueTest, RemovalsRunTheirStatements) {
  for (const int32_t key : {7, 0, -1, largest}) {
    const std::string combinations = "delete FROM tSistemaDetail WHERE idSis =" + std::to_string(key);
    EXPECT_TRUE(systems_.DelSistema(key));
    EXPECT_EQ(recorder_->take(), sql({combinations, "delete FROM tSistemi WHERE idSis =" + std::to_string(key)}));
    EXPECT_TRUE(systems_.DelSistemaDetail(key));
    EXPECT_EQ(recorder_->take(), sql({combinations}));
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(SystemsCatalogueTest, RemovalsThatFailAndTheNextCallWorks) {
  const struct {
    Failure how;
    const char* number;
  } kinds[] = {
      {Failure::refuses, nullptr}, {Failure::raises_error, "3001"}, {Failure::raises_exception, "-2147467259"}};
  const struct {
    bool (cSistemi::*remove)(int32_t) const;
    const char* label;
    int32_t statements;
  } rows[] = {{&cSistemi::DelSistema, "cSistemi.DelSistema() ", 2},
              {&cSistemi::DelSistemaDetail, "cSistemi.DelSistemaDetail() ", 1}};
  for (const auto& row : rows) {
    for (const auto& kind : kinds) {
      for (int32_t statement = 1; statement <= row.statements; ++statement) {
        SCOPED_TRACE(std::string(row.label) + testing::PrintToString(kind.how));
        connect_failing({.fail_statement = statement, .how = kind.how});
        EXPECT_FALSE((systems_.*row.remove)(7));
        EXPECT_EQ(recorder_->take().size(), static_cast<size_t>(statement - 1));
        EXPECT_EQ(log_.take(), kind.number ? Calls{std::string(row.label) + kind.number} : Calls{});
        EXPECT_TRUE((systems_.*row.remove)(7));
      }
    }
    systems_.ActiveConnection(Ref<DbConnector>());
    EXPECT_FALSE((systems_.*row.remove)(7));
    EXPECT_EQ(log_.take(), Calls{row.label + std::string("91")});
  }
}

TEST_F(SystemsCatalogueTest, RemovalsLateBound) {
  EXPECT_EQ(call("DelSistema", {"7"}), "True");
  EXPECT_EQ(call("delsistema", {7.0}, {"lIdSis"}), "True");
  EXPECT_EQ(call("DelSistemaDetail", {7}, {"lID"}), "True");
  EXPECT_EQ(recorder_->take().size(), 5U);
  for (const char* member : {"DelSistema", "DelSistemaDetail"}) {
    EXPECT_EQ(call(member, {}), "error 449");
    EXPECT_EQ(call(member, {"x"}), "error 13");
    EXPECT_EQ(call(member, {Null{}}), "error 94");
  }
  EXPECT_EQ(recorder_->take(), Calls{});
  EXPECT_EQ(log_.bytes(), "");
}

}  // namespace
}  // namespace vestara
