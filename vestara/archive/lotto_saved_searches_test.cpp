#include <gtest/gtest.h>

#include <limits>

#include "tests/support/connectors.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "vestara/archive/lotto.h"

namespace vestara {
namespace {

using automation::Empty;
using automation::InvokeKind;
using automation::make;
using automation::Missing;
using automation::Null;
using automation::Ref;
using automation::Variant;
using testing_support::day;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::LogCapture;
using testing_support::moment;
using testing_support::outcome;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using testing_support::Table;

using Calls = std::vector<std::string>;

constexpr const char* list_all = "SELECT * FROM tRicerche ORDER BY dtSave Desc";
constexpr int32_t largest = std::numeric_limits<int32_t>::max();

class LottoSavedSearchesTest : public testing::Test {
 protected:
  LottoSavedSearchesTest() {
    scripted_->state = 0;
    scripted_->default_answer.reset();
    scripted_->max_ids["tRicerche.idRicerca"] = 41;
    scripted_->answers[list_all] = {{"idRicerca", "descRicerca"}, {{7, "seven"}, {5, "five"}}};
    lotto_.ActiveConnection(recorder_);
    recorder_->calls.clear();
  }
  void connect_failing(FailurePlan plan) {
    lotto_.ActiveConnection(make<FailingConnector>(recorder_, plan));
    recorder_->calls.clear();
  }
  bool save(int32_t id) { return lotto_.SaveRicerchePersonalizzate(id, "Ambo", "5,12", 2, "BA"); }
  std::string call(std::string_view member, std::vector<Variant> arguments,
                   const std::vector<std::string_view>& names = {}) {
    given_ = std::move(arguments);
    return outcome([&] { return lotto_.call(member, InvokeKind::method, given_, names); });
  }

