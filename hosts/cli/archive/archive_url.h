#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "dorvane/url.h"

namespace vestara::host {

/// The user's own archive: vestara/archive.sqlite below XDG_DATA_HOME, else below ~/.local/share. Failure (usage)
/// when the environment names neither.
std::filesystem::path usual_archive_file();

/// "sqlite:" and the path, with the characters that mean something in a URL written as %XX.
std::string sqlite_url(const std::string& path);

/// The file that a URL names; nothing for archives that are no file.
std::optional<std::string> file_of(std::string_view url);

/// The same URL for an archive that must exist already; a mode that it names itself stays.
std::string existing_only(const std::string& url);

/// The URL as it may be shown: "…" in place of what could be a password.
using dorvane::shown_url;

/// True when both name one archive: one file, or one database of one server as far as the URLs tell.
bool same_archive(const std::string& left, const std::string& right);

/// True when the URL itself rules out changes.
bool asks_read_only(std::string_view url);

/// The URL that was given, else VESTARA_DB, else the user's own archive.
std::string archive_url(const std::string& given);
/// True when `archive_url` comes down to the user's own archive.
bool is_usual_archive(const std::string& given);

}  // namespace vestara::host
