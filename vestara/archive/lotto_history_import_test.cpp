#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "automation/yield.h"
#include "tests/support/connectors.h"
#include "tests/support/events.h"
#include "tests/support/log_capture.h"
#include "vestara/archive/lotto.h"
#include "vestara/keeping/history_import.h"

namespace vestara {
namespace {

using automation::make;
using automation::Ref;
using testing_support::FailingConnector;
using testing_support::Failure;
using testing_support::FailurePlan;
using testing_support::LogCapture;
using testing_support::RecordingConnector;
using testing_support::ScriptedConnector;
using testing_support::TemporaryFolder;

using Calls = std::vector<std::string>;
constexpr const char* label = "cLotto.UpdateTblStorico() ";
constexpr const char* emptied = "ExecuteSql DELETE FROM storico";
constexpr const char* insert = "INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES";

/// `count` records with the contest numbers 1, 2, …, joined by "*".
std::string records(int32_t count) {
  std::string text;
  for (int32_t i = 1; i <= count; ++i)
    text += std::string(i > 1 ? "*" : "") + "#" + std::to_string(i) + "#15/11/2026#BA#12#45#3#88#67";
  return text;
}
/// The multi-row statement of contests `first` to `last`.
std::string insert_of(int32_t first, int32_t last) {
  std::string text = insert;
  for (int32_t i = first; i <= last; ++i)
    text += std::string(i > first ? "," : "") + "(" + std::to_string(i) + ",'2026-11-15','BA',12,45,3,88,67)";
  return text;
}

class HistoryImportTest : public testing::Test {
 protected:
  HistoryImportTest() {
    scripted_->state = 0;
    lotto_.ActiveConnection(recorder_);
    lotto_.events().connect(testing_support::event_writer(recorder_->calls));
    recorder_->calls.clear();
  }
  bool update(int16_t type, const std::string& text) {
    recorder_->calls.clear();
    lotto_.DbType(type);
    lotto_.FileUpdate(folder_.file("update.txt", text));
    return lotto_.UpdateTblStorico();
  }

