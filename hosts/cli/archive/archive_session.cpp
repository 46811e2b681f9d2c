#include "hosts/cli/archive/archive_session.h"

#include <filesystem>

#include "dorvane/connector.h"
#include "hosts/cli/archive/archive_url.h"
#include "hosts/cli/failure.h"

namespace vestara::host {
namespace {

void make_folder(const std::filesystem::path& file) {
  std::error_code error;
  std::filesystem::create_directories(file.parent_path(), error);
  if (!error) return;
  throw Failure(FailureKind::database, "the folder " + file.parent_path().string() +
                                           " cannot be made: " + error.message() + "; or give --db sqlite:PATH");
}

Archive archive_at(const std::string& url) {
  const auto connector = automation::make<dorvane::DbConnector>();
  if (connector->Open(url)) return {connector, [url] { return archive_at(url); }};
  throw Failure(FailureKind::database, "the archive cannot be opened: " + connector->LastError());
}

}  // namespace

ArchiveSession::ArchiveSession(const std::string& url) : Archive(archive_at(url)) {}

bool ArchiveSession::may_exist(const std::string& database) {
  const auto file = file_of(archive_url(database));
  std::error_code unreachable;
  return !file || std::filesystem::exists(*file, unreachable) || unreachable;
}

ArchiveSession ArchiveSession::for_reading(const std::string& database) {
  const std::string url = archive_url(database);
  if (!may_exist(database))
    throw Failure(FailureKind::database, "the archive " + *file_of(url) + " is missing; vestara import FILE makes one");
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

}  // namespace vestara::host
