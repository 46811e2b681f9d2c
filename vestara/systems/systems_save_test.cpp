#include <gtest/gtest.h>

#include <limits>

#include "tests/support/connectors.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "vestara/systems/systems.h"

namespace vestara {
namespace {

using automation::InvokeKind;
using automation::make;
using automation::Ref;
using automation::Variant;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::outcome;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using Calls = std::vector<std::string>;

constexpr int32_t largest = std::numeric_limits<int32_t>::max();
const std::string header_insert =
    "ExecuteSql INSERT INTO tSistemi "
    "(idSis,titolo,descrizione,numeri,qtaNumeri,nGiocate,kColonne,garanzia,sisTipo)VALUES(";
const std::string line_insert = "ExecuteSql INSERT INTO tSistemaDetail (idSis,combinazione)VALUES(";

class SystemsSaveTest : public testing::Test {
 protected:
  SystemsSaveTest() {
    scripted_->max_ids["tSistemi.idSis"] = 41;
    systems_.ActiveConnection(recorder_);
  }
  void connect_failing(FailurePlan plan) {
    systems_.ActiveConnection(make<FailingConnector>(recorder_, plan));
    recorder_->calls.clear();
  }
  bool save(int32_t key, const std::string& combinations = "1,2\r\n1,3") {
    key_ = key;
    combinations_ = combinations;
    return systems_.SalvaSistema(key_, combinations_, "Ambo", "in due", "10,20,30", 3, 20, 40, 2);
  }
  std::string call(std::string_view member, std::vector<Variant> arguments,
                   const std::vector<std::string_view>& names = {}) {
    given_ = std::move(arguments);
    return outcome([&] { return systems_.call(member, InvokeKind::method, given_, names); });
  }

