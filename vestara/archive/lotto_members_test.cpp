#include "vestara/archive/lotto_members.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/connectors.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"
#include "vestara/archive/lotto.h"

namespace vestara {
namespace {

using automation::InvokeKind;
using automation::make;
using automation::Member;
using automation::Missing;
using automation::Null;
using automation::Passing;
using automation::Ref;
using automation::ValueType;
using automation::Variant;
using testing_support::describe;
using testing_support::outcome;
using testing_support::ScriptedConnector;

const Member& member_named(std::string_view name) {
  static const cLotto lotto;
  const auto rows = lotto.description().members;
  return *std::ranges::find(rows, name, &Member::name);
}

TEST(LottoMembers, ClassAndEvents) {
  const cLotto lotto;
  const auto& description = lotto.description();
  EXPECT_EQ(description.library, "Vestara");
  EXPECT_EQ(description.name, "cLotto");
  EXPECT_EQ(description.interface_name, "_cLotto");
  EXPECT_EQ(description.event_interface, "__cLotto");
  const char* events[] = {"LoadingStart", "LoadingProgress", "LoadingEnd"};
  ASSERT_EQ(description.events.size(), std::size(events));
  for (size_t i = 0; i < std::size(events); ++i) EXPECT_EQ(description.events[i].name, events[i]);
  ASSERT_EQ(loading_progress.parameters().size(), 2U);
  EXPECT_EQ(loading_progress.parameters()[0].name, "recPos");
  EXPECT_EQ(loading_progress.parameters()[1].name, "recCount");
  for (const auto& parameter : loading_progress.parameters()) EXPECT_EQ(parameter.type, ValueType::long_integer);
  EXPECT_TRUE(loading_start.parameters().empty() && loading_end.parameters().empty());
}

TEST(LottoMembers, ParametersOfTheSearchAndTheCount) {
  const struct {
    const char *member, *name;
    ValueType type;
    const char* default_value;
    Passing passing;
    bool writes_back;
  } rows[] = {{"LoadLottoEstr", "sNum", ValueType::text, "text ", Passing::by_reference, false},
              {"LoadLottoEstr", "combinazioneTipo", ValueType::integer, "Long 0", Passing::by_reference, false},
              {"LoadLottoEstr", "sRuote", ValueType::text, "text ", Passing::by_reference, false},
              {"LoadLottoEstr", "dtDa", ValueType::variant, "Missing", Passing::by_value, false},
              {"LoadLottoEstr", "dtA", ValueType::variant, "Missing", Passing::by_value, false},
              {"LoadLottoEstr", "bTutteLeEstrazioni", ValueType::boolean, "False", Passing::by_reference, true},
              {"LoadLottoEstr", "bTutteLeRuote", ValueType::boolean, "False", Passing::by_reference, false},
              {"LoadLottoEstr", "bSortASC", ValueType::boolean, "False", Passing::by_reference, false},
              {"ContaEstrazioniStorico", "dtDa", ValueType::variant, "Missing", Passing::by_reference, false},
              {"ContaEstrazioniStorico", "dtA", ValueType::variant, "Missing", Passing::by_reference, false},
              {"ContaEstrazioniStorico", "Ruota", ValueType::integer, "Long 12", Passing::by_reference, false}};
  size_t place = 0;
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.member) + " " + row.name);
    const auto parameters = member_named(row.member).parameters();
    if (std::string_view(row.member) == "ContaEstrazioniStorico" && place == 8) place = 0;
    ASSERT_LT(place, parameters.size());
    const auto& parameter = parameters[place++];
    EXPECT_EQ(parameter.name, row.name);
    EXPECT_EQ(parameter.type, row.type);
    EXPECT_TRUE(parameter.optional);
    EXPECT_EQ(describe(parameter.default_value.value()), row.default_value);
    EXPECT_EQ(parameter.passing, row.passing);
    EXPECT_EQ(parameter.writes_back, row.writes_back);
  }
  EXPECT_EQ(member_named("LoadLottoEstr").parameters().size(), 8U);
}

class LottoLateBoundTest : public testing::Test {
 protected:
  std::string call(std::string_view member, std::vector<Variant> arguments = {},
                   const std::vector<std::string_view>& names = {}, InvokeKind kind = InvokeKind::method) {
    given_ = std::move(arguments);
    return outcome([&] { return lotto_.call(member, kind, given_, names); });
  }
  std::string put(std::string_view property, Variant value, InvokeKind kind = InvokeKind::put) {
    return call(property, {std::move(value)}, {}, kind);
  }
  void connect() {
    scripted_->answers[std::string(testing_support::wheels_statement)] = testing_support::canonical_wheels();
    ASSERT_EQ(put("ActiveConnection", scripted_, InvokeKind::putref), "Empty");
  }

