#include "vestara/keeping/archive.h"

#include <algorithm>
#include <utility>

#include "vestara/foundation/failure.h"

namespace vestara {

Archive::Archive(automation::Ref<ArchiveConnector> connector, std::function<Archive()> open_another)
    : connector_(std::move(connector)), open_another_(std::move(open_another)) {}

automation::Ref<RecordSet> Archive::rows(std::string_view statement) const {
  automation::Ref<RecordSet> rows;
  if (!connector_->OpenRecordset(rows, statement) || !rows) fail("the archive cannot be read");
  return rows;
}

void Archive::execute(std::string_view statement, const std::string& otherwise) const {
  if (!connector_->ExecuteSql(statement)) fail(otherwise);
}

bool Archive::has_tables() const {
  const auto tables = archive_tables();
  return std::all_of(tables.begin(), tables.end(), [&](const ArchiveTable& table) { return can_read(table); });
}

// Read rather than looked up: an archive that another program made may know its tables in its own way.
bool Archive::can_read(const ArchiveTable& table) const {
  automation::Ref<RecordSet> rows;
  if (!connector_->OpenRecordset(rows,
                                 "SELECT " + column_list(table) + " FROM " + std::string(table.name) + " WHERE 1=0"))
    return false;
  connector_->CloseRecordset(rows);
  return true;
}

std::string Archive::reason() const { return connector_->LastError(); }

void Archive::fail(const std::string& what) const {
  const std::string why = reason();
  throw Failure(FailureKind::database, why.empty() ? what : what + ": " + why);
}

Transaction::Transaction(const Archive& archive) : archive_(archive) {
  try {
    archive_.connector()->BeginTrans();
  } catch (const automation::RunTimeError&) {
    archive_.fail("the archive cannot be changed");
  }
  is_open_ = true;
}

Transaction::~Transaction() {
  if (!is_open_) return;
  try {
    archive_.connector()->RollbackTrans();
  } catch (const automation::RunTimeError&) {
    // Closing the connection takes the changes back as well.
    archive_.connector()->Close();
  }
}

void Transaction::commit() {
  is_open_ = false;
  try {
    archive_.connector()->CommitTrans();
  } catch (const automation::RunTimeError&) {
    archive_.fail("the changes could not be kept and were taken back");
  }
}

}  // namespace vestara
