#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "tests/support/log_capture.h"
#include "tests/support/wheels.h"
#include "vestara/archive/lotto.h"
#include "vestara/foundation/late_bound.h"

// A connector, its record sets and their fields as a script would write them: objects that answer to names only.

namespace vestara {
namespace {

using automation::InvokeKind;
using automation::Object;
using automation::Ref;
using automation::Variant;

/// An object made of named functions.
class ScriptObject final : public Object {
 public:
  using Member = std::function<Variant(std::span<Variant>)>;
  std::map<std::string, Member> members;

  const automation::ClassDescription& description() const override {
    static constexpr automation::ClassDescription description{.library = "Script", .name = "Object"};
    return description;
  }
  std::optional<int32_t> id_of(std::string_view name) const override {
    int32_t id = 1;
    for (const auto& [member, body] : members) {
      if (automation::equal_ignoring_case(member, name)) return id;
      ++id;
    }
    return std::nullopt;
  }
  Variant invoke(int32_t id, InvokeKind, std::span<Variant> arguments, std::span<const std::string_view>) override {
    return std::next(members.begin(), id - 1)->second(arguments);
  }
};

using Row = std::map<std::string, Variant>;

/// A record set over rows; every member that the library may use, and a count of how often it was closed.
struct ScriptRows {
  std::vector<Row> rows;
  size_t position = 0;
  int closed = 0;

  Ref<Object> field(const std::string& name) {
    auto object = automation::make<ScriptObject>();
    object->members["Value"] = [this, name](auto) { return rows.at(position).at(name); };
    return object;
  }
  Ref<Object> fields() {
    auto object = automation::make<ScriptObject>();
    object->members["Item"] = [this](std::span<Variant> a) { return Variant(field(automation::to_text(a[0]))); };
    return object;
  }
  Ref<Object> object() {
    auto object = automation::make<ScriptObject>();
    object->members["EOF"] = [this](auto) { return Variant(position >= rows.size()); };
    object->members["Fields"] = [this](auto) { return Variant(fields()); };
    object->members["MoveNext"] = [this](auto) { return Variant(static_cast<int32_t>(++position)); };
    object->members["MoveFirst"] = [this](auto) { return Variant(static_cast<int32_t>(position = 0)); };
    object->members["RecordCount"] = [this](auto) { return Variant(static_cast<int32_t>(rows.size())); };
    return object;
  }
};

class LateBound : public testing::Test {
 protected:
  LateBound() : connector_(automation::make<ScriptObject>()) {
    connector_->members["ConnectionState"] = [](auto) { return Variant(0); };
    connector_->members["OpenRecordset"] = [this](std::span<Variant> a) {
      statements_.push_back(automation::to_text(a[1]));
      if (!rows_object_) return Variant(false);
      a[0] = Variant(rows_object_);
      return Variant(true);
    };
    connector_->members["CloseRecordset"] = [this](std::span<Variant> a) {
      ++closed_;
      a[0] = Ref<Object>();
      return Variant();
    };
    connector_->members["ExecuteSql"] = [this](std::span<Variant> a) {
      statements_.push_back(automation::to_text(a[0]));
      return Variant("True");
    };
    std::vector<Variant> argument{Variant(connector_)};
    static_cast<Object&>(lotto_).call("ActiveConnection", InvokeKind::putref, argument);
  }

  testing_support::LogCapture log_;
  testing_support::UnloadedWheels wheels_;
  std::vector<std::string> statements_;
  int closed_ = 0;
  ScriptRows rows_;
  Ref<Object> rows_object_;
  Ref<ScriptObject> connector_;
  cLotto lotto_;
};

TEST_F(LateBound, AScriptsConnectorAnswersTheSearch) {
  rows_.rows = {{{"s2.numeriTrovati", "2"}}, {{"s2.numeriTrovati", 1}}, {{"s2.numeriTrovati", 2.0}}};
  rows_object_ = rows_.object();
  const auto draws = lotto_.LoadLottoEstr("5,12", 1);
  EXPECT_EQ(statements_.size(), 2U);
  EXPECT_EQ(lotto_.Ambate(), 5);
  EXPECT_EQ(lotto_.Ambi(), 2);
  EXPECT_EQ(lotto_.ContaSortiteTrovate(), 3);
  EXPECT_EQ(closed_, 1);
  ASSERT_TRUE(draws);
  EXPECT_EQ(draws->host_object(), rows_object_);
}

TEST_F(LateBound, ItsRecordSetGoesBackAsTheVeryObjectItGave) {
  rows_.rows = {{{"s2.numeriTrovati", 1}}};
  rows_object_ = rows_.object();
  std::vector<Variant> arguments{Variant("5"), Variant(1)};
  const Variant draws = static_cast<Object&>(lotto_).call("LoadLottoEstr", InvokeKind::method, arguments);
  EXPECT_TRUE(draws == Variant(rows_object_));
}

TEST_F(LateBound, RefusalsAndMissingRecordSetsAreFailures) {
  EXPECT_EQ(lotto_.ContaEstrazioniStorico(), 0);
  EXPECT_TRUE(log_.take().empty());
  connector_->members["OpenRecordset"] = [](auto) { return Variant(true); };
  EXPECT_EQ(lotto_.ContaEstrazioniStorico(), -1);
  EXPECT_EQ(log_.take(), std::vector<std::string>{"cLotto.ContaEstrazioniStorico() 91"});
}

TEST_F(LateBound, WhatAScriptRaisesIsTrappedLikeAnyError) {
  connector_->members["OpenRecordset"] = [](auto) -> Variant { throw automation::RunTimeError(-2147217900, "syntax"); };
  EXPECT_EQ(lotto_.ContaEstrazioniStorico(), -1);
  EXPECT_EQ(log_.take(), std::vector<std::string>{"cLotto.ContaEstrazioniStorico() -2147217900"});
  connector_->members.erase("OpenRecordset");
  EXPECT_EQ(lotto_.ContaEstrazioniStorico(), -1);
  EXPECT_EQ(log_.take(), std::vector<std::string>{"cLotto.ContaEstrazioniStorico() 438"});
}

TEST_F(LateBound, AnObjectThatIsNoConnectorRaisesWhenItIsAssigned) {
  std::vector<Variant> argument{Variant(Ref<Object>(automation::make<ScriptObject>()))};
  try {
    static_cast<Object&>(lotto_).call("ActiveConnection", InvokeKind::putref, argument);
    FAIL();
  } catch (const automation::RunTimeError& error) {
    EXPECT_EQ(error.number(), 13);
  }
}

TEST_F(LateBound, TheImportRunsOverAScriptsConnector) {
  testing_support::TemporaryFolder folder;
  lotto_.FileUpdate(folder.file("update.txt", "#1#07/01/1871#FI#15#71#18#64#81"));
  lotto_.DbType(1);
  EXPECT_TRUE(lotto_.UpdateTblStorico());
  ASSERT_EQ(statements_.size(), 2U);
  EXPECT_EQ(statements_[0], "DELETE FROM storico");
}

TEST(LateBoundRecordSet, IsOpenInEveryStateButZero) {
  const struct {
    Variant state;
    bool open;
  } rows[] = {{0, false}, {1, true}, {5, true}, {9, true}, {-1, true}, {"0", false}, {"4", true}, {false, false}};
  for (const auto& row : rows) {
    const auto object = automation::make<ScriptObject>();
    object->members["State"] = [&](auto) { return row.state; };
    EXPECT_EQ(late_bound_recordset(object)->is_open(), row.open) << testing::PrintToString(row.state);
  }
}

}  // namespace
}  // namespace vestara
