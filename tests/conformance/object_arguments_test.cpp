#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "automation/member.h"
#include "automation/registry.h"
#include "tests/conformance/back_end.h"
#include "tests/support/delay_oracle.h"
#include "tests/support/log_capture.h"
#include "tests/support/values.h"
#include "vestara/archive/lotto.h"
#include "vestara/distances/hit_distances.h"
#include "vestara/distances/number_distances.h"
#include "vestara/frequency/frequency.h"
#include "vestara/systems/systems.h"

// A record set's field where a value is expected: its value, before any test for missing, Null or numeric. Each member
// is asked with the value itself and with an object that stands for it, and must answer the same.

namespace conformance {
namespace {

using automation::Array;
using automation::InvokeKind;
using automation::Member;
using automation::Missing;
using automation::Null;
using automation::Object;
using automation::Parameter;
using automation::Ref;
using automation::ValueType;
using automation::Variant;
using automation::VariantKind;
using testing_support::day;
using testing_support::describe;
using Lines = std::vector<std::string>;

/// Stands for a value.
class Box final : public Object {
 public:
  explicit Box(Variant value) : value_(std::move(value)) {}
  Variant Value() const { return value_; }
  const automation::ClassDescription& description() const override;

 private:
  Variant value_;
};
constexpr Member box_members[] = {automation::Rows<Box>::get<Variant, &Box::Value>(0, "Value", "What it stands for.")};
constexpr automation::ClassDescription box{.library = "Tests", .name = "Box", .members = box_members};
const automation::ClassDescription& Box::description() const { return box; }

class Bare final : public Object {
 public:
  const automation::ClassDescription& description() const override;
};
constexpr automation::ClassDescription bare{.library = "Tests", .name = "Bare"};
const automation::ClassDescription& Bare::description() const { return bare; }

Variant boxed(Variant value) { return automation::make<Box>(std::move(value)); }

/// What the other parameters of a member get.
Variant usual(const Parameter& parameter) {
  static const std::map<std::string_view, Variant> by_name{{"sNum", "5,12"},
                                                           {"sRuote", "BA,NA"},
                                                           {"sRuoteAlias", "BA"},
                                                           {"combinazioneTipo", 1},
                                                           {"sDescRicerca", "uno"},
                                                           {"sNumeri", "5,12"},
                                                           {"num", 5},
                                                           {"Numero", 5},
                                                           {"num1", 5},
                                                           {"num2", 12},
                                                           {"idRicerca", -1},
                                                           {"nEstrazioniPrec", 2},
                                                           {"lIdRicerca", 0},
                                                           {"iCombinazione", 2},
                                                           {"Numbers", "5,12"},
                                                           {"Size", 2},
                                                           {"Sets", "gemelli"},
                                                           {"Count", 2}};
  if (const auto found = by_name.find(parameter.name); found != by_name.end()) return found->second;
  if (parameter.type != ValueType::variant) return parameter.default_value.value();
  return Missing{};
}

class ObjectArguments : public BackEnd {
 protected:
  void SetUp() override {
    BackEnd::SetUp();
    if (IsSkipped()) return;
    testing_support::Random random(19);
    store(testing_support::odd_archive(random));
    const auto bounds = rows("SELECT min(dtEstr), max(dtEstr) FROM storico");
    ASSERT_EQ(bounds.size(), 1U);
    ASSERT_TRUE(
        execute("INSERT INTO storico(dtEstr,ruota,estr1,estr2,estr3,estr4,estr5,concorsoNumero)VALUES"
                "('2005-02-09','BA',5,12,33,40,41,1),('2005-02-12','NA',12,5,77,90,1,2),"
                "('2005-02-16','BA',1,2,3,4,5,3)"));
    const auto cells = connector_->GetRecordset(
        "SELECT dtEstr, concorsoNumero AS n, ruota, dtDa AS niente FROM storico LEFT JOIN tRicerche ON "
        "idRicerca=-5 WHERE dtEstr='2005-02-09' AND ruota='BA' AND estr1=5");
    ASSERT_TRUE(cells) << connector_->LastError();
    fields_ = cells;
  }

  /// A field of a row in which dtEstr is 2005-02-09, n is 1, ruota is BA and niente is Null.
  Variant field(const char* name) {
    std::array<Variant, 1> key{name};
    const Variant fields = fields_->call("Fields", InvokeKind::get, {});
    return (*fields.get_if<Ref<Object>>())->call("Item", InvokeKind::get, key);
  }

  /// An object of a class, with what its members read already loaded.
  Ref<Object> ready(const automation::RegisteredClass& known) {
    Ref<Object> object = known.create();
    if (object->id_of("ActiveConnection")) {
      std::array<Variant, 1> connection{Variant(Ref<Object>(connector_))};
      object->call("ActiveConnection", InvokeKind::putref, connection);
    }
    std::array<Variant, 1> wheel{"BA"};
    for (const char* load : {"LoadRitardi", "LoadFrequenti", "LoadFrequenzaMedia"})
      if (object->id_of(load)) object->call(load, InvokeKind::method, {});
    for (const char* load : {"LoadDistanze1", "LoadDistanze2Ambi"})
      if (object->id_of(load)) object->call(load, InvokeKind::method, wheel);
    return object;
  }

