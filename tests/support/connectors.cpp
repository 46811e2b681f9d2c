#include "tests/support/connectors.h"

#include <stdexcept>

#include "automation/error.h"
#include "automation/member.h"
#include "tests/support/failing_recordset.h"

namespace testing_support {

namespace {
constexpr automation::ClassDescription scripted{.library = "Tests", .name = "ScriptedConnector"};
constexpr automation::ClassDescription recording{.library = "Tests", .name = "RecordingConnector"};
constexpr automation::ClassDescription failing{.library = "Tests", .name = "FailingConnector"};
}  // namespace

const automation::ClassDescription& ScriptedConnector::description() const { return scripted; }
const automation::ClassDescription& RecordingConnector::description() const { return recording; }
const automation::ClassDescription& FailingConnector::description() const { return failing; }

RowsRef ScriptedConnector::GetRecordset(std::string_view statement) {
  if (refused.contains(statement)) return {};
  if (const auto found = answers.find(statement); found != answers.end())
    return automation::make<MemoryRecordSet>(found->second);
  return default_answer ? RowsRef(automation::make<MemoryRecordSet>(*default_answer)) : RowsRef();
}

bool ScriptedConnector::OpenRecordset(RowsRef& rows, std::string_view statement) {
  rows = GetRecordset(statement);
  return static_cast<bool>(rows);
}

void ScriptedConnector::CloseRecordset(RowsRef& rows) {
  if (rows) rows->close();
  rows = {};
}

int32_t ScriptedConnector::GetMaxId(std::string_view table, std::string_view column) {
  const auto found = max_ids.find(std::string(table) + "." + std::string(column));
  return found == max_ids.end() ? 0 : found->second;
}

vestara::DbConnector& RecordingConnector::keep(std::string_view call, std::string_view first, std::string_view second) {
  std::string entry(call);
  for (const auto argument : {first, second})
    if (!argument.empty()) entry.append(" ").append(argument);
  calls.push_back(std::move(entry));
  return *inner_;
}

bool FailingConnector::fails() {
  if (++statements_ != plan_.fail_statement) return false;
  if (plan_.how == Failure::raises_error) throw automation::RunTimeError(connector_error, "The connector failed.");
  if (plan_.how == Failure::raises_exception) throw std::runtime_error("The connection was lost.");
  return true;
}

void FailingConnector::check_transaction() {
  if (fails()) throw automation::RunTimeError(connector_error, "The connector failed.");
}

bool FailingConnector::OpenRecordset(RowsRef& rows, std::string_view statement) {
  rows = {};
  if (!fails()) return inner_->OpenRecordset(rows, statement);
  if (plan_.how == Failure::hands_over_nothing) return true;
  if (plan_.how != Failure::rows_raise || !inner_->OpenRecordset(rows, statement)) return false;
  rows = automation::make<FailingRecordSet>(std::move(rows), plan_.good_calls);
  return true;
}

void FailingConnector::CloseRecordset(RowsRef& rows) {
  if (const auto wrapped = automation::cast<FailingRecordSet>(rows)) rows = wrapped->inner();
  inner_->CloseRecordset(rows);
}

RowsRef FailingConnector::GetRecordset(std::string_view statement) {
  if (!fails()) return inner_->GetRecordset(statement);
  RowsRef rows;
  if (plan_.how == Failure::rows_raise) rows = inner_->GetRecordset(statement);
  return rows ? RowsRef(automation::make<FailingRecordSet>(std::move(rows), plan_.good_calls)) : RowsRef();
}

}  // namespace testing_support