  LogCapture log_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  cLotto lotto_;
  std::vector<Variant> given_;  // as the last late-bound call left them
};

TEST_F(LottoSavedSearchesTest, ListsOneOrAll) {
  scripted_->default_answer = Table{};
  const struct {
    int32_t id;
    const char* statement;
  } rows[] = {{-1, list_all},
              {0, "SELECT * FROM tRicerche WHERE idRicerca=0 ORDER BY dtSave Desc"},
              {7, "SELECT * FROM tRicerche WHERE idRicerca=7 ORDER BY dtSave Desc"},
              {-2, "SELECT * FROM tRicerche WHERE idRicerca=-2 ORDER BY dtSave Desc"}};
  for (const auto& row : rows) {
    EXPECT_TRUE(lotto_.GetRicerchePersonalizzate(row.id));
    EXPECT_EQ(recorder_->take(), Calls{std::string("OpenRecordset ") + row.statement});
  }
  EXPECT_TRUE(lotto_.GetRicerchePersonalizzate()) << "the default asks for the key 0";
  EXPECT_EQ(recorder_->take(), Calls{std::string("OpenRecordset ") + rows[1].statement});
}

TEST_F(LottoSavedSearchesTest, DatesOfAListingAreNotLookedAt) {
  for (const Variant& date : {Variant(day(2026, 1, 2)), Variant("soon"), Variant(Null{}), Variant(scripted_)}) {
    EXPECT_TRUE(lotto_.GetRicerchePersonalizzate(-1, date, date));
    EXPECT_EQ(recorder_->take(), Calls{std::string("OpenRecordset ") + list_all});
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoSavedSearchesTest, ListingBelongsToTheCaller) {
  const auto rows = lotto_.GetRicerchePersonalizzate(-1);
  ASSERT_TRUE(rows);
  EXPECT_TRUE(rows->is_open());
  EXPECT_EQ(rows->record_count(), 2);
  EXPECT_EQ(rows->value({1}), Variant("seven")) << "stands on its first row";
  EXPECT_TRUE(lotto_.DeleteRicerchePersonalizzate(7));
  EXPECT_TRUE(rows->is_open());
}

TEST_F(LottoSavedSearchesTest, ListingThatFailsAndTheNextCallWorks) {
  const struct {
    Failure how;
    Calls log;
  } rows[] = {{Failure::refuses, {}},
              {Failure::raises_error, {"cLotto.GetRicerchePersonalizzate() 3001"}},
              {Failure::raises_exception, {"cLotto.GetRicerchePersonalizzate() -2147467259"}},
              {Failure::hands_over_nothing, {}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.how));
    connect_failing({.how = row.how});
    EXPECT_FALSE(lotto_.GetRicerchePersonalizzate(-1));
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_TRUE(lotto_.GetRicerchePersonalizzate(-1));
  }
  lotto_.ActiveConnection(Ref<DbConnector>());
  EXPECT_FALSE(lotto_.GetRicerchePersonalizzate(-1));
  EXPECT_EQ(log_.take(), Calls{"cLotto.GetRicerchePersonalizzate() 91"});
}

TEST_F(LottoSavedSearchesTest, DeleteGivesTheResultOfItsStatementAndNeverLogs) {
  for (const int32_t id : {7, 0, -1}) {
    const std::string statement = "DELETE FROM tRicerche WHERE idRicerca=" + std::to_string(id);
    EXPECT_TRUE(lotto_.DeleteRicerchePersonalizzate(id));
    EXPECT_EQ(recorder_->take(), Calls{"ExecuteSql " + statement});
  }
  for (const Failure how : {Failure::refuses, Failure::raises_error, Failure::raises_exception}) {
    connect_failing({.how = how});
    EXPECT_FALSE(lotto_.DeleteRicerchePersonalizzate(7)) << testing::PrintToString(how);
    EXPECT_TRUE(lotto_.DeleteRicerchePersonalizzate(7));
  }
  lotto_.ActiveConnection(Ref<DbConnector>());
  EXPECT_FALSE(lotto_.DeleteRicerchePersonalizzate(7));
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoSavedSearchesTest, KeyZeroInsertsUnderTheNextKeyAndOthersUpdate) {
  const struct {
    const char* what;
    int32_t id;
    Variant saved, from, to;
    Calls calls;
  } rows[] = {
      {"new, no date",
       0,
       Missing{},
       Missing{},
       Missing{},
       {"GetMaxId tRicerche idRicerca",
        "ExecuteSql INSERT INTO tRicerche (idRicerca,descRicerca,numeri,combinazione,ruote,dtSave,dtDa,DtA) VALUES "
        "(42,'Ambo','5,12',2,'BA',NULL,NULL,NULL)"}},
      {"new, every date",
       0,
       moment({2026, 11, 15, 10, 14, 16}),
       "02/01/2026",
       day(2026, 12, 31),
       {"GetMaxId tRicerche idRicerca",
        "ExecuteSql INSERT INTO tRicerche (idRicerca,descRicerca,numeri,combinazione,ruote,dtSave,dtDa,DtA) VALUES "
        "(42,'Ambo','5,12',2,'BA','2026-11-15','2026-01-02','2026-12-31')"}},
      {"update, one date",
       5,
       Null{},
       day(2026, 1, 2),
       "soon",
       {"ExecuteSql UPDATE tRicerche SET descRicerca='Ambo',numeri='5,12',combinazione=2,ruote='BA',dtSave=NULL,"
        "dtDa='2026-01-02',dtA=NULL WHERE idRicerca=5"}},
      {"any key but 0 updates",
       -1,
       "2026-11-15",
       Empty{},
       "",
       {"ExecuteSql UPDATE tRicerche SET descRicerca='Ambo',numeri='5,12',combinazione=2,ruote='BA',"
        "dtSave='2026-11-15',dtDa=NULL,dtA=NULL WHERE idRicerca=-1"}}};
  for (const auto& row : rows) {
    EXPECT_TRUE(lotto_.SaveRicerchePersonalizzate(row.id, "Ambo", "5,12", 2, "BA", row.saved, row.from, row.to))
        << row.what;
    EXPECT_EQ(recorder_->take(), row.calls) << row.what;
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoSavedSearchesTest, FirstKeyOfAnEmptyTableIsOne) {
  scripted_->max_ids.clear();
  EXPECT_TRUE(save(0));
  EXPECT_EQ(recorder_->take().back(),
            "ExecuteSql INSERT INTO tRicerche (idRicerca,descRicerca,numeri,combinazione,ruote,dtSave,dtDa,DtA) VALUES "
            "(1,'Ambo','5,12',2,'BA',NULL,NULL,NULL)");
}

// Quotes and backslashes are doubled in the caller's own variables, and stay so.
const struct {
  const char *given, *left;
} escaped_texts[] = {{"Ambo", "Ambo"},
                     {"O'Hara\\x", "O''Hara\\\\x"},
                     {"''", "''''"},
                     {"\\", "\\\\"},
                     {"'\\'", "''\\\\''"},
                     {"", ""},
                     {"   ", "   "},
                     {" ' ", " '' "},
                     {"100%_\"però\"", "100%_\"però\""}};

TEST_F(LottoSavedSearchesTest, TextsComeBackEscaped) {
  for (const auto& row : escaped_texts) {
    for (const int32_t id : {0, 5}) {
      std::string description = row.given, numbers = row.given, wheels = row.given;
      EXPECT_TRUE(lotto_.SaveRicerchePersonalizzate(id, description, numbers, 2, wheels));
      EXPECT_EQ(description, row.left);
      EXPECT_EQ(numbers, row.left);
      EXPECT_EQ(wheels, row.left);
    }
  }
  std::string description = "it's", numbers = "a\\b", wheels = "'";
  recorder_->calls.clear();
  EXPECT_TRUE(lotto_.SaveRicerchePersonalizzate(5, description, numbers, 2, wheels));
  EXPECT_EQ(recorder_->take(),
            Calls{"ExecuteSql UPDATE tRicerche SET descRicerca='it''s',numeri='a\\\\b',combinazione=2,ruote='''',"
                  "dtSave=NULL,dtDa=NULL,dtA=NULL WHERE idRicerca=5"});
}

TEST_F(LottoSavedSearchesTest, TextsComeBackEscapedToALateBoundCallerAndTheKeyStays) {
  for (const auto& row : escaped_texts) {
    EXPECT_EQ(call("SaveRicerchePersonalizzate",
                   {0, row.given, row.given, 2, row.given, day(2026, 11, 15), Null{}, "02/01/2026"}),
              "True");
    EXPECT_EQ(given_,
              (std::vector<Variant>{0, row.left, row.left, 2, row.left, day(2026, 11, 15), Null{}, "02/01/2026"}));
  }
  EXPECT_EQ(call("saveRicerchePersonalizzate", {int16_t{5}, 2, "'", "x", "'"},
                 {"iCombinazione", "sRuote", "sDescRicerca", "sNumeri"}),
            "True");
  EXPECT_EQ(given_, (std::vector<Variant>{int16_t{5}, 2, "''", "x", "''"}));
}

TEST_F(LottoSavedSearchesTest, DatesMayBeLeftOut) {
  const Variant date = day(2026, 11, 15);
  const struct {
    std::vector<Variant> arguments;
    std::vector<std::string_view> names;
    const char *expected, *dates;
  } rows[] = {
      {{5, "d", "1", 2, "BA"}, {}, "True", "dtSave=NULL,dtDa=NULL,dtA=NULL"},
      {{5, "d", "1", 2, "BA", Missing{}, Missing{}, Missing{}}, {}, "True", "dtSave=NULL,dtDa=NULL,dtA=NULL"},
      {{5, "d", "1", 2, "BA", date}, {}, "True", "dtSave='2026-11-15',dtDa=NULL,dtA=NULL"},
      {{5, "d", "1", 2, "BA", Missing{}, date}, {}, "True", "dtSave=NULL,dtDa='2026-11-15',dtA=NULL"},
      {{5, "d", "1", 2, "BA", date}, {"dtA"}, "True", "dtSave=NULL,dtDa=NULL,dtA='2026-11-15'"},
      {{5, "d", "1", 2, "BA", date, date, date}, {}, "True", "dtSave='2026-11-15',dtDa='2026-11-15',dtA='2026-11-15'"},
      {{5, "d", "1", 2}, {}, "error 449", nullptr},
      {{5, "d", "1", 2, Missing{}}, {}, "error 449", nullptr},
      {{}, {}, "error 449", nullptr},
      {{5, "d", "1", 70000, "BA"}, {}, "error 6", nullptr},
      {{5, Null{}, "1", 2, "BA"}, {}, "error 94", nullptr}};
  for (const auto& row : rows) {
    EXPECT_EQ(call("SaveRicerchePersonalizzate", row.arguments, row.names), row.expected);
    Calls expected;
    if (row.dates)
      expected.push_back("ExecuteSql UPDATE tRicerche SET descRicerca='d',numeri='1',combinazione=2,ruote='BA'," +
                         std::string(row.dates) + " WHERE idRicerca=5");
    EXPECT_EQ(recorder_->take(), expected);
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoSavedSearchesTest, ListAndDeleteLateBound) {
  EXPECT_EQ(call("GetRicerchePersonalizzate", {-1}), "Object");
  EXPECT_EQ(call("GetRicerchePersonalizzate", {"-1", "soon", Null{}}), "Object");
  EXPECT_EQ(call("GetRicerchePersonalizzate", {day(2026, 1, 2), -1}, {"dtSaveA", "idRicerca"}), "Object");
  EXPECT_EQ(call("GetRicerchePersonalizzate", {}), "Nothing");
  EXPECT_EQ(recorder_->take().back(), "OpenRecordset SELECT * FROM tRicerche WHERE idRicerca=0 ORDER BY dtSave Desc");
  EXPECT_EQ(call("DeleteRicerchePersonalizzate", {"7"}), "True");
  EXPECT_EQ(call("DeleteRicerchePersonalizzate", {7}, {"lIdRicerca"}), "True");
  EXPECT_EQ(call("DeleteRicerchePersonalizzate", {}), "error 449");
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(LottoSavedSearchesTest, SaveThatFailsAndTheNextCallWorks) {
  const char *raised = "cLotto.SaveRicerchePersonalizzate() 3001",
             *lost = "cLotto.SaveRicerchePersonalizzate() -2147467259";
  const struct {
    const char* what;
    int32_t id;
    FailurePlan plan;
    Calls log;
  } rows[] = {{"largest key", 0, {1, Failure::raises_error}, {raised}},
              {"largest key", 0, {1, Failure::raises_exception}, {lost}},
              {"insert refused, as a second equal key is", 0, {2, Failure::refuses}, {}},
              {"insert", 0, {2, Failure::raises_error}, {raised}},
              {"update refused", 5, {1, Failure::refuses}, {}},
              {"update", 5, {1, Failure::raises_error}, {raised}},
              {"update", 5, {1, Failure::raises_exception}, {lost}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    connect_failing(row.plan);
    std::string description = "it's", numbers = "'", wheels = "\\";
    EXPECT_FALSE(lotto_.SaveRicerchePersonalizzate(row.id, description, numbers, 2, wheels));
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_EQ(description + " " + numbers + " " + wheels, "it''s '' \\\\") << "escaped all the same";
    EXPECT_TRUE(save(row.id));
    EXPECT_EQ(log_.bytes(), "");
  }
}

TEST_F(LottoSavedSearchesTest, SaveWithoutAConnector) {
  lotto_.ActiveConnection(Ref<DbConnector>());
  for (const int32_t id : {0, 5}) {
    std::string description = "it's", numbers = "5", wheels = "BA";
    EXPECT_FALSE(lotto_.SaveRicerchePersonalizzate(id, description, numbers, 2, wheels));
    EXPECT_EQ(description, "it''s");
    EXPECT_EQ(log_.take(), Calls{"cLotto.SaveRicerchePersonalizzate() 91"});
  }
}

TEST_F(LottoSavedSearchesTest, NoKeyAfterTheLargest) {
  scripted_->max_ids["tRicerche.idRicerca"] = largest;
  EXPECT_FALSE(save(0));
  EXPECT_EQ(recorder_->take(), Calls{"GetMaxId tRicerche idRicerca"});
  EXPECT_EQ(log_.take(), Calls{"cLotto.SaveRicerchePersonalizzate() 6"});
  scripted_->max_ids["tRicerche.idRicerca"] = largest - 1;
  EXPECT_TRUE(save(0));
}

}  // namespace
}  // namespace vestara
