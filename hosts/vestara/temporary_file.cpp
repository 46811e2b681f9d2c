#include "hosts/vestara/temporary_file.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "hosts/vestara/failure.h"
#include "hosts/vestara/file_descriptor.h"

namespace vestara::host {
namespace {

Failure unwritable(const std::string& path, int code) {
  return {ExitCode::file, "the temporary file " + path + " cannot be written: " + std::strerror(code) +
                              "; TMPDIR names a folder with room"};
}

}  // namespace

TemporaryFile::TemporaryFile(std::string_view bytes) {
  std::error_code no_folder;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(no_folder);
  path_ = ((no_folder ? "/tmp" : folder) / "vestara-XXXXXX").string();
  descriptor_ = ::mkstemp(path_.data());
  if (descriptor_ < 0) throw unwritable(path_, errno);
  has_name_ = true;
  // A name of the open file that does without its place in the folder.
  const std::string open_name = "/dev/fd/" + std::to_string(descriptor_);
  if (::access(open_name.c_str(), R_OK) == 0) {
    remove();
    path_ = open_name;
  }
  if (write_all(descriptor_, bytes) && ::lseek(descriptor_, 0, SEEK_SET) == 0) return;
  const int code = errno;
  remove();
  ::close(descriptor_);
  throw unwritable(path_, code);
}

TemporaryFile::~TemporaryFile() {
  remove();
  ::close(descriptor_);
}

void TemporaryFile::remove() {
  if (has_name_) ::unlink(path_.c_str());
  has_name_ = false;
}

}  // namespace vestara::host
