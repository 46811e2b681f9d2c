#include "hosts/cli/archive/archive_url.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

#include "automation/text.h"
#include "hosts/cli/failure.h"

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

/// The value of an option as it is written.
std::optional<std::string_view> option_of(std::string_view url, std::string_view name) {
  const auto question = url.find('?');
  if (question == std::string_view::npos) return std::nullopt;
  for (const std::string_view option : automation::split(url.substr(question + 1), '&')) {
    const auto equals = option.find('=');
    if (!automation::equal_ignoring_case(option.substr(0, equals), name)) continue;
    return equals == std::string_view::npos ? "" : option.substr(equals + 1);
  }
  return std::nullopt;
}

/// Where a server's archive is, in one spelling; the user does not count.
std::string place_of(std::string_view url) {
  const std::string scheme = automation::lower_case(url.substr(0, url.find(':')));
  std::string_view rest = url.substr(0, url.find('?'));
  rest.remove_prefix(std::min(rest.find("://") + 3, rest.size()));
  if (const auto at = rest.rfind('@'); at != std::string_view::npos) rest.remove_prefix(at + 1);
  const auto slash = std::min(rest.find('/'), rest.size());
  const std::string database = decoded(rest.substr(slash));
  if (const auto socket = option_of(url, "socket")) return scheme + " " + decoded(*socket) + " " + database;
  std::string host = automation::lower_case(rest.substr(0, slash));
  const std::string usual_port = scheme == "postgresql" ? ":5432" : ":3306";
  if (host.ends_with(usual_port)) host.resize(host.size() - usual_port.size());
  if (host.empty() || host == "127.0.0.1" || host == "[::1]") host = "localhost";
  return scheme + " " + host + " " + database;
}

}  // namespace

std::filesystem::path usual_archive_file() {
  std::filesystem::path folder = environment("XDG_DATA_HOME");
  if (!folder.is_absolute()) {
    const std::filesystem::path home = environment("HOME");
    if (!home.is_absolute())
      throw Failure(FailureKind::argument, "no archive is named and HOME is not set; give --db sqlite:PATH");
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
  if (option_of(url, "mode")) return url;
  return url + (url.back() == '?' || url.back() == '&' ? "mode=rw" : "&mode=rw");
}

bool same_archive(const std::string& left, const std::string& right) {
  const auto left_file = file_of(left);
  const auto right_file = file_of(right);
  std::error_code missing;
  if (left_file && right_file) return std::filesystem::equivalent(*left_file, *right_file, missing);
  const bool are_servers = left.find("://") != std::string::npos && right.find("://") != std::string::npos;
  return are_servers && place_of(left) == place_of(right);
}

bool asks_read_only(std::string_view url) { return option_of(url, "mode").value_or("") == "ro"; }

bool is_usual_archive(const std::string& given) { return given.empty() && environment("VESTARA_DB").empty(); }

std::string archive_url(const std::string& given) {
  if (!given.empty()) return given;
  const std::string preset = environment("VESTARA_DB");
  return preset.empty() ? sqlite_url(usual_archive_file().string()) : preset;
}

}  // namespace vestara::host
