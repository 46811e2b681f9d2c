#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/recordset.h"
#include "vestara/foundation/connector.h"

// Doubles of a database connector. None of them knows SQL.

namespace testing_support {

using ConnectorRef = automation::Ref<vestara::DbConnector>;
using RowsRef = automation::Ref<vestara::RecordSet>;

/// Answers statements from a script.
class ScriptedConnector final : public vestara::DbConnector {
 public:
  int32_t state = vestara::connection_open;
  std::map<std::string, Table, std::less<>> answers;    ///< by exact statement text
  std::optional<Table> default_answer = Table{};        ///< to every other text; nothing refuses it
  std::set<std::string, std::less<>> refused;           ///< exact texts that are refused, whatever else is set
  std::map<std::string, int32_t, std::less<>> max_ids;  ///< by "table.column", else 0
  std::optional<vestara::ChangeMark> mark;

  const automation::ClassDescription& description() const override;
  int32_t ConnectionState() override { return state; }
  bool OpenRecordset(RowsRef& rows, std::string_view statement) override;
  void CloseRecordset(RowsRef& rows) override;
  bool ExecuteSql(std::string_view statement) override { return !refused.contains(statement); }
  int32_t GetMaxId(std::string_view table, std::string_view column) override;
  RowsRef GetRecordset(std::string_view statement) override;
  void BeginTrans() override {}
  void CommitTrans() override {}
  void RollbackTrans() override {}
  std::optional<vestara::ChangeMark> change_mark() override { return mark; }
};

/// Hands every call on and keeps it: "OpenRecordset SELECT …", "BeginTrans", "GetMaxId tRicerche idRicerca".
class RecordingConnector final : public vestara::DbConnector {
 public:
  explicit RecordingConnector(ConnectorRef inner) : inner_(std::move(inner)) {}

  std::vector<std::string> calls;
  /// The calls so far, forgotten here.
  std::vector<std::string> take() { return std::exchange(calls, {}); }

  const automation::ClassDescription& description() const override;
  int32_t ConnectionState() override { return keep("ConnectionState").ConnectionState(); }
  bool OpenRecordset(RowsRef& rows, std::string_view statement) override {
    return keep("OpenRecordset", statement).OpenRecordset(rows, statement);
  }
  void CloseRecordset(RowsRef& rows) override { keep("CloseRecordset").CloseRecordset(rows); }
  bool ExecuteSql(std::string_view statement) override { return keep("ExecuteSql", statement).ExecuteSql(statement); }
  int32_t GetMaxId(std::string_view table, std::string_view column) override {
    return keep("GetMaxId", table, column).GetMaxId(table, column);
  }
  RowsRef GetRecordset(std::string_view statement) override {
    return keep("GetRecordset", statement).GetRecordset(statement);
  }
  void BeginTrans() override { keep("BeginTrans").BeginTrans(); }
  void CommitTrans() override { keep("CommitTrans").CommitTrans(); }
  void RollbackTrans() override { keep("RollbackTrans").RollbackTrans(); }
  std::optional<vestara::ChangeMark> change_mark() override { return inner_->change_mark(); }

 private:
  DbConnector& keep(std::string_view call, std::string_view first = {}, std::string_view second = {});

  ConnectorRef inner_;
};

enum class Failure {
  refuses,             ///< False, nothing, 0; the transaction calls raise error 3001
  raises_error,        ///< error 3001
  raises_exception,    ///< a std::exception without a number
  hands_over_nothing,  ///< True and no record set
  rows_raise,          ///< a record set that raises error 3002 from some call on
};
inline constexpr int32_t connector_error = 3001;
inline constexpr int32_t rows_error = 3002;

struct FailurePlan {
  int32_t fail_statement = 1;  ///< counted from 1 over all calls but ConnectionState and CloseRecordset
  Failure how = Failure::refuses;
  int32_t good_calls = 1;  ///< calls that a record set of `rows_raise` still answers
};

/// Hands every call on, but lets one statement fail.
class FailingConnector final : public vestara::DbConnector {
 public:
  FailingConnector(ConnectorRef inner, FailurePlan plan) : inner_(std::move(inner)), plan_(plan) {}

  /// Statements seen so far.
  int32_t statements() const { return statements_; }

  const automation::ClassDescription& description() const override;
  int32_t ConnectionState() override { return inner_->ConnectionState(); }
  bool OpenRecordset(RowsRef& rows, std::string_view statement) override;
  void CloseRecordset(RowsRef& rows) override;
  bool ExecuteSql(std::string_view statement) override { return !fails() && inner_->ExecuteSql(statement); }
  int32_t GetMaxId(std::string_view table, std::string_view column) override {
    return fails() ? 0 : inner_->GetMaxId(table, column);
  }
  RowsRef GetRecordset(std::string_view statement) override;
  void BeginTrans() override { check_transaction(), inner_->BeginTrans(); }
  void CommitTrans() override { check_transaction(), inner_->CommitTrans(); }
  void RollbackTrans() override { check_transaction(), inner_->RollbackTrans(); }

 private:
  /// Counts a statement: true when it is the one. Raises when that is how it fails.
  bool fails();
  void check_transaction();

  ConnectorRef inner_;
  FailurePlan plan_;
  int32_t statements_ = 0;
};

}  // namespace testing_support