  static std::string told(const Variant& value) {
    const auto* object = value.get_if<Ref<Object>>();
    if (!object || !*object) return describe(value);
    if (auto* rows = dynamic_cast<vestara::RecordSet*>(object->get()))
      return "rows " + std::to_string(rows->record_count()) + (rows->at_end() ? "" : " " + describe(rows->value({0})));
    if ((*object)->id_of("DataEstrazione"))
      return "draw " + describe((*object)->call("DataEstrazione", InvokeKind::get, {}));
    return describe(value);
  }

  /// What a call says, leaves in its object and writes to the log, on an archive that is afterwards as it was.
  Lines outcome_of(const automation::RegisteredClass& known, const Member& row, std::vector<Variant> arguments,
                   InvokeKind kind) {
    const Ref<Object> object = ready(known);
    log_.take();
    connector_->BeginTrans();
    Lines said{testing_support::outcome([&] { return told(object->invoke(row.id, kind, arguments)); })};
    for (const Member& property : object->description().members)
      if (property.kind == automation::MemberKind::get && property.parameter_count == 0)
        said.push_back(std::string(property.name) + " " + testing_support::outcome([&] {
                         return told(object->invoke(property.id, InvokeKind::get, {}));
                       }));
    for (const std::string& entry : log_.take()) said.push_back(entry);
    connector_->RollbackTrans();
    return said;
  }

  /// Asks every member that has a parameter of any kind, once for each such parameter.
  void for_each_variant_parameter(
      const std::function<void(const automation::RegisteredClass&, const Member&, size_t place)>& body) {
    for (const automation::RegisteredClass& known : automation::loaded_classes())
      for (const Member& row : known.description->members)
        for (size_t place = 0; place < row.parameter_count; ++place)
          if (row.parameter_rows[place].type == ValueType::variant) body(known, row, place);
  }

  static InvokeKind kind_of(const Member& row) {
    return row.kind == automation::MemberKind::put ? InvokeKind::put : InvokeKind::method;
  }

  testing_support::LogCapture log_;
  Ref<Object> fields_;
};

INSTANTIATE_TEST_SUITE_P(Engines, ObjectArguments, engines(), engine_name);

TEST_P(ObjectArguments, EveryVariantParameterOfEveryMemberTakesAnObjectForItsValue) {
  struct Row {
    Variant value, object;
  };
  const Variant list = Array(VariantKind::empty, 0, {3, 1, 2});
  std::vector<Row> rows{
      {day(2005, 2, 9), field("dtEstr")}, {1, field("n")}, {"BA", field("ruota")}, {Null{}, field("niente")}};
  for (const Variant& value : {Variant(), Variant(2.0), Variant(int16_t{3}), Variant("12/02/2005"), Variant("NA"),
                               Variant("x"), Variant(""), Variant(true), Variant(1e9), list})
    rows.push_back({value, boxed(value)});
  rows.push_back({day(2005, 2, 12), boxed(boxed(day(2005, 2, 12)))});
  size_t parameters = 0;
  for_each_variant_parameter([&](const auto& known, const Member& row, size_t place) {
    ++parameters;
    for (const Row& each : rows) {
      SCOPED_TRACE(known.description->identifier() + "." + std::string(row.name) + ", parameter " +
                   std::to_string(place) + ": " + describe(each.value));
      std::vector<Variant> arguments;
      for (const Parameter& parameter : row.parameters()) arguments.push_back(usual(parameter));
      arguments[place] = each.value;
      const Lines expected = outcome_of(known, row, arguments, kind_of(row));
      EXPECT_NE(expected.front(), "error 449") << "a parameter of the test's own call is missing";
      arguments[place] = each.object;
      EXPECT_EQ(outcome_of(known, row, arguments, kind_of(row)), expected);
    }
  });
  EXPECT_GE(parameters, 35U);
}

TEST_P(ObjectArguments, AnObjectThatStandsForNoValueIsAnError) {
  const struct {
    Variant object;
    const char* error;
  } rows[] = {{Ref<Object>{}, "error 91"}, {boxed(Ref<Object>{}), "error 91"}, {automation::make<Bare>(), "error 438"}};
  for_each_variant_parameter([&](const auto& known, const Member& row, size_t place) {
    for (const auto& each : rows) {
      SCOPED_TRACE(known.description->identifier() + "." + std::string(row.name) + ", parameter " +
                   std::to_string(place));
      std::vector<Variant> arguments;
      for (const Parameter& parameter : row.parameters()) arguments.push_back(usual(parameter));
      arguments[place] = each.object;
      EXPECT_EQ(outcome_of(known, row, arguments, kind_of(row)).front(), each.error);
    }
  });
}

/// The members as hosts in C++ call them, without a row between.
struct Native {
  Ref<dorvane::DbConnector> connector;