  testing_support::UnloadedWheels wheels_;
  testing_support::LogCapture log_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  cLotto lotto_;
  std::vector<Variant> given_;  // as the last call left them
};

TEST_F(LottoLateBoundTest, Properties) {
  EXPECT_EQ(call("DbType", {}, {}, InvokeKind::get), "Integer 2");
  EXPECT_EQ(put("dbtype", "1"), "Empty");
  EXPECT_EQ(call("DBTYPE", {}, {}, InvokeKind::get), "Integer 1");
  EXPECT_EQ(put("DbType", 70000), "error 6");
  EXPECT_EQ(put("StatisticsIsActive", true), "Empty");
  EXPECT_EQ(call("StatisticsIsActive", {}, {}, InvokeKind::get), "True");
  EXPECT_EQ(put("FileUpdate", "a.txt"), "Empty");
  EXPECT_EQ(call("FileUpdate", {}, {}, InvokeKind::get), "text a.txt");
  EXPECT_EQ(call("Statistiche", {}, {}, InvokeKind::get), "Nothing");
  EXPECT_EQ(put("Statistiche", scripted_, InvokeKind::putref), "error 13");
  for (const char* counter : {"Ambate", "Ambi", "Terni", "Quaterne", "Cinquine", "ContaSortiteTrovate"}) {
    EXPECT_EQ(call(counter, {}, {}, InvokeKind::get), "Long 0");
    EXPECT_EQ(put(counter, 5).substr(0, 6), "error ");
  }
  EXPECT_EQ(call("ActiveConnection", {}, {}, InvokeKind::get), "error 91");
  connect();
  EXPECT_EQ(call("ActiveConnection", {}, {}, InvokeKind::get), "error 91");
  EXPECT_EQ(alias_of(1), "BA");
}

TEST_F(LottoLateBoundTest, SearchWritesTheFlagBack) {
  connect();
  EXPECT_EQ(call("LoadLottoEstr", {"", int16_t{0}, "", Missing{}, Missing{}, false}), "Object");
  EXPECT_EQ(given_.back(), Variant(true));
  EXPECT_EQ(call("loadlottoestr", {false}, {"bTutteLeEstrazioni"}), "Object");
  EXPECT_EQ(given_.back(), Variant(true));
  const struct {
    Variant given;
    bool after;
  } rows[] = {{0, false}, {5, true}, {"True", true}, {"False", false}, {automation::Empty{}, false}, {-1, true}};
  for (const auto& row : rows) {
    EXPECT_EQ(call("LoadLottoEstr", {"5,12", 2, "BA", Null{}, Null{}, row.given}), "Object");
    EXPECT_EQ(given_.back(), Variant(row.after));
  }
  EXPECT_EQ(call("LoadLottoEstr", {"5", "BA"}, {"sRuote"}), "Object");
  EXPECT_EQ(call("LoadLottoEstr"), "Object");
  EXPECT_EQ(call("LoadLottoEstr", {"5", 70000}), "error 6");
  EXPECT_EQ(call("LoadLottoEstr", {Null{}}), "error 94");
  EXPECT_EQ(log_.bytes(), "");
  scripted_->default_answer.reset();
  EXPECT_EQ(call("LoadLottoEstr", {"5"}), "Nothing");
}

TEST_F(LottoLateBoundTest, QuestionsAboutTheArchive) {
  connect();
  scripted_->default_answer = {{"dmax", "dmin"}, {{"2026-11-15", Null{}}}};
  EXPECT_EQ(call("GetMaxDateStorico"), "text 15/11/2026");
  EXPECT_EQ(call("GetMinDateStorico"), "text ");
  EXPECT_EQ(call("ContaEstrazioniStorico"), "Long 1");
  EXPECT_EQ(call("ContaEstrazioniStorico", {Missing{}, Missing{}, 12}), "Long 1");
  EXPECT_EQ(call("ContaEstrazioniStorico", {11}, {"Ruota"}), "Long 1");
  EXPECT_EQ(log_.bytes(), "");
  EXPECT_EQ(call("ContaEstrazioniStorico", {13}, {"ruota"}), "Long -1");
  EXPECT_EQ(log_.take(), std::vector<std::string>{"cLotto.ContaEstrazioniStorico() 9"});
}

TEST_F(LottoLateBoundTest, Import) {
  connect();
  const testing_support::TemporaryFolder folder;
  put("FileUpdate", folder.file("update.txt", "#1#15/11/2026#BA#1#2#3#4#5"));
  EXPECT_EQ(call("UpdateTblStorico"), "True");
  put("FileUpdate", folder.file("update.txt", ""));
  EXPECT_EQ(call("UpdateTblStorico"), "False");
}

}  // namespace
}  // namespace vestara
