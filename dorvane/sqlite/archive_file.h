#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "dorvane/sqlite/handles.h"
#include "dorvane/url.h"

namespace dorvane::sqlite {

/// What a URL asks of the embedded database.
struct FileSettings {
  std::string path;
  int open_flags = 0;
  int timeout = 0;         ///< milliseconds to wait for other writers
  int reading_limit = 0;   ///< milliseconds that the engine may work on a reading statement; 0 is no limit
  int changing_limit = 0;  ///< the same for one that changes
  std::string durability;
};

/// Raises RunTimeError 5 naming what is wrong, and 75 for a path that names something other than a file.
FileSettings file_settings(const Url& url);

/// Opens the file; it is not read yet. Raises RunTimeError.
Database open_file(const FileSettings& settings);

/// Opens a file that nobody can be writing to, to be read without locks and without files beside it.
Database open_frozen(const std::string& path);

/// True when the file can be read, but nothing can be made beside it.
bool lies_in_a_closed_folder(const std::string& path);

/// True when changes wait beside the file that are not in it yet.
bool has_waiting_changes(const std::string& path);

/// What tells that a file was changed.
struct FileStamp {
  std::filesystem::file_time_type moment;
  uintmax_t size = 0;
  bool has_waiting_changes = false;

  bool operator==(const FileStamp&) const = default;
};
FileStamp stamp_of(const std::string& path);

}  // namespace dorvane::sqlite
