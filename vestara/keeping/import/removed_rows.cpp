#include "vestara/keeping/import/removed_rows.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <set>
#include <utility>

#include "vestara/files/draw_file_writer.h"
#include "vestara/files/file_descriptor.h"
#include "vestara/foundation/failure.h"

namespace vestara {
namespace {

constexpr size_t most_kept = 3;
constexpr std::string_view infix = ".removed-";
constexpr std::string_view stamp_shape = "00000000T000000.000000";

Failure unwritable(const std::filesystem::path& path, const std::string& remedy) {
  return {FailureKind::file, "what would be removed cannot be kept in " + path.string() + ": " + std::strerror(errno) +
                                 ", nothing was changed" + (remedy.empty() ? "" : "; " + remedy)};
}

std::string stamp_of(std::chrono::microseconds since_1970) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(since_1970);
  const std::time_t time = seconds.count();
  std::tm parts{};
  ::gmtime_r(&time, &parts);
  std::array<char, 32> text{};
  const size_t length = std::strftime(text.data(), text.size(), "%Y%m%dT%H%M%S", &parts);
  std::snprintf(text.data() + length, text.size() - length, ".%06d", static_cast<int>((since_1970 - seconds).count()));
  return text.data();
}

bool is_stamp(std::string_view text) {
  return std::equal(text.begin(), text.end(), stamp_shape.begin(), stamp_shape.end(), [](char given, char shape) {
    return shape == '0' ? std::isdigit(static_cast<unsigned char>(given)) != 0 : given == shape;
  });
}

/// The stamp inside the name of a file of this place; empty for other files.
std::string_view stamp_in(std::string_view name, const std::string& stem) {
  if (!name.starts_with(stem) || !name.substr(stem.size()).starts_with(infix)) return {};
  name.remove_prefix(stem.size() + infix.size());
  const std::string_view stamp = name.substr(0, stamp_shape.size());
  const std::string_view ending = name.substr(stamp.size());
  return is_stamp(stamp) && (ending == ".csv" || ending == ".rest.csv") ? stamp : std::string_view();
}

void write_new(const std::filesystem::path& path, std::string_view bytes, const std::string& remedy) {
  constexpr mode_t private_mode = 0600;
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, private_mode);
  if (file < 0) throw unwritable(path, remedy);
  const bool is_whole = write_all(file, bytes) && ::fsync(file) == 0;
  const int code = errno;
  ::close(file);
  if (is_whole) return;
  ::unlink(path.c_str());
  errno = code;
  throw unwritable(path, remedy);
}

/// Makes the names of the files last as long as the files.
void settle(const std::filesystem::path& folder) {
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

void remove_old(const RemovalPlace& place) {
  std::error_code error;
  std::set<std::string> stamps;
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(place.folder, error)) {
    const std::string name = entry.path().filename().string();
    if (const auto stamp = stamp_in(name, place.stem); !stamp.empty()) {
      stamps.emplace(stamp);
      files.push_back(entry.path());
    }
  }
  while (stamps.size() > most_kept) stamps.erase(stamps.begin());
  for (const auto& file : files)
    if (!stamps.contains(std::string(stamp_in(file.filename().string(), place.stem))))
      std::filesystem::remove(file, error);
}

}  // namespace

Removal removal_of(const std::vector<DrawRow>& rows, const std::vector<std::string>& blank) {
  Removal removal;
  DrawFileWriter writer(DrawFormat::csv, ContestColumn::present);
  writer.begin(removal.draws);
  const DrawRow* before = nullptr;
  for (const DrawRow& row : rows) {
    const bool is_second = before && same_place(*before, row);
    writer.add(is_second ? removal.rest : removal.draws, row);
    before = &row;
  }
  for (const std::string& row : blank) removal.rest.append(row).append("\n");
  return removal;
}

RemovedRows::RemovedRows(RemovalPlace place, const Removal& removal) : place_(std::move(place)) {
  std::error_code exists;
  std::filesystem::create_directories(place_.folder, exists);
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  const std::string start =
      place_.stem + std::string(infix) + stamp_of(std::chrono::duration_cast<std::chrono::microseconds>(now));
  write_new(place_.folder / (start + ".csv"), removal.draws, place_.remedy);
  paths_.push_back(place_.folder / (start + ".csv"));
  if (!removal.rest.empty()) {
    try {
      write_new(place_.folder / (start + ".rest.csv"), removal.rest, place_.remedy);
    } catch (const Failure&) {
      ::unlink(paths_.front().c_str());
      throw;
    }
    paths_.push_back(place_.folder / (start + ".rest.csv"));
  }
  settle(place_.folder);
}

RemovedRows::~RemovedRows() {
  if (is_kept_) return;
  for (const auto& path : paths_) ::unlink(path.c_str());
}

void RemovedRows::keep() {
  is_kept_ = true;
  remove_old(place_);
}

}  // namespace vestara
