#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

#include "hosts/vestara/archive_session.h"
#include "hosts/vestara/draw_row.h"

namespace vestara::host {

/// What an import makes of the archive.
struct ArchiveChange {
  size_t held = 0;             ///< rows before
  size_t added = 0;            ///< rows of the file that the archive did not hold
  std::vector<DrawRow> gone;   ///< draws of the archive that the file does not have
  size_t gone_blank = 0;       ///< rows of the archive that held no whole draw: they go away too
  std::vector<int32_t> dates;  ///< dates that go away altogether, sorted

  size_t gone_rows() const { return gone.size() + gone_blank; }
};

/// The draws of an archive, sorted by date, wheel and numbers.
struct HeldDraws {
  std::vector<DrawRow> rows;
  size_t blank = 0;  ///< rows that hold no whole draw
};
HeldDraws held_draws(const ArchiveSession& session);

/// Compares an archive with the rows of a file; both sorted by date and wheel.
ArchiveChange compare_draws(const std::vector<DrawRow>& held, const std::vector<DrawRow>& rows);
/// The same, the rows without a draw counted too.
ArchiveChange compare_held(const HeldDraws& held, const std::vector<DrawRow>& rows);

/// Names what goes away, twenty items of it; writes nothing when nothing does. `verb` is "went" or "would go".
void warn_of_gone(std::ostream& err, const ArchiveChange& change, const std::string& verb);

}  // namespace vestara::host
