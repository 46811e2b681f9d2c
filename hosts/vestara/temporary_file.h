#pragma once

#include <string>
#include <string_view>

namespace vestara::host {

/// A file that others read by path and that vanishes with this object. Where the system can name an open file, the
/// file has no place in any folder from the start, so that even a killed process leaves nothing behind.
class TemporaryFile {
 public:
  /// Failure (file) when it cannot be written.
  explicit TemporaryFile(std::string_view bytes);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  const std::string& path() const { return path_; }

 private:
  void remove();

  int descriptor_ = -1;
  std::string path_;
  bool has_name_ = false;
};

}  // namespace vestara::host
