#include "hosts/vestara/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "hosts/vestara/failure.h"
#include "hosts/vestara/file_descriptor.h"

namespace vestara::host {
namespace {

Failure unwritable(const std::string& path) {
  return {ExitCode::file,
          path + " cannot be written: " + std::strerror(errno) + "; name a file in a folder that exists and takes it"};
}

/// The file behind a link: the link stays one.
std::string real_path(const std::string& path) {
  std::error_code error;
  const auto target = std::filesystem::weakly_canonical(path, error);
  return error ? path : target.string();
}

bool is_device_or_pipe(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status) &&
         !std::filesystem::is_directory(status);
}

}  // namespace

OutputFile::OutputFile(const std::string& path, std::ostream& out) {
  if (path.empty() || path == "-")
    stream_ = &out;
  else
    open(path);
}

void OutputFile::open(const std::string& path) {
  constexpr mode_t usual_mode = 0666;  // less what the user's mask takes away
  path_ = path;
  if (is_device_or_pipe(path)) {
    descriptor_ = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  } else if (std::filesystem::is_directory(path)) {
    errno = EISDIR;
  } else {
    path_ = real_path(path);
    partial_ = path_ + ".part-" + std::to_string(::getpid());
    descriptor_ = ::open(partial_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, usual_mode);
  }
  if (descriptor_ < 0) throw unwritable(path);
}

OutputFile::~OutputFile() {
  if (descriptor_ < 0) return;
  ::close(descriptor_);
  if (!partial_.empty()) ::unlink(partial_.c_str());
}

void OutputFile::write(std::string_view bytes) {
  if (stream_)
    stream_->write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  else if (!write_all(descriptor_, bytes))
    throw unwritable(path_);
}

bool OutputFile::is_open() const { return !stream_ || stream_->good(); }

void OutputFile::finish() {
  if (stream_) {
    stream_->flush();
    return;
  }
  if (!partial_.empty() && ::fsync(descriptor_) != 0) throw unwritable(path_);
  if (!partial_.empty() && std::rename(partial_.c_str(), path_.c_str()) != 0) throw unwritable(path_);
  partial_.clear();
  const int descriptor = descriptor_;
  descriptor_ = -1;
  if (::close(descriptor) != 0) throw unwritable(path_);
}

}  // namespace vestara::host
