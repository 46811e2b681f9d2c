#include "vestara/statistics/statistics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>

#include "automation/text.h"
#include "automation/yield.h"
#include "tests/support/connectors.h"
#include "tests/support/events.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"

namespace vestara {
namespace {

using automation::InvokeKind;
using automation::make;
using automation::Null;
using automation::Ref;
using automation::Variant;
using testing_support::day;
using testing_support::describe;
using testing_support::error_of;
using testing_support::outcome;
using Lines = std::vector<std::string>;

class StatisticsTest : public testing::Test {
 protected:
  std::string call(std::string_view member, std::vector<Variant> arguments = {}, InvokeKind kind = InvokeKind::method) {
    automation::Object& object = statistics_;
    given_ = std::move(arguments);
    return outcome([&] { return object.call(member, kind, given_); });
  }
  std::string put(std::string_view property, Variant value, InvokeKind kind = InvokeKind::put) {
    return call(property, {std::move(value)}, kind);
  }
  std::string get(std::string_view property) { return call(property, {}, InvokeKind::get); }

  testing_support::LogCapture log_;
  cStatistiche statistics_;
  std::vector<Variant> given_;  // as the last call left them
};

constexpr const char* longs[] = {"EstrAmbate",
                                 "EstrAmbi",
                                 "EstrTerni",
                                 "EstrQuaterne",
                                 "EstrCinquine",
                                 "EstrContaCombinazioniTrovate",
                                 "EstrContaSortiteTrovate",
                                 "EstrContaTutteLeEstrazioniNelleDate",
                                 "EstrContaTutteLeEstrazioniSortiteNelleDate"};
constexpr const char* integers[] = {"EstrNumeriGiocatiQta", "EstrRuoteGiocateQta", "EstrCombinazione"};
constexpr const char* texts[] = {"EstrNumeriString", "EstrRuoteString"};
constexpr const char* dates[] = {"DataDa", "DataA"};

TEST_F(StatisticsTest, NewObject) {
  for (const char* name : longs) EXPECT_EQ(get(name), "Long 0") << name;
  for (const char* name : integers) EXPECT_EQ(get(name), "Integer 0") << name;
  for (const char* name : texts) EXPECT_EQ(get(name), "text ") << name;
  for (const char* name : dates) EXPECT_EQ(get(name), "Null") << name;
  EXPECT_EQ(get("ActiveConnection"), "Nothing");
  EXPECT_EQ(get("Distanze"), "Object");
  EXPECT_EQ(statistics_.Distanze().get(), statistics_.Distanze().get());
  EXPECT_EQ(statistics_.Distanze()->ItemCount(), 0);
  EXPECT_EQ(put("Distanze", make<cDistanze>(), InvokeKind::putref).substr(0, 6), "error ");
}

TEST_F(StatisticsTest, PropertiesKeepWhatTheyAreGivenByName) {
  struct Row {
    Variant value;
    const char *put, *got;
  };
  const auto check = [&](std::span<const char* const> names, const std::vector<Row>& rows) {
    for (const char* name : names) {
      for (const auto& row : rows) {
        EXPECT_EQ(put(name, row.value), row.put) << name << describe(row.value);
        EXPECT_EQ(get(name), row.got) << name << describe(row.value);
      }
    }
  };
  check(longs, {{7, "Empty", "Long 7"},
                {"-8", "Empty", "Long -8"},
                {2.5, "Empty", "Long 2"},
                {2147483647, "Empty", "Long 2147483647"},
                {3e9, "error 6", "Long 2147483647"},
                {"x", "error 13", "Long 2147483647"},
                {Null{}, "error 94", "Long 2147483647"}});
  check(integers, {{7, "Empty", "Integer 7"},
                   {3.5, "Empty", "Integer 4"},
                   {-32768, "Empty", "Integer -32768"},
                   {32768, "error 6", "Integer -32768"},
                   {"", "error 13", "Integer -32768"}});
  check(texts, {{"5,12", "Empty", "text 5,12"}, {33, "Empty", "text 33"}, {Null{}, "error 94", "text 33"}});
  check(dates, {{day(2026, 1, 2), "Empty", "Date 46024"},
                {"02/01/2026", "Empty", "text 02/01/2026"},
                {Null{}, "Empty", "Null"}});
}

TEST_F(StatisticsTest, EveryPropertyHasItsOwnPlace) {
  int32_t value = 100;
  for (const char* name : longs) put(name, ++value);
  for (const char* name : integers) put(name, ++value);
  put("DataDa", ++value);
  put("DataA", ++value);
  value = 100;
  for (const char* name : longs) EXPECT_EQ(get(name), "Long " + std::to_string(++value)) << name;
  for (const char* name : integers) EXPECT_EQ(get(name), "Integer " + std::to_string(++value)) << name;
  EXPECT_EQ(get("DataDa"), "Long " + std::to_string(++value));
  EXPECT_EQ(get("DataA"), "Long " + std::to_string(++value));
}

TEST_F(StatisticsTest, ATextThatIsNotBlankSetsItsCount) {
  const struct {
    const char* text;
    int16_t count;
  } rows[] = {{"5,12,33", 3}, {"5,12,", 3}, {"", 3}, {"5", 1}, {"   ", 1}, {",", 2}, {",,,", 4}, {" 5 , 12 ", 2}};
  for (const auto& row : rows) {
    statistics_.EstrNumeriString(row.text);
    EXPECT_EQ(statistics_.EstrNumeriString(), row.text);
    EXPECT_EQ(statistics_.EstrNumeriGiocatiQta(), row.count) << '"' << row.text << '"';
    statistics_.EstrRuoteString(row.text);
    EXPECT_EQ(statistics_.EstrRuoteString(), row.text);
    EXPECT_EQ(statistics_.EstrRuoteGiocateQta(), row.count) << '"' << row.text << '"';
  }
  statistics_.EstrNumeriGiocatiQta(40);
  EXPECT_EQ(statistics_.EstrNumeriGiocatiQta(), 40) << "the host's own count is not checked";
  EXPECT_EQ(statistics_.EstrRuoteGiocateQta(), 2);
}

TEST_F(StatisticsTest, MorePiecesThan16BitsCountRaise) {
  const std::string most(32766, ',');
  statistics_.EstrNumeriString(most);
  EXPECT_EQ(statistics_.EstrNumeriGiocatiQta(), 32767);
  EXPECT_EQ(error_of([&] { statistics_.EstrNumeriString(most + ","); }), 6);
  EXPECT_EQ(error_of([&] { statistics_.EstrRuoteString(most + ","); }), 6);
  EXPECT_EQ(log_.bytes(), "") << "properties trap nothing";
}

TEST_F(StatisticsTest, TheConnectorIsHandedOnToTheDistances) {
  const auto connector = make<testing_support::ScriptedConnector>();
  EXPECT_EQ(put("ActiveConnection", connector, InvokeKind::putref), "Empty");
  EXPECT_EQ(statistics_.ActiveConnection().get(), connector.get());
  EXPECT_EQ(statistics_.Distanze()->ActiveConnection().get(), connector.get());
  statistics_.ActiveConnection({});
  EXPECT_FALSE(statistics_.ActiveConnection());
  EXPECT_FALSE(statistics_.Distanze()->ActiveConnection());
  EXPECT_EQ(put("ActiveConnection", 5, InvokeKind::putref).substr(0, 6), "error ");
}

/// The texts of the object's combinations; one line "nothing" when there is no collection.
Lines combinations(cStatistiche& statistics, const std::string& numbers, int16_t size) {
  statistics.EstrNumeriString(numbers);
  statistics.EstrCombinazione(size);
  const auto collection = statistics.CombinazioniSempliciString();
  if (!collection) return {"nothing"};
  Lines lines;
  for (int32_t i = 1; i <= collection->Count(); ++i) lines.push_back(describe(collection->Item(i)).substr(5));
  return lines;
}

TEST_F(StatisticsTest, CombinationsOfTheNumbers) {
  const struct {
    const char* what;
    const char* numbers;
    int16_t size;
    Lines combinations;
  } rows[] = {{"pairs", "5,12,33,40", 2, {"5,12", "5,33", "5,40", "12,33", "12,40", "33,40"}},
              {"all of them", "5,12,33", 3, {"5,12,33"}},
              {"one by one", "5,12,33", 1, {"5", "12", "33"}},
              {"blanks are kept", "5, 12", 1, {"5", " 12"}},
              {"and in pairs", " 5, 12 ", 2, {" 5, 12 "}},
              {"an empty text is one empty piece", "", 1, {""}},
              {"empty pieces are pieces", "5,,", 2, {"5,", "5,", ","}},
              {"equal pieces stay", "7,7,7", 2, {"7,7", "7,7", "7,7"}},
              {"any text", "à,b", 1, {"à", "b"}}};
  for (const auto& row : rows)
    EXPECT_EQ(combinations(statistics_, row.numbers, row.size), row.combinations) << row.what;
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(StatisticsTest, CombinationsAgreeWithEveryMask) {
  const Lines numbers{"1", "5", "12", "33", "40", "41", "77", "90"};
  std::string text;
  for (const auto& number : numbers) text += (text.empty() ? "" : ",") + number;
  for (int16_t size = 1; size <= 8; ++size) {
    // Highest bit first, the masks count down in the order of the places.
    Lines expected;
    for (unsigned mask = 255; mask > 0; --mask) {
      if (std::popcount(mask) != size) continue;
      std::string line;
      for (unsigned place = 0; place < 8; ++place)
        if ((mask & (128U >> place)) != 0) line += (line.empty() ? "" : ",") + numbers[place];
      expected.push_back(line);
    }
    EXPECT_EQ(combinations(statistics_, text, size), expected) << size;
  }
}

TEST_F(StatisticsTest, NoCombinationIsNoCollectionAndOneEntry) {
  std::string ninety = "1";
  for (int number = 2; number <= 90; ++number) ninety += "," + std::to_string(number);
  const struct {
    const char* what;
    std::string numbers;
    int16_t size;
    Lines log;
  } rows[] = {{"of none", "5,12", 0, {"cStatistiche.CombinazioniS() 9"}},
              {"fewer than none", "5,12", -1, {"cStatistiche.CombinazioniS() 9"}},
              {"more than there are", "5,12", 3, {"cStatistiche.CombinazioniS() 9"}},
              {"two of an empty text", "", 2, {"cStatistiche.CombinazioniS() 9"}},
              {"171! is too large to count",
               "5,12",
               171,
               {"cStatistiche.CalcolaCombSemplici() 6", "cStatistiche.CombinazioniS() 9"}},
              {"more than 32 bits count", ninety, 10, {"cStatistiche.CombinazioniS() 6"}}};
  for (const auto& row : rows) {
    EXPECT_EQ(combinations(statistics_, row.numbers, row.size), Lines{"nothing"}) << row.what;
    EXPECT_EQ(log_.take(), row.log) << row.what;
  }
  EXPECT_EQ(combinations(statistics_, "5", 1), Lines{"5"});
}

TEST_F(StatisticsTest, TheCollectionByName) {
  statistics_.EstrNumeriString("5,12,33");
  statistics_.EstrCombinazione(2);
  automation::Object& object = statistics_;
  const Variant result = object.call("CombinazioniSempliciString", InvokeKind::method, {});
  ASSERT_TRUE(result.is_object());
  const Ref<automation::Object> collection = *result.get_if<Ref<automation::Object>>();
  ASSERT_TRUE(collection);
  const auto item = [&](Variant index) {
    std::vector<Variant> arguments{std::move(index)};
    return outcome([&] { return collection->call("Item", InvokeKind::get, arguments); });
  };
  EXPECT_EQ(describe(collection->call("Count", InvokeKind::get, {})), "Long 3");
  EXPECT_EQ(item(1), "text 5,12");
  EXPECT_EQ(item("3"), "text 12,33");
  for (const int32_t outside : {0, 4, -1}) EXPECT_EQ(item(outside), "error 9");
  statistics_.EstrCombinazione(0);
  EXPECT_EQ(describe(object.call("CombinazioniSempliciString", InvokeKind::method, {})), "Nothing");
}

TEST_F(StatisticsTest, TheHostMayWorkOnceBetweenTwoRows) {
  for (const auto& [numbers, size, yields] :
       {std::tuple{"5,12,33,40", int16_t{2}, 5}, {"5", int16_t{1}, 0}, {"5,12", int16_t{1}, 1}}) {
    Lines calls;
    const testing_support::YieldWriter writer(calls);
    combinations(statistics_, numbers, size);
    EXPECT_EQ(calls, Lines(static_cast<size_t>(yields), "yield")) << numbers;
  }
}

TEST_F(StatisticsTest, AHostThatRaisesEndsTheCombinations) {
  automation::set_yield_hook([] { throw automation::RunTimeError(1234, "enough"); });
  EXPECT_EQ(combinations(statistics_, "5,12,33", 2), Lines{"nothing"});
  automation::set_yield_hook({});
  EXPECT_EQ(log_.take(), Lines{"cStatistiche.CombinazioniSempliciString() 1234"});
  EXPECT_EQ(combinations(statistics_, "5,12", 2), Lines{"5,12"});
}

}  // namespace
}  // namespace vestara
