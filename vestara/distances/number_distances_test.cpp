#include "vestara/distances/number_distances.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "tests/support/wheels.h"

namespace vestara {
namespace {

using automation::Array;
using automation::InvokeKind;
using automation::make;
using automation::Missing;
using automation::Null;
using automation::Ref;
using automation::Variant;
using automation::VariantKind;
using testing_support::error_of;
using testing_support::outcome;
using testing_support::ScriptedConnector;
using testing_support::Table;

using Lines = std::vector<std::string>;
using Row = std::vector<Variant>;
constexpr int32_t least_long = std::numeric_limits<int32_t>::min();
constexpr int32_t most_long = std::numeric_limits<int32_t>::max();
const Variant missing(Missing{});
const Variant null(Null{});

automation::Date january(int32_t day) { return testing_support::day(2026, 1, day); }
Array longs(std::vector<Variant> items) { return {VariantKind::long_integer, 0, std::move(items)}; }

/// An object that has loaded everything: four draws of BA and two of NA, on four dates.
class NumberDistancesTest : public testing::Test {
 protected:
  NumberDistancesTest() {
    Table wheels = testing_support::canonical_wheels();
    wheels.rows.push_back({12, 0, "TU"});
    scripted_->answers[std::string(testing_support::wheels_statement)] = std::move(wheels);
    distances_.ActiveConnection(scripted_);
    load({{"BA", 1, 2, 3, 4, 5, january(2)},
          {"NA", 1, 6, 7, 8, 9, january(2)},
          {"BA", 1, 2, 10, 11, 12, january(6)},
          {"NA", 1, 13, 14, 15, 16, january(9)},
          {"BA", 3, 4, 5, 17, 18, january(9)},
          {"BA", 2, 1, 19, 20, 6, january(13)}});
  }
  void load(std::vector<Row> rows) {
    scripted_->default_answer =
        Table{{"ruota", "estr1", "estr2", "estr3", "estr4", "estr5", "dtEstr"}, std::move(rows)};
    EXPECT_TRUE(distances_.LoadDistanze1(""));
    EXPECT_TRUE(distances_.LoadDistanze1Tutte());
    EXPECT_TRUE(distances_.LoadDistanze2Ambi(""));
    EXPECT_TRUE(distances_.LoadDistanze2AmbiTutte());
  }

