#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"
#include "vestara/keeping/archive_tables.h"
#include "vestara/keeping/copy/table_reader.h"

namespace vestara {

/// Rows on their way into a table, a thousand in a statement. Used inside a transaction; after a Failure the changes of
/// that transaction are gone.
class VESTARA_API InsertBatch {
 public:
  InsertBatch(const Archive& archive, const ArchiveTable& table);

  /// Failure (database) naming the table and the key of a row that the database refuses.
  void add(const LiteralRow& row);
  /// Sends what is still held.
  void flush();

 private:
  struct Tuple {
    std::string key;
    std::string text;
  };

  bool insert(const std::string& tuples) const;
  [[noreturn]] void refuse() const;

  const Archive& archive_;
  const ArchiveTable& table_;
  std::string head_;
  std::vector<Tuple> held_;
  size_t bytes_ = 0;
};

}  // namespace vestara
