#include "dorvane/sqlite/archive_file.h"

#if !defined(_WIN32)
#include <unistd.h>
#endif

#include <algorithm>

#include "automation/error.h"
#include "automation/text.h"
#include "dorvane/sqlite/errors.h"
#include "dorvane/sqlite/forked_files.h"

namespace dorvane::sqlite {

namespace {

constexpr std::string_view in_memory = ":memory:";

int open_flags(std::string_view mode) {
  if (mode == "create") return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  if (mode == "rw") return SQLITE_OPEN_READWRITE;
  if (mode == "ro") return SQLITE_OPEN_READONLY;
  throw automation::invalid_call("sqlite: mode is create, rw or ro");
}

/// The engine has ways of its own to read a path; here it names a file, or nothing is opened.
void require_file_path(const std::string& path) {
  if (path.empty()) throw automation::invalid_call("sqlite: the URL names no file, as in 'sqlite:archive.sqlite'");
  if (path.find('\0') != std::string::npos)
    throw automation::invalid_call("sqlite: the path holds a NUL byte (%00), and no file's path does");
  if (automation::equal_ignoring_case(path.substr(0, 5), "file:"))
    throw automation::invalid_call(
        "sqlite: 'file:' is not read here; the path stands by itself, as in 'sqlite:/folder/archive.sqlite'"
        " ('sqlite:./file:…' for a file of such a name)");
  std::error_code unknown;
  const std::filesystem::file_status status = std::filesystem::status(path, unknown);
  if (path != in_memory && std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
    throw automation::path_file_access("sqlite: " + path + " is no file but a folder or a device");
}

/// How long a reading statement may take: a timeout that the URL names says how patient its user is.
std::string reading_limit(const Url& url) {
  constexpr int least = 1000;
  if (url.options.contains("timeout")) return std::to_string(std::max(least, milliseconds(url, "timeout", "5000")));
  return "60000";
}

Database opened(const std::string& name, int flags, const std::string& path) {
  sqlite3* handle = nullptr;
  const int code = sqlite3_open_v2(name.c_str(), &handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  Database database(handle);
  if (code != SQLITE_OK) throw last_failure(handle).continued(" (" + path + ")");
  sqlite3_extended_result_codes(handle, 1);
  return database;
}

std::string waiting_changes_of(const std::string& path) { return path + "-wal"; }

}  // namespace

FileSettings file_settings(const Url& url) {
  require_known_options(url, {"mode", "durability", "timeout", "statement_timeout"});
  require_file_path(url.location);
  FileSettings settings;
  settings.path = url.location;
  settings.open_flags = open_flags(url.option("mode", "create"));
  settings.timeout = milliseconds(url, "timeout", "5000");
  settings.reading_limit = milliseconds(url, "statement_timeout", reading_limit(url));
  settings.changing_limit = milliseconds(url, "statement_timeout", "600000");
  settings.durability = url.option("durability", "full");
  if (settings.durability != "full" && settings.durability != "normal")
    throw automation::invalid_call("sqlite: durability is full or normal");
  return settings;
}

Database open_file(const FileSettings& settings) {
  keep_files_apart_after_forks();
  return opened(settings.path, settings.open_flags, settings.path);
}

Database open_frozen(const std::string& path) {
  std::string name = "file:";
  for (const char c : path) {
    if (c == '%' || c == '?' || c == '#') {
      constexpr std::string_view digits = "0123456789ABCDEF";
      name.append({'%', digits[static_cast<unsigned char>(c) / 16], digits[static_cast<unsigned char>(c) % 16]});
    } else {
      name += c;
    }
  }
  return opened(name + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, path);
}

#if defined(_WIN32)

bool lies_in_a_closed_folder(const std::string&) { return false; }

#else

bool lies_in_a_closed_folder(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  return access(path.c_str(), R_OK) == 0 && access(folder.empty() ? "." : folder.c_str(), W_OK) != 0;
}

#endif

bool has_waiting_changes(const std::string& path) {
  std::error_code missing;
  const uintmax_t size = std::filesystem::file_size(waiting_changes_of(path), missing);
  return !missing && size != 0;
}

FileStamp stamp_of(const std::string& path) {
  std::error_code unknown;
  FileStamp stamp;
  stamp.moment = std::filesystem::last_write_time(path, unknown);
  stamp.size = std::filesystem::file_size(path, unknown);
  stamp.has_waiting_changes = has_waiting_changes(path);
  return stamp;
}

}  // namespace dorvane::sqlite