  template <class Class>
  Ref<Class> with_connection() const {
    auto object = automation::make<Class>();
    object->ActiveConnection(connector);
    return object;
  }
  static Variant count(const Ref<vestara::RecordSet>& rows) { return rows ? Variant(rows->record_count()) : Variant(); }
};

using NativeCall = Variant (*)(const Native& host, const Variant& from, const Variant& to);

Variant gaps_found(const Native& host, const Variant& from, const Variant& to) {
  const auto gaps = host.with_connection<vestara::cDistanze>();
  gaps->LoadDistanze("5", 1, "BA", from, to);
  return gaps->ItemCount();
}

Variant deleted(const Native& host, const Variant& date) {
  host.connector->BeginTrans();
  const auto lotto = host.with_connection<vestara::cLotto>();
  lotto->DelEstrazione(date);
  const Variant left = Native::count(lotto->LoadLottoEstr());
  host.connector->RollbackTrans();
  return left;
}

TEST_P(ObjectArguments, MembersCalledFromCppTakeThemToo) {
  const struct {
    const char* what;
    NativeCall call;
  } calls[] = {
      {"LoadLottoEstr",
       [](const Native& host, const Variant& from, const Variant& to) {
         return Native::count(host.with_connection<vestara::cLotto>()->LoadLottoEstr("5", 1, "", from, to));
       }},
      {"ContaEstrazioniStorico",
       [](const Native& host, const Variant& from, const Variant& to) {
         return Variant(host.with_connection<vestara::cLotto>()->ContaEstrazioniStorico(from, to));
       }},
      {"GetDataEstrazioneDaConta",
       [](const Native& host, const Variant& from, const Variant&) {
         return host.with_connection<vestara::cLotto>()->GetDataEstrazioneDaConta(1, from);
       }},
      {"GetEstrazioneDaData",
       [](const Native& host, const Variant& from, const Variant&) {
         const auto draw = host.with_connection<vestara::cLotto>()->GetEstrazioneDaData(from);
         return draw ? Variant(draw->GetNumeri(1)) : Variant();
       }},
      {"DelEstrazione", [](const Native& host, const Variant& from, const Variant&) { return deleted(host, from); }},
      {"LoadDistanze", gaps_found},
      {"GetRitNum",
       [](const Native& host, const Variant& from, const Variant& to) {
         const auto frequency = host.with_connection<vestara::cFrequenza>();
         frequency->LoadRitardi();
         return Variant(frequency->GetRitNum(5, from) * 1000 + frequency->GetRitNum(12, to));
       }},
      {"LoadFrequenti",
       [](const Native& host, const Variant& from, const Variant& to) {
         const auto frequency = host.with_connection<vestara::cFrequenza>();
         frequency->LoadFrequenti(from, to);
         return Variant(frequency->GetFrqNum(5, 1));
       }},
      {"LoadDistanze1",
       [](const Native& host, const Variant& from, const Variant& to) {
         const auto distances = host.with_connection<vestara::cDistanze2>();
         distances->LoadDistanze1("BA", from, to);
         return Variant(distances->GetDistanzeAVG1(5, from));
       }},
      {"StandardDeviation",
       [](const Native&, const Variant& from, const Variant&) {
         return Variant(automation::make<vestara::cDistanze2>()->StandardDeviation(from));
       }},
      {"ArrNumbersSort", [](const Native&, const Variant& from, const Variant&) {
         Variant array = from;
         automation::make<vestara::cSistemi>()->ArrNumbersSort(array);
         return array.is_object() ? automation::to_plain(array) : array;
       }}};
  const Native host{connector_};
  const Variant list = Array(VariantKind::empty, 0, {3, 1, 2});
  const Variant values[] = {day(2005, 2, 9), day(2005, 2, 16), "12/02/2005", Null{}, Variant(), 1, "BA", "", list};
  for (const auto& each : calls)
    for (const Variant& from : values)
      for (const Variant& to : {Variant(Null{}), Variant(day(2005, 2, 12)), Variant(2)}) {
        SCOPED_TRACE(std::string(each.what) + " " + describe(from) + " " + describe(to));
        log_.take();
        const auto answer = [&](const Variant& first, const Variant& second) {
          return testing_support::outcome([&] { return each.call(host, first, second); });
        };
        const std::string expected = answer(from, to);
        const Lines entries = log_.take();
        EXPECT_EQ(answer(boxed(from), boxed(boxed(to))), expected);
        EXPECT_EQ(log_.take(), entries);
      }
}

TEST_P(ObjectArguments, FieldsOfAStoredSearchRunIt) {
  const auto lotto = automation::make<vestara::cLotto>();
  lotto->ActiveConnection(connector_);
  const auto count = [&](const Variant& from, const Variant& to) {
    return describe(Native::count(lotto->LoadLottoEstr("5", 1, "BA,NA", from, to)));
  };
  EXPECT_EQ(count(field("niente"), field("niente")), count(Missing{}, Missing{}));
  EXPECT_NE(count(field("niente"), field("niente")), "Long 0");
  EXPECT_EQ(count(field("dtEstr"), field("dtEstr")), "Long 1");
}

}  // namespace
}  // namespace conformance
