#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace testing_support {

/// A fresh folder that goes away with its object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  /// The path of a file in it, as text; the file need not exist.
  std::string path_to(std::string_view name) const { return (path_ / name).string(); }
  /// Writes a file of these bytes and returns its path.
  std::string file(std::string_view name, std::string_view bytes) const;

 private:
  std::filesystem::path path_;
};

/// All bytes of a file; none when there is no such file.
std::string bytes_of(const std::filesystem::path& path);

}  // namespace testing_support
