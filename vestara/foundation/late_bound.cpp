#include "vestara/foundation/late_bound.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "automation/coercion.h"
#include "automation/error.h"

namespace vestara {
namespace {

using automation::InvokeKind;
using automation::Object;
using automation::Ref;
using automation::Variant;

Variant ask(Object& object, std::string_view member, InvokeKind kind, std::vector<Variant> arguments = {}) {
  return object.call(member, kind, arguments);
}

Ref<Object> object_in(const Variant& value) {
  const auto* object = value.get_if<Ref<Object>>();
  if (!object || !*object) throw automation::object_not_set();
  return *object;
}

class LateBoundRecordSet final : public RecordSet {
 public:
  explicit LateBoundRecordSet(Ref<Object> object) : object_(std::move(object)) {}

  const automation::ClassDescription& description() const override { return object_->description(); }
  Ref<Object> host_object() override { return object_->host_object(); }

  bool at_end() override { return automation::to_boolean(get("EOF")); }
  bool at_start() override { return automation::to_boolean(get("BOF")); }
  void move_first() override { run("MoveFirst"); }
  void move_last() override { run("MoveLast"); }
  void move_next() override { run("MoveNext"); }
  void move_previous() override { run("MovePrevious"); }
  void move(int32_t rows) override { ask(*object_, "Move", InvokeKind::method, {rows}); }
  int32_t record_count() override { return automation::to_long(get("RecordCount")); }

  int32_t column_count() override { return automation::to_long(ask(*fields(), "Count", InvokeKind::get)); }
  std::string column_name(Column column) override {
    return automation::to_text(ask(*field(Variant(column.index)), "Name", InvokeKind::get));
  }
  /// The name is kept: the host finds its field by it, row by row.
  Column column(std::string_view name) override {
    names_.emplace_back(name);
    return {first_named - static_cast<int32_t>(names_.size()) + 1};
  }

  Variant value(Column column) override {
    const Variant key = column.index <= first_named
                            ? Variant(names_.at(static_cast<size_t>(first_named - column.index)))
                            : Variant(column.index);
    return ask(*field(key), "Value", InvokeKind::get);
  }
  bool is_null(Column column) override { return value(column).is_null(); }
  int32_t whole_number(Column column) override {
    const Variant found = value(column);
    if (const auto* number = found.get_if<int32_t>()) return *number;
    return automation::round_to_long(automation::leading_double(automation::to_text(found)));
  }
  std::string_view text(Column column) override { return text_ = automation::to_text(value(column)); }

  bool is_open() override { return automation::to_long(get("State")) != 0; }
  void close() override { run("Close"); }

 private:
  /// Columns by name count down from here, columns by place up from 0.
  static constexpr int32_t first_named = -1;

  Variant get(std::string_view member) { return ask(*object_, member, InvokeKind::get); }
  void run(std::string_view member) { ask(*object_, member, InvokeKind::method); }
  Ref<Object> fields() { return object_in(get("Fields")); }
  Ref<Object> field(const Variant& key) { return object_in(ask(*fields(), "Item", InvokeKind::get, {key})); }

  Ref<Object> object_;
  std::vector<std::string> names_;
  std::string text_;
};

class LateBoundConnector final : public DbConnector {
 public:
  explicit LateBoundConnector(Ref<Object> object) : object_(std::move(object)) {}

  const automation::ClassDescription& description() const override { return object_->description(); }
  Ref<Object> host_object() override { return object_->host_object(); }

  int32_t ConnectionState() override { return automation::to_long(ask(*object_, "ConnectionState", InvokeKind::get)); }

  bool OpenRecordset(Ref<RecordSet>& rows, std::string_view statement) override {
    std::array<Variant, 2> arguments{Ref<Object>(), statement};
    const bool opened = automation::to_boolean(object_->call("OpenRecordset", InvokeKind::method, arguments));
    const auto* handed_over = arguments[0].get_if<Ref<Object>>();
    rows = handed_over ? late_bound_recordset(*handed_over) : nullptr;
    return opened;
  }

  void CloseRecordset(Ref<RecordSet>& rows) override {
    std::array<Variant, 1> arguments{rows ? Variant(rows->host_object()) : Variant(Ref<Object>())};
    object_->call("CloseRecordset", InvokeKind::method, arguments);
    rows = nullptr;
  }

  bool ExecuteSql(std::string_view statement) override {
    return automation::to_boolean(ask(*object_, "ExecuteSql", InvokeKind::method, {statement}));
  }
  int32_t GetMaxId(std::string_view table, std::string_view column) override {
    return automation::to_long(ask(*object_, "GetMaxId", InvokeKind::method, {table, column}));
  }
  Ref<RecordSet> GetRecordset(std::string_view statement) override {
    const Variant rows = ask(*object_, "GetRecordset", InvokeKind::method, {statement});
    const auto* handed_over = rows.get_if<Ref<Object>>();
    return handed_over ? late_bound_recordset(*handed_over) : nullptr;
  }
  void BeginTrans() override { ask(*object_, "BeginTrans", InvokeKind::method); }
  void CommitTrans() override { ask(*object_, "CommitTrans", InvokeKind::method); }
  void RollbackTrans() override { ask(*object_, "RollbackTrans", InvokeKind::method); }

 private:
  Ref<Object> object_;
};

}  // namespace

Ref<DbConnector> late_bound_connector(const Ref<Object>& object) {
  const bool is_connector = object && object->id_of("ConnectionState");
  return is_connector ? Ref<DbConnector>(automation::make<LateBoundConnector>(object)) : nullptr;
}

Ref<RecordSet> late_bound_recordset(const Ref<Object>& object) {
  if (!object) return nullptr;
  if (auto native = automation::cast<RecordSet>(object)) return native;
  return automation::make<LateBoundRecordSet>(object);
}

}  // namespace vestara
