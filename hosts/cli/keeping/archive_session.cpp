#include "hosts/cli/keeping/archive_session.h"

#include <algorithm>
#include <filesystem>

#include "automation/error.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/keeping/archive_url.h"
#include "hosts/cli/keeping/shortage.h"

namespace vestara::host {
namespace {

void make_folder(const std::filesystem::path& file) {
  std::error_code error;
  std::filesystem::create_directories(file.parent_path(), error);
  if (!error) return;
  throw Failure(ExitCode::database, "the folder " + file.parent_path().string() +
                                        " cannot be made: " + error.message() + "; or give --db sqlite:PATH");
}

}  // namespace

ArchiveSession::ArchiveSession(const std::string& url)
    : url_(url), connector_(automation::make<dorvane::DbConnector>()) {
  if (!connector_->Open(url)) fail("the archive cannot be opened");
}

bool ArchiveSession::may_exist(const std::string& database) {
  const auto file = file_of(archive_url(database));
  std::error_code unreachable;
  return !file || std::filesystem::exists(*file, unreachable) || unreachable;
}

ArchiveSession ArchiveSession::for_reading(const std::string& database) {
  const std::string url = archive_url(database);
  if (!may_exist(database))
    throw Failure(ExitCode::database, "the archive " + *file_of(url) + " is missing; vestara import FILE makes one");
  return ArchiveSession(existing_only(url));
}

ArchiveSession ArchiveSession::for_import(const std::string& database) {
  if (is_usual_archive(database)) make_folder(usual_archive_file());
  ArchiveSession session(archive_url(database));
  if (!session.has_tables() && !session.connector()->CreateSchema()) session.fail("the tables cannot be made");
  return session;
}

ArchiveSession ArchiveSession::in_memory() {
  ArchiveSession session("sqlite::memory:");
  if (!session.connector()->CreateSchema()) session.fail("the tables cannot be made");
  return session;
}

automation::Ref<RecordSet> ArchiveSession::rows(std::string_view statement) const {
  automation::Ref<RecordSet> rows;
  if (!connector_->OpenRecordset(rows, statement) || !rows) fail("the archive cannot be read");
  return rows;
}

bool ArchiveSession::has_tables() const {
  const auto tables = archive_tables();
  return std::all_of(tables.begin(), tables.end(), [&](const ArchiveTable& table) { return can_read(table); });
}

// Read rather than looked up: an archive that another program made may know its tables in its own way.
bool ArchiveSession::can_read(const ArchiveTable& table) const {
  automation::Ref<RecordSet> rows;
  if (!connector_->OpenRecordset(rows,
                                 "SELECT " + column_list(table) + " FROM " + std::string(table.name) + " WHERE 1=0"))
    return false;
  connector_->CloseRecordset(rows);
  return true;
}

void ArchiveSession::fail(const std::string& what) const {
  const std::string why = connector_->LastError();
  throw Failure(ExitCode::database, (why.empty() ? what : what + ": " + why) + shortage_of_files());
}

Transaction::Transaction(const ArchiveSession& session) : session_(session) {
  try {
    session_.connector()->BeginTrans();
  } catch (const automation::RunTimeError&) {
    session_.fail("the archive cannot be changed");
  }
  is_open_ = true;
}

Transaction::~Transaction() {
  if (!is_open_) return;
  try {
    session_.connector()->RollbackTrans();
  } catch (const automation::RunTimeError&) {
    // Closing the connection takes the changes back as well.
    session_.connector()->Close();
  }
}

void Transaction::commit() {
  is_open_ = false;
  try {
    session_.connector()->CommitTrans();
  } catch (const automation::RunTimeError&) {
    session_.fail("the changes could not be kept and were taken back");
  }
}

}  // namespace vestara::host
