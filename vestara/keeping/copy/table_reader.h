#pragma once  // for hosts

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "automation/ref.h"
#include "vestara/foundation/connector.h"
#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"
#include "vestara/keeping/archive_tables.h"

namespace vestara {

/// A row as literals, in the order of its table's columns.
using LiteralRow = std::vector<std::string>;

/// The rows of a table by ascending key. They are asked for in slices, so that no record set grows with the table.
/// Failure (database) for what the database refuses, a value that does not fit its column, a row without a key, and
/// two rows that share theirs.
class VESTARA_API TableReader {
 public:
  TableReader(const Archive& archive, const ArchiveTable& table);
  TableReader(const TableReader&) = delete;
  TableReader& operator=(const TableReader&) = delete;
  ~TableReader();

  /// The next row, valid until the next call; null behind the last.
  const LiteralRow* next();

 private:
  bool open_slice();
  void read_row();
  [[noreturn]] void fail(const std::string& what) const;

  const Archive& archive_;
  const ArchiveTable& table_;
  std::string columns_;
  automation::Ref<RecordSet> slice_;
  int32_t in_slice_ = 0;
  LiteralRow row_;
  std::string last_key_;  ///< "" before the first row
};

/// The rows that the table says it has.
VESTARA_API int64_t row_count(const Archive& archive, const ArchiveTable& table);

}  // namespace vestara
