#include "automation/system/append_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <new>

namespace automation {
namespace {

class Descriptor {
 public:
  explicit Descriptor(const std::string& path)
      : number_(::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
                       0666)) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }
  /// What it is. False when there is none or it is no regular file.
  bool regular(struct stat& facts) const {
    return number_ >= 0 && ::fstat(number_, &facts) == 0 && S_ISREG(facts.st_mode);
  }

 private:
  int number_;
};

bool write_at_once(int file, std::string_view bytes) {
  ssize_t written = 0;
  do written = ::write(file, bytes.data(), bytes.size());
  while (written < 0 && errno == EINTR);
  return written >= 0;
}

/// Renames the file, or empties it where its folder lets nobody rename. Whoever comes second does nothing: the
/// first holds the lock, or the name stands for a newer file already.
void put_aside(const std::string& path, const Descriptor& file, const struct stat& facts) {
  struct stat named {};
  if (::flock(file.number(), LOCK_EX | LOCK_NB) != 0 || ::lstat(path.c_str(), &named) != 0) return;
  if (named.st_ino != facts.st_ino || named.st_dev != facts.st_dev) return;
  if (std::rename(path.c_str(), (path + ".1").c_str()) != 0) static_cast<void>(::ftruncate(file.number(), 0) == 0);
}

bool has_room(const struct stat& facts, std::string_view bytes, int64_t largest) {
  return facts.st_size == 0 || facts.st_size + static_cast<int64_t>(bytes.size()) <= largest;
}

}  // namespace

bool append_to_file(const std::string& path, std::string_view bytes, int64_t largest) noexcept {
  try {
    {
      const Descriptor file(path);
      struct stat facts {};
      if (!file.regular(facts)) return false;
      if (has_room(facts, bytes, largest)) return write_at_once(file.number(), bytes);
      put_aside(path, file, facts);
    }
    const Descriptor next(path);
    struct stat facts {};
    return next.regular(facts) && write_at_once(next.number(), bytes);
  } catch (const std::bad_alloc&) {
    return false;
  }
}

bool can_append(const std::string& path) {
  struct stat facts {};
  if (::lstat(path.c_str(), &facts) == 0) return S_ISREG(facts.st_mode) && ::access(path.c_str(), W_OK) == 0;
  if (errno != ENOENT) return false;
  const auto end = path.find_last_of('/');
  const std::string folder = end == std::string::npos ? "." : path.substr(0, end + 1);
  return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

}  // namespace automation
