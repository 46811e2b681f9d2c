#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "vestara/draws/draw_row.h"
#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// A place, date and wheel, that the archive and a file fill with different numbers.
struct ChangedRow {
  DrawRow held;
  DrawRow given;
};

/// An archive beside a file. Rows keep the order of both: by date and wheel.
struct ArchiveChange {
  std::vector<DrawRow> added;       ///< places that the archive does not have
  std::vector<ChangedRow> changed;  ///< places that both have
  std::vector<DrawRow> missing;     ///< draws of the archive that the file does not have
  size_t equal = 0;                 ///< draws that both have
  size_t other_contests = 0;        ///< of these, where the file names another contest number
};

/// The draws of an archive, sorted by date, wheel and numbers.
struct HeldDraws {
  std::vector<DrawRow> rows;
  std::vector<std::string> blank;  ///< rows that hold no whole draw: their values between commas

  size_t row_count() const { return rows.size() + blank.size(); }
};
VESTARA_API HeldDraws held_draws(const Archive& archive);

/// Both sorted; `rows` has each place once.
VESTARA_API ArchiveChange compare_draws(const std::vector<DrawRow>& held, const std::vector<DrawRow>& rows);

}  // namespace vestara
