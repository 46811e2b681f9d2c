#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "hosts/cli/failure.h"
#include "hosts/cli/output/part_file.h"

namespace vestara::host {

/// The system's reason (errno) why a file that a command names cannot be written, and what would be right.
Failure unwritable_file(const std::string& path, int code);

/// Where a long text goes: a stream, or a file that gets its name only when it is whole.
class OutputFile {
 public:
  /// An empty path or "-" is `out`. Failure (file) when the file cannot be created.
  OutputFile(const std::string& path, std::ostream& out);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  /// Removes what was not finished.
  ~OutputFile();

  /// Failure (file) when the bytes cannot be written. A stream's failure ends the writing quietly: see `is_open`.
  void write(std::string_view bytes);
  /// False when the output takes no more.
  bool is_open() const;
  /// Puts the file in its place, on the disk; one that was there keeps mode, owner and links. Failure (file) when that
  /// does not work; what was there before is then still there.
  void finish();

 private:
  void open(const std::string& path);

  std::ostream* stream_ = nullptr;
  std::string path_;
  std::unique_ptr<PartFile> part_;
  int in_place_ = -1;  ///< a device or a pipe
};

}  // namespace vestara::host
