#include "hosts/cli/output/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "vestara/files/file_descriptor.h"

namespace vestara::host {
namespace {

namespace fs = std::filesystem;

bool is_device_or_pipe(const std::string& path) {
  std::error_code error;
  const auto status = fs::status(path, error);
  return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

}  // namespace

Failure unwritable_file(const std::string& path, int code) {
  return {FailureKind::file,
          path + " cannot be written: " + std::strerror(code) + "; name a file in a folder that exists and takes it"};
}

OutputFile::OutputFile(const std::string& path, std::ostream& out) {
  if (path.empty() || path == "-")
    stream_ = &out;
  else
    open(path);
}

void OutputFile::open(const std::string& path) {
  path_ = path;
  if (is_device_or_pipe(path)) {
    in_place_ = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (in_place_ < 0) throw unwritable_file(path, errno);
    return;
  }
  std::error_code unreachable;
  if (fs::is_directory(path, unreachable)) throw unwritable_file(path, EISDIR);
  try {
    part_ = std::make_unique<PartFile>(path);
  } catch (const std::system_error& error) {
    throw unwritable_file(path, error.code().value());
  }
}

OutputFile::~OutputFile() {
  if (in_place_ >= 0) ::close(in_place_);
}

void OutputFile::write(std::string_view bytes) {
  if (stream_)
    stream_->write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  else if (!write_all(part_ ? part_->descriptor() : in_place_, bytes))
    throw unwritable_file(path_, errno);
}

bool OutputFile::is_open() const { return !stream_ || stream_->good(); }

void OutputFile::finish() {
  if (stream_) {
    stream_->flush();
    return;
  }
  try {
    if (part_) part_->become_target();
  } catch (const std::system_error& error) {
    throw unwritable_file(path_, error.code().value());
  }
  part_ = nullptr;
  const int descriptor = in_place_;
  in_place_ = -1;
  if (descriptor >= 0 && ::close(descriptor) != 0) throw unwritable_file(path_, errno);
}

}  // namespace vestara::host
