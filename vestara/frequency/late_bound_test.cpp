#include <gtest/gtest.h>

#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"
#include "vestara/frequency/analytic_table.h"
#include "vestara/frequency/frequency.h"

// The two classes as a script calls them: members by name, arguments omitted, named or of another type.

namespace vestara {
namespace {

using automation::InvokeKind;
using automation::make;
using automation::Missing;
using automation::Null;
using automation::Object;
using automation::Ref;
using automation::Variant;
using testing_support::day;
using testing_support::outcome;
using testing_support::Table;
using Arguments = std::vector<Variant>;
using Names = std::vector<std::string_view>;

class LateBoundFrequency : public testing::Test {
 protected:
  LateBoundFrequency() {
    scripted_->state = 0;
    for (Object* object : {static_cast<Object*>(&frequency_), static_cast<Object*>(&table_)}) {
      Arguments connector{Variant(Ref<Object>(recorder_))};
      object->call("ActiveConnection", InvokeKind::putref, connector);
    }
    recorder_->calls.clear();
  }
  void answer(Table table) { scripted_->default_answer = std::move(table); }
  void load_all() {
    answer({{"ruota", "estr1", "estr2", "estr3", "estr4", "estr5"}, {{"FI", 1, 2, 3, 4, 5}, {"FI", 9, 2, 3, 4, 5}}});
    frequency_.LoadRitardi();
    answer({{"ruota", "estrazione", "num", "dtEstr"}, {{"RN", 90, 3, 0}, {"BA", 1, 1, 0}}});
    frequency_.LoadFrequenti();
    frequency_.LoadFrequenzaMedia();
    answer({{"dtEstr", "ruota", "estr1", "estr2", "estr3", "estr4", "estr5"},
            {{day(2026, 1, 2), "FI", 1, 2, 3, 4, 5}, {day(2026, 1, 1), "RN", 9, 2, 3, 4, 5}}});
    table_.LoadTabelloneAnalitico();
    recorder_->calls.clear();
  }
  static std::string call(Object& object, const char* member, Arguments arguments, const Names& names = {}) {
    return outcome([&] { return object.call(member, InvokeKind::method, arguments, names); });
  }

