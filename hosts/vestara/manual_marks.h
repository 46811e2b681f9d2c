#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hosts/vestara/archive_session.h"

namespace vestara::host {

/// Which draw dates were entered by hand: a table of this program's own in the archive, vestara_manual_draws, that
/// the first mark creates. Days count from 1899-12-30. Must be made outside a transaction and be used inside or out.
class ManualMarks {
 public:
  /// Failure (database) when the archive cannot be read.
  explicit ManualMarks(const ArchiveSession& session);

  bool has_table() const { return has_table_; }
  /// Makes the table where it is missing. Outside a transaction. Failure (database).
  void make_table();
  /// Sorted; none without the table.
  std::vector<int32_t> days() const;
  bool holds(int32_t day) const;
  /// Outside a transaction: creating a table ends one on some engines. Failure (database).
  void add(int32_t day);
  /// Does nothing when there is no such mark. False when the database refused.
  bool remove(int32_t day) const;

 private:
  void execute(const std::string& statement) const;

  const ArchiveSession& session_;
  bool has_table_;
};

/// A mark that goes away again, with whatever transaction is open by then, unless it is kept. One that was there
/// before always stays.
class NewMark {
 public:
  NewMark(const ArchiveSession& session, ManualMarks& marks, int32_t day);
  NewMark(const NewMark&) = delete;
  NewMark& operator=(const NewMark&) = delete;
  ~NewMark();

  void keep() { is_new_ = false; }

 private:
  const ArchiveSession& session_;
  const ManualMarks& marks_;
  int32_t day_;
  bool is_new_;
};

}  // namespace vestara::host
