#pragma once  // for hosts

#include <cstdint>
#include <string>
#include <vector>

#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// Which draw dates were entered by hand: a table of this program's own in the archive, vestara_manual_draws, that
/// the first mark creates. Days count from 1899-12-30. A draw and its mark change in one transaction. Must be made
/// outside a transaction and be used inside or out.
class VESTARA_API ManualMarks {
 public:
  /// Failure (database) when the archive cannot be read.
  explicit ManualMarks(const Archive& archive);

  bool has_table() const { return has_table_; }
  /// Makes the table where it is missing. Outside a transaction: creating a table ends one on some engines. Failure
  /// (database).
  void make_table();
  /// Looks once more for a table that was missing, inside a transaction that lets nobody else make one.
  void look_again();
  /// Sorted; none without the table.
  std::vector<int32_t> days() const;
  bool holds(int32_t day) const;
  /// Does nothing when the mark is there. The table must be. Failure (database).
  void add(int32_t day) const;
  /// Does nothing when there is no such mark. Failure (database).
  void remove(int32_t day) const;

 private:
  void execute(const std::string& statement) const;

  const Archive& archive_;
  bool has_table_;
};

}  // namespace vestara