  LogCapture log_;
  TemporaryFolder folder_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  Ref<RecordingConnector> recorder_ = make<RecordingConnector>(scripted_);
  testing_support::YieldWriter yields_{recorder_->calls};
  cLotto lotto_;
};

TEST_F(HistoryImportTest, OneRowPerInsert) {
  EXPECT_TRUE(update(1, "#4521#15/11/2026#BA#12#45#3#88#67*\r\n#4522#07.01.1871#RN#07#x#1#2#3#more"));
  EXPECT_EQ(recorder_->take(),
            (Calls{"LoadingStart", emptied,
                   "ExecuteSql INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES("
                   "4521,'2026-11-15','BA',12,45,3,88,67)",
                   "LoadingProgress 0 1", "yield",
                   "ExecuteSql INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES("
                   "4522,'1871-01-07','RN',7,0,1,2,3)",
                   "LoadingProgress 1 1", "yield", "LoadingEnd"}));
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(HistoryImportTest, ManyRowsPerInsertWritesWholeThousands) {
  const struct {
    int32_t count;
    Calls expected;
  } rows[] = {{1, {}},
              {999, {}},
              {1000, {"ExecuteSql " + insert_of(1, 1000), "LoadingProgress 1000 1000", "yield", "yield"}},
              {1001, {"ExecuteSql " + insert_of(1, 1000), "LoadingProgress 1000 1001", "yield", "yield"}},
              {2500,
               {"ExecuteSql " + insert_of(1, 1000), "LoadingProgress 1000 2500", "yield", "yield",
                "ExecuteSql " + insert_of(1001, 2000), "LoadingProgress 2000 2500", "yield", "yield"}}};
  for (const auto& row : rows) {
    EXPECT_TRUE(update(2, records(row.count)));
    Calls expected{"LoadingStart", emptied};
    expected.insert(expected.end(), row.expected.begin(), row.expected.end());
    expected.push_back("LoadingEnd");
    EXPECT_TRUE(recorder_->take() == expected) << row.count;
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(HistoryImportTest, UnknownDatabaseTypeOnlyEmptiesTheTable) {
  for (const int16_t type : {int16_t{0}, int16_t{3}, int16_t{-1}}) {
    EXPECT_TRUE(update(type, "no record at all*"));
    EXPECT_EQ(recorder_->take(), (Calls{"LoadingStart", emptied, "LoadingEnd"})) << type;
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(HistoryImportTest, EmptyFileTouchesNothingAndRaisesNoLoadingEnd) {
  for (const int16_t type : {int16_t{1}, int16_t{2}, int16_t{0}}) {
    EXPECT_FALSE(update(type, ""));
    EXPECT_EQ(recorder_->take(), Calls{"LoadingStart"});
  }
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(HistoryImportTest, MissingFileIsCreatedEmpty) {
  const auto path = folder_.path() / "missing.txt";
  lotto_.FileUpdate(path.string());
  EXPECT_FALSE(lotto_.UpdateTblStorico());
  EXPECT_EQ(recorder_->take(), Calls{"LoadingStart"});
  EXPECT_TRUE(std::filesystem::is_empty(path));
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(HistoryImportTest, FileThatCannotBeOpenedIsAFailure) {
  for (const std::string& path : {std::string(), (folder_.path() / "no" / "such").string(), folder_.path().string()}) {
    lotto_.FileUpdate(path);
    EXPECT_FALSE(lotto_.UpdateTblStorico());
    EXPECT_EQ(recorder_->take(), (Calls{"LoadingStart", "LoadingEnd"})) << path;
    const auto entries = log_.entries();
    ASSERT_EQ(entries.size(), 1U) << path;
    EXPECT_EQ(entries[0].label + " ", label);
    EXPECT_TRUE((std::set{52, 70, 75, 76}.contains(entries[0].number))) << entries[0].number;
    log_.take();
  }
}

TEST_F(HistoryImportTest, WithoutAPathIsError75) {
  lotto_.FileUpdate("");
  EXPECT_FALSE(lotto_.UpdateTblStorico());
  EXPECT_EQ(log_.take(), Calls{label + std::string("75")});
}

TEST_F(HistoryImportTest, FileWithoutAFolderIsError76) {
  const std::string file = folder_.file("no folder", "x");
  for (const std::string& path : {folder_.path_to("missing/x"), file + "/x"}) {
    lotto_.FileUpdate(path);
    EXPECT_FALSE(lotto_.UpdateTblStorico());
    EXPECT_EQ(log_.take(), Calls{label + std::string("76")}) << path;
  }
}

TEST_F(HistoryImportTest, RecordsThatFail) {
  const std::string good = records(1);
  const struct {
    const char* what;
    int16_t type;
    std::string text;
    int32_t progress;  // events before the failure
    const char* number;
  } rows[] = {{"trailing *, single rows", 1, records(3) + "*", 3, "9"},
              {"trailing *, whole thousands", 2, records(2000) + "*", 2, "9"},
              {"trailing * and a line break", 1, good + "*\r\n", 1, "9"},
              {"eight fields", 1, good + "*#1#15/11/2026#BA#1#2#3#4*" + good, 1, "9"},
              {"a number beyond 16 bits", 1, good + "*#1#15/11/2026#BA#1#2#3#4#40000", 1, "6"},
              {"a number beyond 16 bits, many rows", 2, "#1#15/11/2026#BA#1#2#3#4#40000", 0, "6"},
              {"a leading *", 1, "*" + good, 0, "9"},
              {"no record", 2, "\r\n", 0, "9"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_FALSE(update(row.type, row.text));
    const Calls calls = recorder_->take();
    EXPECT_EQ(calls[1], emptied);
    EXPECT_EQ(calls.back(), "LoadingEnd");
    const auto starting = [&](std::string_view with) {
      return std::ranges::count_if(calls, [&](const auto& call) { return call.starts_with(with); });
    };
    EXPECT_EQ(starting("LoadingProgress"), row.progress);
    EXPECT_EQ(starting("ExecuteSql INSERT"), row.progress);
    EXPECT_EQ(log_.take(), Calls{label + std::string(row.number)});
  }
}

TEST_F(HistoryImportTest, QuoteInTheWheelBreaksTheStatement) {
  scripted_->refused.insert(insert + std::string("(2,'2026-11-15','B'A',1,2,3,4,5)"));
  EXPECT_FALSE(update(1, records(1) + "*#2#15/11/2026#B'A#1#2#3#4#5*" + records(1)));
  EXPECT_EQ(recorder_->take(),
            (Calls{"LoadingStart", emptied, "ExecuteSql " + insert_of(1, 1), "LoadingProgress 0 2", "yield",
                   "ExecuteSql " + std::string(insert) + "(2,'2026-11-15','B'A',1,2,3,4,5)", "LoadingEnd"}));
  const auto entries = log_.entries();
  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries[0].label + " ", label);
  EXPECT_EQ(entries[0].description, "");
  EXPECT_EQ(entries[0].number, 0);
}

TEST_F(HistoryImportTest, FieldsOfTheCodePage) {
  EXPECT_TRUE(update(1, "\xE0#1#x#\xC0\x80#1#2#3#4#5"));
  EXPECT_EQ(recorder_->take()[2], "ExecuteSql " + std::string(insert) + "(1,NULL,'À€',1,2,3,4,5)");
}

TEST_F(HistoryImportTest, EveryFailureOfTheConnectorAndTheNextCallWorks) {
  const Calls zero{label + std::string("0")}, error{label + std::string("3001")};
  const struct {
    const char* what;
    FailurePlan plan;
    int16_t type;
    int32_t count;
    bool result;
    Calls events, log;
  } rows[] = {
      {"the DELETE's result is ignored", {1, Failure::refuses}, 1, 1, true, {"LoadingProgress 0 0", "yield"}, {}},
      {"the DELETE raises", {1, Failure::raises_error}, 1, 1, false, {}, error},
      {"first insert refused", {2, Failure::refuses}, 1, 2, false, {}, zero},
      {"second insert refused", {3, Failure::refuses}, 1, 2, false, {"LoadingProgress 0 1", "yield"}, zero},
      {"second insert raises", {3, Failure::raises_error}, 1, 2, false, {"LoadingProgress 0 1", "yield"}, error},
      {"exception", {2, Failure::raises_exception}, 1, 2, false, {}, {label + std::string("-2147467259")}},
      {"first thousand refused", {2, Failure::refuses}, 2, 2000, false, {}, zero},
      {"second thousand raises",
       {3, Failure::raises_error},
       2,
       2000,
       false,
       {"LoadingProgress 1000 2000", "yield", "yield"},
       error}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    lotto_.ActiveConnection(make<FailingConnector>(recorder_, row.plan));
    EXPECT_EQ(update(row.type, records(row.count)), row.result);
    Calls events = recorder_->take();
    std::erase_if(events, [](const auto& call) { return call.starts_with("ExecuteSql"); });
    Calls expected{"LoadingStart"};
    expected.insert(expected.end(), row.events.begin(), row.events.end());
    expected.push_back("LoadingEnd");
    EXPECT_EQ(events, expected);
    EXPECT_EQ(log_.take(), row.log);
    EXPECT_TRUE(update(1, records(1)));
    EXPECT_EQ(log_.bytes(), "");
  }
}

TEST_F(HistoryImportTest, WithoutAConnector) {
  lotto_.ActiveConnection(Ref<DbConnector>());
  EXPECT_FALSE(update(1, records(1)));
  EXPECT_EQ(recorder_->take(), (Calls{"LoadingStart", "LoadingEnd"}));
  EXPECT_EQ(log_.take(), Calls{label + std::string("91")});
  EXPECT_FALSE(update(1, ""));
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(HistoryImportTest, SinkThatRaisesDoesNotBreakTheImport) {
  lotto_.events().connect([](const automation::Event&, auto) { throw automation::type_mismatch(); });
  EXPECT_TRUE(update(1, records(2)));
  EXPECT_EQ(recorder_->take().back(), "LoadingEnd");
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(HistoryImportTest, HostThatRaisesWhileItIsYieldedToEndsTheImport) {
  automation::set_yield_hook([] { throw automation::RunTimeError(18, "interrupted"); });
  EXPECT_FALSE(update(1, records(2)));
  EXPECT_EQ(recorder_->take(),
            (Calls{"LoadingStart", emptied, "ExecuteSql " + insert_of(1, 1), "LoadingProgress 0 1", "LoadingEnd"}));
  EXPECT_EQ(log_.take(), Calls{label + std::string("18")});
}

TEST_F(HistoryImportTest, HostThatTakesTheConnectorAwayWhileItIsYieldedTo) {
  automation::set_yield_hook([&] { lotto_.ActiveConnection(Ref<DbConnector>()); });
  for (const int16_t type : {int16_t{1}, int16_t{2}}) {
    lotto_.ActiveConnection(make<ScriptedConnector>());  // nobody else holds it
    log_.take();
    update(type, records(3000));
    EXPECT_EQ(recorder_->take().back(), "LoadingEnd");
    log_.take();
  }
}

}  // namespace
}  // namespace vestara
