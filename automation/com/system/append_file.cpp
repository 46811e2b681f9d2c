#include "automation/system/append_file.h"

#include <cstdio>
#include <exception>
#include <memory>

#include "automation/com/system/text.h"
#include "automation/system/file.h"

namespace automation {
namespace {

using File = std::unique_ptr<std::FILE, decltype(&std::fclose)>;

File opened(const std::string& path, const char* mode) {
  std::FILE* const file = open_file(path, mode);
  // Without a buffer of its own the stream hands everything over in one write.
  if (file) std::setvbuf(file, nullptr, _IONBF, 0);
  return {file, std::fclose};
}

bool has_room(std::FILE* file, std::string_view bytes, int64_t largest) {
  std::fseek(file, 0, SEEK_END);
  const int64_t size = _ftelli64(file);
  return size == 0 || size + static_cast<int64_t>(bytes.size()) <= largest;
}

/// Whether the file or the folder opens with this right.
bool opens(const std::string& path, DWORD right) {
  const HANDLE handle =
      CreateFileW(com::to_wide(path).c_str(), right, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  CloseHandle(handle);
  return true;
}

}  // namespace

bool append_to_file(const std::string& path, std::string_view bytes, int64_t largest) noexcept {
  try {
    File file = opened(path, "ab");
    if (!file) return false;
    if (!has_room(file.get(), bytes, largest)) {
      file.reset();
      const bool moved =
          MoveFileExW(com::to_wide(path).c_str(), com::to_wide(path + ".1").c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
      file = opened(path, moved ? "ab" : "wb");
    }
    return file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  } catch (const std::exception&) {
    return false;
  }
}

bool can_append(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(com::to_wide(path).c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES)
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 && opens(path, FILE_APPEND_DATA);
  const auto end = path.find_last_of("/\\");
  return opens(end == std::string::npos ? "." : path.substr(0, end + 1), FILE_ADD_FILE);
}

}  // namespace automation
