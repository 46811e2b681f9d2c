#pragma once

#include <string>
#include <string_view>

#include "automation/ref.h"
#include "dorvane/connector.h"
#include "hosts/cli/keeping/archive_tables.h"
#include "vestara/foundation/recordset.h"

namespace vestara::host {

/// An open archive. Every failure of the database is a Failure (database) with the connector's own words.
class ArchiveSession {
 public:
  /// Opens an archive that exists; a missing file is named together with the command that makes one.
  static ArchiveSession for_reading(const std::string& database);
  /// The same, to change it.
  static ArchiveSession for_change(const std::string& database) { return for_reading(database); }
  /// Opens the archive or begins a new one, with its tables; the user's own with its folder.
  static ArchiveSession for_import(const std::string& database);
  /// A new, empty one that lives as long as the session.
  static ArchiveSession in_memory();
  /// True when there is an archive file, or one cannot tell.
  static bool may_exist(const std::string& database);

  const automation::Ref<dorvane::DbConnector>& connector() const { return connector_; }
  /// A second connection to the same archive.
  ArchiveSession another() const { return ArchiveSession(url_); }

  /// The rows of a reading statement.
  automation::Ref<RecordSet> rows(std::string_view statement) const;
  /// True when all five tables can be read, whoever made them.
  bool has_tables() const;
  /// True when the table has every column that it should; whoever made it.
  bool can_read(const ArchiveTable& table) const;
  [[noreturn]] void fail(const std::string& what) const;

 private:
  explicit ArchiveSession(const std::string& url);

  std::string url_;
  automation::Ref<dorvane::DbConnector> connector_;
};

/// Changes that come to stay together, or not at all: without `commit` they are taken back.
class Transaction {
 public:
  explicit Transaction(const ArchiveSession& session);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();

  void commit();

 private:
  const ArchiveSession& session_;
  bool is_open_ = false;
};

}  // namespace vestara::host
