#include "automation/classes/class_file_trust.h"

#include <sys/stat.h>
#include <unistd.h>

#include <string_view>
#include <system_error>

namespace automation {
namespace {

namespace fs = std::filesystem;

constexpr uid_t root = 0;

std::string_view others_who_may_write(const struct stat& status) {
  if ((status.st_mode & S_IWOTH) != 0) return "everybody";
  return (status.st_mode & S_IWGRP) != 0 ? "its group" : std::string_view();
}

}  // namespace

std::string why_untrusted(const fs::path& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return {};
  if (status.st_uid != root && status.st_uid != geteuid())
    return path.string() + " belongs to user number " + std::to_string(status.st_uid) +
           "; class files and their folder must belong to root or to user number " + std::to_string(geteuid());
  const std::string_view others = others_who_may_write(status);
  if (others.empty()) return {};
  return path.string() + " may be written by " + std::string(others) + "; only its owner may, as after chmod go-w";
}

std::string why_refused(const fs::path& class_file) {
  std::error_code absent;
  const fs::path target = fs::canonical(class_file, absent);
  if (absent) return {};
  for (const fs::path& place : {class_file.parent_path(), target.parent_path(), target})
    if (std::string reason = why_untrusted(place); !reason.empty())
      return place == target ? reason : target.string() + " is refused: " + reason;
  return {};
}

}  // namespace automation