  testing_support::LogCapture log_;
  testing_support::UnloadedWheels wheels_;
  Ref<ScriptedConnector> scripted_ = make<ScriptedConnector>();
  cDistanze2 distances_;
};

TEST_F(NumberDistancesTest, ItemCount) {
  const struct {
    int16_t number, wheel;
    int32_t count;
  } rows[] = {{1, 1, 3}, {1, 6, 2}, {3, 1, 2}, {6, 1, 1}, {6, 6, 1}, {6, 11, 0}, {90, 1, 0}, {90, 11, 0}};
  for (const auto& row : rows)
    EXPECT_EQ(distances_.ItemCount(row.number, row.wheel), row.count) << row.number << " on " << row.wheel;
  const cDistanze2 fresh;
  for (const int16_t bad : std::initializer_list<int16_t>{0, -1, 91, 12, 32767, -32768}) {
    EXPECT_EQ(error_of([&] { distances_.ItemCount(1, bad); }), 9) << bad;
    EXPECT_EQ(error_of([&] { fresh.ItemCount(1, bad); }), 9) << bad;
    EXPECT_EQ(error_of([&] { distances_.ItemCount(bad == 12 ? 100 : bad, 1); }), 9) << bad;
  }
  EXPECT_EQ(log_.bytes(), "") << "it traps nothing";
}

TEST_F(NumberDistancesTest, ListsOfNumbers) {
  const struct {
    int32_t number, wheel;
    Array list;
  } rows[] = {{1, 1, longs({0, 1, 2})},
              {1, 6, longs({0, 1})},
              {19, 1, longs({3})},
              {13, 6, longs({1})},
              {1, -1, longs({1, 0, 1, 1, 1})},
              {1, -12, longs({1, 0, 1, 1, 1})},
              {20, least_long, longs({4})},
              {90, -1, longs({})},
              {6, 2, longs({})},
              {1, 0, longs({})},
              {1, 12, longs({})},
              {1, most_long, longs({})},
              {0, 1, longs({})},
              {91, 1, longs({})},
              {0, -1, longs({})},
              {91, -1, longs({})},
              {most_long, 1, longs({})},
              {least_long, -1, longs({})}};
  for (const auto& row : rows)
    EXPECT_EQ(Variant(distances_.GetDistanzeSingleNumber(row.number, row.wheel)), Variant(row.list))
        << row.number << " on " << row.wheel;
  EXPECT_EQ(distances_.GetDistanzeSingleNumber(1), longs({})) << "0 is no wheel";
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(NumberDistancesTest, ListsOfPairs) {
  const struct {
    int32_t first, second, wheel;
    Array list;
  } rows[] = {{1, 2, 1, longs({0, 1, 2})},
              {3, 4, 1, longs({0, 2})},
              {6, 7, 6, longs({0})},
              {1, 2, -1, longs({1, 1, 2})},
              {1, 6, -7, longs({1, 3})},
              {6, 7, least_long, longs({1})},
              {2, 1, 1, longs({})},
              {2, 1, -1, longs({})},
              {4, 3, 1, longs({})},
              {4, 3, -1, longs({})},
              {3, 3, 1, longs({})},
              {89, 90, -1, longs({})},
              {1, 2, 0, longs({})},
              {1, 2, 12, longs({})},
              {0, 2, 1, longs({})},
              {1, 1, 1, longs({})},
              {1, 91, 1, longs({})},
              {90, 90, -1, longs({})},
              {90, 91, -1, longs({})},
              {least_long, most_long, 1, longs({})},
              {most_long, least_long, -1, longs({})},
              {1, 2, most_long, longs({})}};
  for (const auto& row : rows)
    EXPECT_EQ(Variant(distances_.GetDistanzeAmbi(row.first, row.second, row.wheel)), Variant(row.list))
        << row.first << " " << row.second << " on " << row.wheel;
  EXPECT_EQ(distances_.GetDistanzeAmbi(1, 2), longs({})) << "0 is no wheel";
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(NumberDistancesTest, APairOfANumberWithItself) {
  load({{"BA", 7, 7, 9, 9, 9, january(2)}, {"BA", 7, 9, 7, 9, 10, january(6)}});
  EXPECT_EQ(distances_.GetDistanzeAmbi(7, 7, 1), longs({0, 1}));
  EXPECT_EQ(distances_.GetDistanzeAmbi(7, 7, -1), longs({1, 1}));
  EXPECT_EQ(distances_.GetDistanzeAmbi(9, 9, 1), longs({0, 0, 0, 1}));
  EXPECT_EQ(distances_.GetDistanzeAVG2Ambi(7, 7, 1), 1);
  EXPECT_DOUBLE_EQ(distances_.GetDistanzeAVG2AmbiTutte(9, 9), 1.0 / 3);
}

constexpr double untouched = -7;
/// Mean, smallest and largest distance as a mean member gives them.
struct Means {
  double mean, least = untouched, most = untouched;
  bool operator==(const Means&) const = default;
};
void PrintTo(const Means& means, std::ostream* out) {
  *out << means.mean << " [" << means.least << ", " << means.most << "]";
}

TEST_F(NumberDistancesTest, MeansOnAWheel) {
  const struct {
    const char* what;
    int32_t first, second;  // of a number 0
    Variant wheel;
    Means means;
    int32_t error;
  } rows[] = {{"two distances", 1, 0, 1, {1.5, 1, 2}, 0},
              {"one", 3, 0, 1, {2, 2, 2}, 0},
              {"an alias", 1, 0, "BA", {1.5, 1, 2}, 0},
              {"in any case", 1, 0, "nA", {1, 1, 1}, 0},
              {"the enumerator in a text", 1, 0, " 6 ", {1, 1, 1}, 0},
              {"halves go to even", 1, 0, 5.5, {1, 1, 1}, 0},
              {"a Boolean is a number, but no wheel", 1, 0, true, {0}, 9},
              {"never came out", 90, 0, 1, {-1}, 0},
              {"never on this wheel", 6, 0, "RN", {-1}, 0},
              {"a single appearance", 6, 0, 1, {0}, 6},
              {"a single one in the first draw", 6, 0, "NA", {0}, 6},
              {"an unknown alias", 1, 0, "XX", {0}, 5},
              {"an alias with a blank", 1, 0, " BA", {0}, 5},
              {"no alias", 1, 0, "", {0}, 5},
              {"two", 1, 0, "BA,NA", {0}, 5},
              {"wheel 0", 1, 0, 0, {0}, 9},
              {"wheel 12", 1, 0, 12, {0}, 9},
              {"its alias", 1, 0, "TU", {0}, 9},
              {"all wheels are none", 1, 0, -1, {0}, 9},
              {"Empty is 0", 1, 0, Variant(), {0}, 9},
              {"Null", 1, 0, null, {0}, 94},
              {"number 0", 0, 0, 1, {0}, 9},
              {"number 91", 91, 0, "BA", {0}, 9},
              {"the wheel is looked up first", 91, 0, "XX", {0}, 5},
              {"a pair", 1, 2, 1, {1.5, 1, 2}, 0},
              {"a pair on an alias", 3, 4, "ba", {2, 2, 2}, 0},
              {"a pair that never came out", 89, 90, 1, {-1}, 0},
              {"on another wheel", 1, 2, "NA", {-1}, 0},
              {"the larger first", 4, 3, 1, {-1}, 0},
              {"with itself", 3, 3, 1, {-1}, 0},
              {"a single appearance of a pair", 1, 6, 1, {0}, 6},
              {"an unknown alias for a pair", 1, 2, "XX", {0}, 5},
              {"a pair on wheel 12", 1, 2, 12, {0}, 9},
              {"a pair on wheel 0", 1, 2, "0", {0}, 9},
              {"1 with itself", 1, 1, 1, {0}, 9},
              {"1 as the second", 2, 1, 1, {0}, 9},
              {"90 as the first", 90, 2, 1, {0}, 9},
              {"91 as the second", 1, 91, 1, {0}, 9},
              {"-1 as the first", -1, 2, 1, {0}, 9}};
  for (const auto& row : rows) {
    Means means{.mean = 0};
    const bool pair = row.second != 0;
    means.mean = pair ? distances_.GetDistanzeAVG2Ambi(row.first, row.second, row.wheel, means.least, means.most)
                      : distances_.GetDistanzeAVG1(row.first, row.wheel, means.least, means.most);
    EXPECT_EQ(means, row.means) << row.what;
    const std::string label = pair ? "cDistance2.GetDistanzeAVG2Ambi() " : "cDistance2.GetDistanzeAVG1() ";
    EXPECT_EQ(log_.take(), row.error == 0 ? Lines{} : Lines{label + std::to_string(row.error)}) << row.what;
  }
}

TEST_F(NumberDistancesTest, MeansOverAllWheels) {
  const struct {
    const char* what;
    int32_t first, second;  // of a number 0
    Means means;
    int32_t error;
  } rows[] = {{"wheels of one date are 0 apart", 1, 0, {0.75, 0, 1}, 0},
              {"one distance", 6, 0, {3, 3, 3}, 0},
              {"never came out", 90, 0, {-1}, 0},
              {"a single appearance", 13, 0, {0}, 6},
              {"number 0", 0, 0, {0}, 9},
              {"number 91", 91, 0, {0}, 9},
              {"a pair", 1, 2, {1.5, 1, 2}, 0},
              {"a pair on two wheels", 1, 6, {3, 3, 3}, 0},
              {"a pair that never came out", 89, 90, {-1}, 0},
              {"the larger first", 4, 3, {-1}, 0},
              {"a single appearance of a pair", 13, 14, {0}, 6},
              {"1 as the second", 2, 1, {0}, 9},
              {"90 as the first", 90, 90, {0}, 9},
              {"91 as the second", 89, 91, {0}, 9}};
  for (const auto& row : rows) {
    Means means{.mean = 0};
    const bool pair = row.second != 0;
    means.mean = pair ? distances_.GetDistanzeAVG2AmbiTutte(row.first, row.second, means.least, means.most)
                      : distances_.GetDistanzeAVG1Tutte(row.first, means.least, means.most);
    EXPECT_EQ(means, row.means) << row.what;
    const std::string label = pair ? "cDistance2.GetDistanzeAVG2AmbiTutte() " : "cDistance2.GetDistanzeAVG1Tutte() ";
    EXPECT_EQ(log_.take(), row.error == 0 ? Lines{} : Lines{label + std::to_string(row.error)}) << row.what;
  }
}

TEST_F(NumberDistancesTest, AnAliasNeedsTheWheels) {
  testing_support::UnloadedWheels::reset();
  EXPECT_EQ(distances_.GetDistanzeAVG1(1, "BA"), 0);
  EXPECT_EQ(distances_.GetDistanzeAVG2Ambi(1, 2, "BA"), 0);
  EXPECT_EQ(log_.take(), (Lines{"cDistance2.GetDistanzeAVG1() 91", "cDistance2.GetDistanzeAVG2Ambi() 91"}));
  EXPECT_EQ(distances_.GetDistanzeAVG1(1, 1), 1.5);
}

// The smallest distance starts from 99999, so that a larger one never becomes it.
TEST_F(NumberDistancesTest, TheSmallestIsAtMost99999) {
  for (const int32_t distance : {99998, 99999, 100000}) {
    std::vector<Row> rows(static_cast<size_t>(distance) + 1);
    for (size_t i = 0; i < rows.size(); ++i) rows[i] = {"BA", 3, 3, 3, 3, 3, static_cast<int32_t>(i)};
    rows.front() = rows.back() = {"BA", 1, 2, 3, 3, 3, -1};
    load(std::move(rows));
    const Means expected{static_cast<double>(distance), std::min(distance, 99999) * 1.0, static_cast<double>(distance)};
    Means means{};
    means.mean = distances_.GetDistanzeAVG1(1, 1, means.least, means.most);
    EXPECT_EQ(means, expected);
    means.mean = distances_.GetDistanzeAVG1Tutte(1, means.least, means.most);
    EXPECT_EQ(means, expected);
    means.mean = distances_.GetDistanzeAVG2Ambi(1, 2, "BA", means.least, means.most);
    EXPECT_EQ(means, expected);
    means.mean = distances_.GetDistanzeAVG2AmbiTutte(1, 2, means.least, means.most);
    EXPECT_EQ(means, expected);
  }
}

TEST_F(NumberDistancesTest, StandardDeviation) {
  const Variant empty;
  const struct {
    const char* what;
    Variant numbers;
    bool sample, ignore_empty;
    double deviation;
    int32_t error;
  } rows[] = {{"a sample", longs({1, 2, 3, 4}), true, true, std::sqrt(5.0 / 3), 0},
              {"a population", longs({1, 2, 3, 4}), false, true, std::sqrt(1.25), 0},
              {"equal values", longs({4, 4, 4}), true, true, 0.1, 0},
              {"one", longs({4}), true, true, 0.1, 0},
              {"a list of a load", distances_.GetDistanzeSingleNumber(1, 1), true, true, 1, 0},
              {"empties skipped", Array(VariantKind::empty, 0, {1, empty, 3}), true, true, std::sqrt(2.0), 0},
              {"and counted", Array(VariantKind::empty, 0, {1, empty, 3}), true, false, std::sqrt(7.0 / 3), 0},
              {"no list", distances_.GetDistanzeSingleNumber(0), true, true, 0, 6},
              {"a word", Array(VariantKind::empty, 0, {1, "x"}), true, true, 0, 13},
              {"Null", Array(VariantKind::empty, 0, {null}), false, false, 0, 94},
              {"no array", 5, true, true, 0, 13},
              {"equal values with a residue", Array(VariantKind::empty, 0, {0.1, 0.1, 0.1}), true, true, 0.1, 0}};
  for (const auto& row : rows) {
    EXPECT_DOUBLE_EQ(distances_.StandardDeviation(row.numbers, row.sample, row.ignore_empty), row.deviation)
        << row.what;
    const Lines log{"cAIFunctions.StandardDeviation() " + std::to_string(row.error)};
    EXPECT_EQ(log_.take(), row.error == 0 ? Lines{} : log) << row.what;
  }
}

class NumberDistancesByName : public NumberDistancesTest {
 protected:
  std::string call(std::string_view member, std::vector<Variant> arguments = {},
                   const std::vector<std::string_view>& names = {}, InvokeKind kind = InvokeKind::method) {
    given_ = std::move(arguments);
    automation::Object& object = distances_;
    return outcome([&] { return object.call(member, kind, given_, names); });
  }
  std::vector<Variant> given_;
};

TEST_F(NumberDistancesByName, ValuesHaveTheirTypes) {
  const Variant numbers = longs({1, 2, 3, 4});
  const struct {
    const char* member;
    std::vector<Variant> arguments;
    const char* value;
  } rows[] = {{"loaddistanze1", {""}, "True"},
              {"LoadDistanze1", {"BA", null, "2026-01-02", -1}, "True"},
              {"LoadDistanze1", {}, "error 449"},
              {"LoadDistanze2Ambi", {"BA,NA", missing, null, true}, "True"},
              {"LoadDistanze2Ambi", {missing}, "error 449"},
              {"LoadDistanze1Tutte", {}, "True"},
              {"LoadDistanze2AmbiTutte", {null, missing, true, false}, "True"},
              {"LoadDistanze2AmbiTutte", {null, missing, "x"}, "error 13"},
              {"LoadDistanze1Tutte", {null, missing, true, false, 1}, "error 450"},
              {"ItemCount", {1, 1}, "Long 3"},
              {"ItemCount", {"1", 6.0}, "Long 2"},
              {"ItemCount", {0, 1}, "error 9"},
              {"ItemCount", {40000, 1}, "error 6"},
              {"ItemCount", {1}, "error 449"},
              {"GetDistanzeSingleNumber", {1, 1}, "Array [Long 0] [Long 1] [Long 2]"},
              {"GetDistanzeSingleNumber", {6, -1}, "Array [Long 1] [Long 3]"},
              {"GetDistanzeSingleNumber", {1}, "Array"},
              {"GetDistanzeAmbi", {1, 2, 1}, "Array [Long 0] [Long 1] [Long 2]"},
              {"GetDistanzeAmbi", {1, 2}, "Array"},
              {"GetDistanzeAmbi", {1}, "error 449"},
              {"GetDistanzeAVG1", {1, "ba"}, "Double 1.5"},
              {"GetDistanzeAVG1", {1}, "error 449"},
              {"GetDistanzeAVG2Ambi", {1, 2, 1}, "Double 1.5"},
              {"GetDistanzeAVG1Tutte", {1}, "Double 0.75"},
              {"GetDistanzeAVG2AmbiTutte", {1, 6}, "Double 3"},
              {"GetDistanzeAVG1Tutte", {90}, "Double -1"},
              {"StandardDeviation", {Array(VariantKind::empty, 1, {2, 4}), false}, "Double 1"},
              {"StandardDeviation", {numbers, false, false}, "Double 1.118033988749895"},
              {"StandardDeviation", {Array(VariantKind::empty, 1, {7})}, "Double 0.1"},
              {"StandardDeviation", {}, "error 449"}};
  for (const auto& row : rows) EXPECT_EQ(call(row.member, row.arguments), row.value) << row.member;
  EXPECT_EQ(log_.bytes(), "");
}

TEST_F(NumberDistancesByName, MeansWriteBack) {
  const Variant seven(7.0), empty;
  const struct {
    const char* member;
    std::vector<Variant> arguments, after;  // the last two
  } rows[] = {{"GetDistanzeAVG1", {1, "BA", seven, seven}, {1.0, 2.0}},
              {"GetDistanzeAVG1", {1, "BA", 7, empty}, {1.0, 2.0}},
              {"GetDistanzeAVG1", {1, "BA", 1.0, "2"}, {1.0, "2"}},
              {"GetDistanzeAVG1", {90, "BA", seven, empty}, {seven, empty}},
              {"GetDistanzeAVG1", {1, "XX", seven, "7"}, {seven, "7"}},
              {"GetDistanzeAVG1", {1, "BA", seven, missing}, {1.0, missing}},
              {"GetDistanzeAVG2Ambi", {1, 2, 1, seven, seven}, {1.0, 2.0}},
              {"GetDistanzeAVG1Tutte", {1, seven, seven}, {0.0, 1.0}},
              {"GetDistanzeAVG2AmbiTutte", {1, 6, seven, seven}, {3.0, 3.0}},
              {"GetDistanzeAVG2AmbiTutte", {13, 14, seven, seven}, {seven, seven}}};
  for (const auto& row : rows) {
    call(row.member, row.arguments);
    EXPECT_EQ(std::vector<Variant>(given_.end() - 2, given_.end()), row.after) << row.member;
  }
  call("GetDistanzeAVG1", {seven, "NA", 1}, {"valMax", "Ruota", "num"});
  EXPECT_EQ(given_.front(), Variant(1.0));
}

TEST_F(NumberDistancesByName, LoadsTakeTheirArgumentsByName) {
  EXPECT_EQ(call("LoadDistanze1", {true, "NA"}, {"bSortASC", "sRuoteAlias"}), "True");
  EXPECT_EQ(call("LoadDistanze2Ambi", {null, missing, "NA"}, {"dtA", "dtDa", "sRuoteAlias"}), "True");
  EXPECT_EQ(call("LoadDistanze1Tutte", {true, true}, {"bEscludiRN", "bSortASC"}), "True");
  EXPECT_EQ(call("LoadDistanze2AmbiTutte", {true}, {"nope"}), "error 448");
}

TEST_F(NumberDistancesByName, TheConnectorIsWriteOnly) {
  EXPECT_EQ(call("ActiveConnection", {}, {}, InvokeKind::get), "error 450");
  EXPECT_EQ(call("ActiveConnection"), "error 450");
  EXPECT_EQ(call("ActiveConnection", {5}, {}, InvokeKind::putref), "error 13");
  EXPECT_EQ(call("ActiveConnection", {Ref<automation::Object>(scripted_)}, {}, InvokeKind::putref), "Empty");
  EXPECT_EQ(log_.bytes(), "");
  EXPECT_EQ(call("ActiveConnection", {Ref<automation::Object>()}, {}, InvokeKind::putref), "Empty");
  EXPECT_EQ(log_.take(), Lines{"mPrecarica.PreloadRuoteAlias() 91"});
  EXPECT_EQ(call("LoadDistanze1", {""}), "False");
  EXPECT_EQ(log_.take(), Lines{"cDistanze2.LoadDistanze1() 91"});
}

}  // namespace
}  // namespace vestara
