#pragma once  // for hosts

#include <functional>
#include <string>
#include <string_view>

#include "automation/ref.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/keeping/archive_tables.h"

namespace vestara {

/// An open archive. Every failure of the database is a Failure (database) with the connector's own words. Belongs to
/// the thread of its connector; copies share the connection.
class VESTARA_API Archive {
 public:
  /// `open_another` opens a second connection to the same archive.
  Archive(automation::Ref<ArchiveConnector> connector, std::function<Archive()> open_another);

  const automation::Ref<ArchiveConnector>& connector() const { return connector_; }
  /// A second connection to the same archive.
  Archive another() const { return open_another_(); }

  /// The rows of a reading statement.
  automation::Ref<RecordSet> rows(std::string_view statement) const;
  /// Runs a changing statement; `otherwise` says what cannot be done when the database refuses it.
  void execute(std::string_view statement, const std::string& otherwise) const;
  /// True when all five tables can be read, whoever made them.
  bool has_tables() const;
  /// True when the table has every column that it should; whoever made it.
  bool can_read(const ArchiveTable& table) const;

  /// The connector's LastError.
  std::string reason() const;
  /// Failure (database): what cannot be done, and the connector's reason.
  [[noreturn]] void fail(const std::string& what) const;

 private:
  automation::Ref<ArchiveConnector> connector_;
  std::function<Archive()> open_another_;
};

/// Changes that are kept together or not at all: without `commit` they are taken back at the end of the object, and by
/// the engine when the process dies. The archive must outlive it.
class VESTARA_API Transaction {
 public:
  explicit Transaction(const Archive& archive);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();

  void commit();

 private:
  const Archive& archive_;
  bool is_open_ = false;
};

}  // namespace vestara
