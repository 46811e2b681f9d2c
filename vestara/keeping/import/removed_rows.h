#pragma once  // for hosts

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "vestara/draws/draw_row.h"
#include "vestara/foundation/export.h"

// What a command takes out of an archive is kept in a file, so that nothing is lost by one command alone.

namespace vestara {

/// Where the files of one archive lie and how their names begin.
struct RemovalPlace {
  std::filesystem::path folder;
  std::string stem;
  std::string remedy{};  ///< what would be right when they cannot be written, for the message
};

/// What goes away, as texts.
struct Removal {
  std::string draws;  ///< CSV that an import takes
  std::string rest;   ///< rows that no file of draws can hold, as CSV of the columns of storico; mostly empty
};

/// `rows` sorted by date and wheel. A second row of one date and wheel goes to the rest, as `blank` does.
VESTARA_API Removal removal_of(const std::vector<DrawRow>& rows, const std::vector<std::string>& blank);

/// "STEM.removed-20260822T101500.123456.csv" and, where there is a rest, "….rest.csv": new files that only the user can
/// read. They are removed with this object unless they are kept. A process that is killed leaves them, although its
/// rows are still in the archive.
class VESTARA_API RemovedRows {
 public:
  /// Failure (file) when they cannot be written.
  RemovedRows(RemovalPlace place, const Removal& removal);
  RemovedRows(const RemovedRows&) = delete;
  RemovedRows& operator=(const RemovedRows&) = delete;
  ~RemovedRows();

  /// The file of the draws.
  const std::filesystem::path& path() const { return paths_.front(); }
  /// Keeps these files. Of all such files at this place the last three stay.
  void keep();

 private:
  RemovalPlace place_;
  std::vector<std::filesystem::path> paths_;
  bool is_kept_ = false;
};

}  // namespace vestara