  testing_support::LogCapture log_;
  testing_support::CanonicalWheels wheels_;
  Ref<testing_support::ScriptedConnector> scripted_ = make<testing_support::ScriptedConnector>();
  Ref<testing_support::RecordingConnector> recorder_ = make<testing_support::RecordingConnector>(scripted_);
  cFrequenza frequency_;
  cTabAnalytics table_;
};

TEST_F(LateBoundFrequency, EveryGetterOfFrequencies) {
  load_all();
  const struct {
    const char* member;
    Arguments arguments;
    Names names;
    const char* result;
  } rows[] = {{"GetRitNum", {9, "FI"}, {}, "Long 1"},
              {"getritnum", {"9", 3}, {}, "Long 1"},
              {"GetRitNum", {"FI", 9}, {"Ruota", "Numero"}, "Long 1"},
              {"GetRitNum", {9, "fi"}, {"Ruota"}, "Long 1"},
              {"GetRitNum", {9}, {}, "error 449"},
              {"GetRitNum", {}, {}, "error 449"},
              {"GetRitNum", {9, 3, 1}, {}, "error 450"},
              {"GetRitNum", {9, 3}, {"Wheel"}, "error 448"},
              {"GetRitNum", {"x", 3}, {}, "error 13"},
              {"GetRitNum", {40000, 3}, {}, "error 6"},
              {"GetRitNum", {Null{}, 3}, {}, "error 94"},
              {"GetRitTopTenERuota", {0}, {}, "Integer 3"},
              {"GetRitTopTenNumero", {0.4}, {}, "Integer 9"},
              {"GetRitTopTen", {0}, {"Index"}, "Integer 1"},
              {"GetRitTopTen", {40000}, {}, "error 6"},
              {"GetRitTopTen", {}, {}, "error 449"},
              {"GetFrqNum", {90, "RN"}, {}, "Long 3"},
              {"GetFrqNum", {"rn", 90}, {"Ruota", "Numero"}, "Long 3"},
              {"GetFrqNumAVG", {90, 11}, {}, "Single 150"},
              {"GetFrqTopTenERuotaAVG", {1}, {}, "Integer 1"},
              {"GetFrqTopTenNumeroAVG", {"0"}, {}, "Integer 90"},
              {"GetFrqTopTenAVG", {1}, {}, "Single 50"},
              {"GetFrqTopTenERuota", {0}, {}, "Integer 11"},
              {"GetFrqTopTenNumero", {1}, {}, "Integer 1"},
              {"GetFrqTopTen", {0}, {}, "Integer 3"},
              {"GetFrqTopTen", {90}, {}, "Integer 0"},
              {"LoadDelays", {}, {}, "error 438"}};
  for (const auto& row : rows)
    EXPECT_EQ(call(frequency_, row.member, row.arguments, row.names), row.result) << row.member;
  EXPECT_EQ(log_.bytes(), "") << "a call that never reached its member logs nothing";
}

TEST_F(LateBoundFrequency, EveryGetterOfTheAnalyticTable) {
  load_all();
  const struct {
    const char* member;
    Arguments arguments;
    const char* result;
  } rows[] = {{"GetItemCount", {}, "Integer 2"},           {"GetItemCount", {1}, "error 451"},
              {"GetNumeriByIndex", {1}, "text 9.2.3.4.5"}, {"GetNumeriByIndex", {2}, "text "},
              {"GetNumeriByIndex", {}, "error 449"},       {"GetRuotaByIndex", {"0"}, "text FI"},
              {"GetRuotaByIndex", {-1}, "text "},          {"GetERuotaByIndex", {1}, "Integer 11"},
              {"GetRitardoByIndex", {1}, "Integer 1"},     {"GetRitardoByIndex", {2}, "Integer 0"},
              {"GetRitardoByIndex", {70000}, "error 6"},   {"lines", {}, "error 438"}};
  for (const auto& row : rows) EXPECT_EQ(call(table_, row.member, row.arguments), row.result) << row.member;
  std::vector<Variant> named{1};
  const std::vector<std::string_view> names{"Index"};
  EXPECT_EQ(static_cast<Object&>(table_).call("GetERuotaByIndex", InvokeKind::get, named, names),
            Variant(static_cast<int16_t>(11)));
}

TEST_F(LateBoundFrequency, LoadsWithOmittedAndNamedArguments) {
  const struct {
    Arguments arguments;
    Names names;
    const char* filter;  ///< of the draw dates
  } rows[] = {{{}, {}, ""},
              {{Missing{}, Missing{}, Missing{}}, {}, ""},
              {{Null{}, Null{}, ""}, {}, ""},
              {{day(2026, 1, 2)}, {}, " WHERE (st.dtEstr >='2026-01-02')"},
              {{"02/01/2026", "15/11/2026", "BA"},
               {},
               " WHERE (st.dtEstr >='2026-01-02') AND (st.dtEstr <='2026-11-15') AND st.ruota IN('BA')"},
              {{Missing{}, day(2026, 11, 15)}, {}, " WHERE (st.dtEstr <='2026-11-15')"},
              {{"RN,VE"}, {"sRuote"}, " WHERE st.ruota IN('RN') OR st.ruota IN('VE')"},
              {{"BA", day(2026, 11, 15)}, {"sruote", "DTA"}, " WHERE (st.dtEstr <='2026-11-15') AND st.ruota IN('BA')"},
              {{day(2026, 1, 2), "BA"}, {"sRuote"}, " WHERE (st.dtEstr >='2026-01-02') AND st.ruota IN('BA')"}};
  answer({{"ruota", "estr1", "estr2", "estr3", "estr4", "estr5", "estrazione", "num", "dtEstr"}, {}});
  for (const auto& row : rows) {
    SCOPED_TRACE(row.filter);
    EXPECT_EQ(call(frequency_, "LoadFrequenzaMedia", row.arguments, row.names), "Empty");
    const auto calls = recorder_->take();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls[0],
              "OpenRecordset SELECT st.dtEstr From storico as st" + std::string(row.filter) + " GROUP BY st.dtEstr");
    for (const char* member : {"LoadFrequenti", "LoadRitardi"}) {
      EXPECT_EQ(call(frequency_, member, row.arguments, row.names), "Empty");
      EXPECT_EQ(recorder_->take().size(), 2U) << member;
    }
  }
  EXPECT_EQ(call(frequency_, "LoadRitardi", {1, 2, "BA", 4}), "error 450");
  EXPECT_EQ(call(frequency_, "LoadRitardi", {"BA"}, {"ruote"}), "error 448");
}

TEST_F(LateBoundFrequency, TheAnalyticTableTakesItsTwoDates) {
  answer({{"dtEstr", "ruota", "estr1", "estr2", "estr3", "estr4", "estr5"}, {}});
  for (const Arguments& arguments :
       {Arguments{}, Arguments{day(2026, 1, 2)}, Arguments{Missing{}, Null{}}, Arguments{"x", 5}}) {
    EXPECT_EQ(call(table_, "LoadTabelloneAnalitico", arguments), "Empty");
    EXPECT_EQ(recorder_->take().size(), 2U);
  }
  EXPECT_EQ(call(table_, "LoadTabelloneAnalitico", {"15/11/2026"}, {"dtA"}), "Empty");
  EXPECT_EQ(call(table_, "LoadTabelloneAnalitico", {1, 2, 3}), "error 450");
}

TEST_F(LateBoundFrequency, TheConnectorComesBackAsItWasGiven) {
  for (Object* object : {static_cast<Object*>(&frequency_), static_cast<Object*>(&table_)}) {
    Arguments none;
    EXPECT_TRUE(object->call("ActiveConnection", InvokeKind::get, none) == Variant(Ref<Object>(recorder_)));
    Arguments nothing{Variant(Ref<Object>())};
    object->call("ActiveConnection", InvokeKind::putref, nothing);
    EXPECT_TRUE(object->call("ActiveConnection", InvokeKind::get, none) == Variant(Ref<Object>()));
  }
}

}  // namespace
}  // namespace vestara
