#include "hosts/vestara/archive_url.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

#include "automation/text.h"
#include "hosts/vestara/failure.h"

namespace vestara::host {
namespace {

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string decoded(std::string_view text) {
  std::string result;
  for (size_t i = 0; i < text.size(); ++i) {
    unsigned byte = 0;
    const char* digits = text.data() + i + 1;
    if (text[i] == '%' && i + 2 < text.size() && std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      result += static_cast<char>(byte);
      i += 2;
    } else {
      result += text[i];
    }
  }
  return result;
}

bool names_mode(std::string_view url) {
  const auto options = automation::split(url.substr(url.find('?') + 1), '&');
  return std::any_of(options.begin(), options.end(), [](std::string_view option) {
    return automation::equal_ignoring_case(option.substr(0, option.find('=')), "mode");
  });
}

}  // namespace

std::filesystem::path usual_archive_file() {
  std::filesystem::path folder = environment("XDG_DATA_HOME");
  if (!folder.is_absolute()) {
    const std::filesystem::path home = environment("HOME");
    if (!home.is_absolute())
      throw Failure(ExitCode::usage, "no archive is named and HOME is not set; give --db sqlite:PATH");
    folder = home / ".local" / "share";
  }
  return folder / "vestara" / "archive.sqlite";
}

std::string sqlite_url(const std::string& path) {
  std::string url = "sqlite:";
  for (const char c : path) {
    if (c == '%')
      url += "%25";
    else if (c == '?')
      url += "%3F";
    else
      url += c;
  }
  return url;
}

std::optional<std::string> file_of(std::string_view url) {
  constexpr std::string_view scheme = "sqlite:";
  if (!automation::equal_ignoring_case(url.substr(0, scheme.size()), scheme)) return std::nullopt;
  url.remove_prefix(scheme.size());
  const std::string path = decoded(url.substr(0, url.find('?')));
  if (path.empty() || path == ":memory:") return std::nullopt;
  return path;
}

std::string existing_only(const std::string& url) {
  const bool is_url = url.find(':') != std::string::npos;
  if (!is_url) return url;  // the connector says what is wrong with it
  if (url.find('?') == std::string::npos) return url + "?mode=rw";
  if (names_mode(url)) return url;
  return url + (url.back() == '?' || url.back() == '&' ? "mode=rw" : "&mode=rw");
}

bool is_usual_archive(const std::string& given) { return given.empty() && environment("VESTARA_DB").empty(); }

std::string archive_url(const std::string& given) {
  if (!given.empty()) return given;
  const std::string preset = environment("VESTARA_DB");
  return preset.empty() ? sqlite_url(usual_archive_file().string()) : preset;
}

}  // namespace vestara::host