  testing_support::LogCapture log_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  cSistemi systems_;
  int32_t key_ = 0;           // as the last save left it
  std::string combinations_;  // as the last save left them
  std::vector<Variant> given_;
};

/// What a save sends for lines "1,2" and "1,3" under the key 42.
const Calls new_system{"GetMaxId tSistemi idSis", header_insert + "42,'Ambo','in due','10,20,30',3,40,20,2,'U')",
                       line_insert + "42,'1,2')", line_insert + "42,'1,3')"};
Calls edited_system(int32_t key) {
  Calls calls{"ExecuteSql delete FROM tSistemi WHERE idSis=" + std::to_string(key),
              "ExecuteSql delete FROM tSistemaDetail WHERE idSis=" + std::to_string(key)};
  calls.insert(calls.end(), new_system.begin(), new_system.end());
  return calls;
}

TEST_F(SystemsSaveTest, SaveOfANewAndOfAnEditedSystem) {
  EXPECT_TRUE(save(0, " \r\n1,2\r\n1,3\r\n"));
  EXPECT_EQ(recorder_->take(), new_system);
  EXPECT_EQ(key_, 42);
  EXPECT_EQ(combinations_, "1,2\r\n1,3");
  for (const int32_t key : {7, -1, 41, largest}) {
    EXPECT_TRUE(save(key));
    EXPECT_EQ(recorder_->take(), edited_system(key));
    EXPECT_EQ(key_, 42);
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(SystemsSaveTest, SaveOfEveryLine) {
  const struct {
    const char *given, *left;
    Calls lines;
  } rows[] = {{"", "", {}},
              {"   ", "", {}},
              {"7", "7", {"7"}},
              {"x1,2y", "1,2", {"1,2"}},
              {"1,2\r\n1,2", "1,2\r\n1,2", {"1,2", "1,2"}},
              {"1,2\r\n\r\n3,4", "1,2\r\n\r\n3,4", {"1,2", "", "3,4"}},
              {"1,2\n3,4", "1,2\n3,4", {"1,2\n3,4"}},
              {"1 , 2\r\n 3", "1 , 2\r\n 3", {"1 , 2", " 3"}},
              {"1'\\2", "1'\\2", {"1'\\2"}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.given);
    EXPECT_TRUE(save(0, row.given));
    EXPECT_EQ(combinations_, row.left);
    Calls expected(new_system.begin(), new_system.begin() + 2);
    for (const auto& line : row.lines) expected.push_back(line_insert + "42,'" + line + "')");
    EXPECT_EQ(recorder_->take(), expected);
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(SystemsSaveTest, TextsOfTheHeaderAreEscapedAndTheNumbersAreNot) {
  int32_t key = 0;
  std::string combinations;
  EXPECT_TRUE(systems_.SalvaSistema(key, combinations, "l'ambo", "a\\'b", "1'2\\", -1, -32768, 32767, 0));
  EXPECT_EQ(recorder_->take().back(), header_insert + "42,'l''ambo','a\\\\''b','1'2\\',-1,32767,-32768,0,'U')");
}

TEST_F(SystemsSaveTest, KeysAfterTheLargest) {
  scripted_->max_ids.clear();
  EXPECT_TRUE(save(0));
  EXPECT_EQ(key_, 1) << "the first of an empty table";
  scripted_->max_ids["tSistemi.idSis"] = largest - 1;
  EXPECT_TRUE(save(0));
  EXPECT_EQ(key_, largest);
  scripted_->max_ids["tSistemi.idSis"] = largest;
  recorder_->calls.clear();
  EXPECT_FALSE(save(0));
  EXPECT_EQ(recorder_->take(), Calls{"GetMaxId tSistemi idSis"});
  EXPECT_EQ(log_.take(), Calls{"cSistemi.SalvaSistema() 6"});
  EXPECT_EQ(key_, 0);
}

TEST_F(SystemsSaveTest, SaveOfATextWithoutANumberDoesNothing) {
  for (const int32_t key : {0, 7}) {
    EXPECT_FALSE(save(key, "none"));
    EXPECT_EQ(recorder_->take(), Calls{});
    EXPECT_EQ(log_.take(), Calls{"cSistemi.SalvaSistema() 6"});
    EXPECT_EQ(key_, key);
    EXPECT_EQ(combinations_, "none");
  }
}

TEST_F(SystemsSaveTest, SaveThatFailsAtAnyStatementStopsThereAndTheNextCallWorks) {
  const struct {
    Failure how;
    Calls log;
  } kinds[] = {{Failure::refuses, {}},
               {Failure::raises_error, {"cSistemi.SalvaSistema() 3001"}},
               {Failure::raises_exception, {"cSistemi.SalvaSistema() -2147467259"}}};
  for (const int32_t key : {0, 7}) {
    const Calls all = key == 0 ? new_system : edited_system(key);
    const int32_t key_statement = key == 0 ? 1 : 3;
    for (int32_t statement = 1; statement <= static_cast<int32_t>(all.size()); ++statement) {
      for (const auto& kind : kinds) {
        if (kind.how == Failure::refuses && statement == key_statement) continue;  // a key cannot be refused
        SCOPED_TRACE("key " + std::to_string(key) + ", statement " + std::to_string(statement) + ", " +
                     testing::PrintToString(kind.how));
        connect_failing({.fail_statement = statement, .how = kind.how});
        EXPECT_FALSE(save(key, "1,2\r\n1,3\r\n"));
        EXPECT_EQ(log_.take(), kind.log);
        EXPECT_EQ(recorder_->take(), Calls(all.begin(), all.begin() + statement - 1));
        EXPECT_EQ(key_, statement <= key_statement ? key : 42);
        EXPECT_EQ(combinations_, "1,2\r\n1,3");
        EXPECT_TRUE(save(key));
        EXPECT_EQ(recorder_->take(), all);
      }
    }
  }
}

TEST_F(SystemsSaveTest, SaveLateBound) {
  const std::vector<Variant> arguments{0, " 1,2\r\n1,3 ", "Ambo", "in due", "10,20,30", 3, "20", 40.0, 2};
  std::vector<Variant> left = arguments;
  left[0] = 42;
  left[1] = "1,2\r\n1,3";
  EXPECT_EQ(call("SalvaSistema", arguments), "True");
  EXPECT_EQ(given_, left);
  EXPECT_EQ(recorder_->take(), new_system);
  EXPECT_EQ(call("salvasistema", {2, 40, 20, 3, "10,20,30", "in due", "Ambo", "1,2\r\n1,3", "7"},
                 {"iGaranzia", "nGiocate", "kColonne", "QtaNumeri", "numeri", "descrizione", "titolo", "sistemaCombi",
                  "idSis"}),
            "True");
  EXPECT_EQ(given_.back(), Variant(42));
  EXPECT_EQ(recorder_->take(), edited_system(7));
  left = arguments;
  left.pop_back();
  EXPECT_EQ(call("SalvaSistema", left), "error 449");
  EXPECT_EQ(given_, left);
  for (const size_t place : {0U, 5U, 6U, 7U, 8U}) {
    left = arguments;
    left[place] = "x";
    EXPECT_EQ(call("SalvaSistema", left), "error 13") << place;
    EXPECT_EQ(given_, left);
  }
  left = arguments;
  left[8] = 40000;
  EXPECT_EQ(call("SalvaSistema", left), "error 6");
  EXPECT_EQ(recorder_->take(), Calls{});
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(SystemsSaveTest, SaveWithoutAConnector) {
  systems_.ActiveConnection(Ref<DbConnector>());
  for (const int32_t key : {0, 7}) {
    EXPECT_FALSE(save(key, " 1 "));
    EXPECT_EQ(key_, key);
    EXPECT_EQ(combinations_, "1");
    EXPECT_EQ(log_.take(), Calls{"cSistemi.SalvaSistema() 91"});
  }
}

}  // namespace
}  // namespace vestara
