#include "hosts/cli/output/part_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "vestara/files/file_descriptor.h"

namespace vestara::host {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view part_name = ".vestara-part-";
constexpr std::string_view unique = "XXXXXX";

[[noreturn]] void fail() { throw std::system_error(errno, std::generic_category()); }

void require(bool worked) {
  if (!worked) fail();
}

/// Closes what it holds.
class Descriptor {
 public:
  explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  int get() const { return descriptor_; }

 private:
  int descriptor_;
};

/// The file behind a link, whether it exists or not: the link stays one.
std::string behind_links(const std::string& path) {
  constexpr int most_links = 40;
  std::error_code error;
  fs::path place = path;
  for (int links = 0; links < most_links && fs::is_symlink(place, error); ++links) {
    const fs::path target = fs::read_symlink(place, error);
    if (error) return path;
    place = place.parent_path() / target;  // an absolute target takes the place of both
  }
  return place.string();
}

fs::path folder_of(const std::string& file) {
  const fs::path folder = fs::path(file).parent_path();
  return folder.empty() ? "." : folder;
}

/// A process holds a lock on its part file as long as it lives.
void remove_left_over(const fs::path& file) {
  const Descriptor opened(::open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  struct stat status {};
  if (opened.get() >= 0 && ::fstat(opened.get(), &status) == 0 && S_ISREG(status.st_mode) &&
      status.st_uid == ::geteuid() && ::flock(opened.get(), LOCK_EX | LOCK_NB) == 0)
    ::unlink(file.c_str());
}

void remove_left_overs(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    if (const std::string name = entry->path().filename().string(); name.starts_with(part_name)) {
      // A database has files beside it, which go after it.
      if (name.size() == part_name.size() + unique.size())
        remove_left_over(entry->path());
      else if (!fs::exists(entry->path().parent_path() / name.substr(0, part_name.size() + unique.size()), error))
        fs::remove(entry->path(), error);
    }
}

mode_t usual_mode() {
  constexpr mode_t everybody = 0666;
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return everybody & ~mask;
}

void write_into(int from, const std::string& path, off_t size) {
  const Descriptor target(::open(path.c_str(), O_WRONLY | O_NOFOLLOW | O_CLOEXEC));
  require(target.get() >= 0);
  // All the room that is needed, before anything is overwritten; a file system may not know how.
  const int code = size == 0 ? 0 : ::posix_fallocate(target.get(), 0, size);
  if (code == ENOSPC || code == EFBIG) throw std::system_error(code, std::generic_category());
  require(::lseek(from, 0, SEEK_SET) == 0);
  std::array<char, 65536> block{};
  ssize_t count = 0;
  while ((count = ::read(from, block.data(), block.size())) > 0)
    require(write_all(target.get(), {block.data(), static_cast<size_t>(count)}));
  require(count == 0 && ::ftruncate(target.get(), size) == 0 && ::fsync(target.get()) == 0);
}

}  // namespace

PartFile::PartFile(const std::string& target) : target_(behind_links(target)) {
  remove_left_overs(folder_of(target_));
  while (!try_to_open()) {
  }
}

/// False when somebody took the new file for a left-over before it was locked.
bool PartFile::try_to_open() {
  path_ = (folder_of(target_) / (std::string(part_name) + std::string(unique))).string();
  const SignalsHeldBack unwatched;
  descriptor_ = ::mkostemp(path_.data(), O_CLOEXEC);
  require(descriptor_ >= 0);
  watch_ = std::make_unique<RemovedOnSignal>(path_);
  struct stat status {};
  // Some file systems know no locks: there nobody takes anything for a left-over.
  const bool is_ours = ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
  if (is_ours && ::fstat(descriptor_, &status) == 0 && status.st_nlink == 1) return true;
  ::close(descriptor_);
  return false;
}

PartFile::~PartFile() {
  if (!path_.empty()) ::unlink(path_.c_str());
  if (descriptor_ >= 0) ::close(descriptor_);
}

void PartFile::become_target() {
  require(::fsync(descriptor_) == 0);
  const SignalsHeldBack whole_or_not_at_all;
  struct stat part {};
  struct stat target {};
  require(::fstat(descriptor_, &part) == 0);
  if (::lstat(target_.c_str(), &target) != 0) {
    require(errno == ENOENT && ::fchmod(descriptor_, usual_mode()) == 0);
    return take_name(target_);
  }
  const bool same_owner = target.st_uid == part.st_uid && target.st_gid == part.st_gid;
  const bool keeps_owner = same_owner || ::fchown(descriptor_, target.st_uid, target.st_gid) == 0;
  if (target.st_nlink > 1 || !keeps_owner) return write_into(descriptor_, target_, part.st_size);
  constexpr mode_t permissions = 07777;
  require(::fchmod(descriptor_, target.st_mode & permissions) == 0);
  take_name(target_);
}

void PartFile::take_name(const std::string& name) {
  require(::rename(path_.c_str(), name.c_str()) == 0);
  path_.clear();
  watch_ = nullptr;
  const Descriptor folder(::open(folder_of(name).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.get() >= 0) ::fsync(folder.get());
}

}  // namespace vestara::host
