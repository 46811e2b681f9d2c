#include "dorvane/url.h"

#include <algorithm>
#include <charconv>

#include "automation/error.h"
#include "automation/text.h"

namespace dorvane {
namespace {

automation::RunTimeError bad_url(std::string_view text, std::string_view reason) {
  return {5, "bad database URL '" + without_password(text) + "': " + std::string(reason)};
}

/// False when a '%' is not followed by two hexadecimal digits.
bool decode(std::string_view text, std::string& result) {
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      result += text[i];
      continue;
    }
    unsigned byte = 0;
    const char* digits = text.data() + i + 1;
    const bool complete = i + 2 < text.size();
    if (!complete || std::from_chars(digits, digits + 2, byte, 16).ptr != digits + 2) return false;
    result += static_cast<char>(byte);
    i += 2;
  }
  return true;
}

constexpr std::string_view bad_percent = "'%' is followed by two hexadecimal digits, '%25' stands for itself";

std::string decoded(std::string_view text, std::string_view whole) {
  std::string result;
  if (!decode(text, result)) throw bad_url(whole, bad_percent);
  return result;
}

}  // namespace

std::string_view Url::option(std::string_view name, std::string_view otherwise) const {
  const auto found = options.find(name);
  return found == options.end() ? otherwise : std::string_view(found->second);
}

std::string percent_decoded(std::string_view text) {
  std::string result;
  if (!decode(text, result)) throw automation::RunTimeError(5, "bad database URL: " + std::string(bad_percent));
  return result;
}

std::string without_password(std::string_view url) {
  const auto slashes = url.find("://");
  if (slashes == std::string_view::npos) return std::string(url);
  // The last '@' of all: a password may hold a '?' that should have been written otherwise.
  const auto at = url.rfind('@');
  const auto colon = url.find(':', slashes + 3);
  if (at == std::string_view::npos || colon > at) return std::string(url);
  return automation::concatenated({url.substr(0, colon + 1), "…", url.substr(at)});
}

int milliseconds(const Url& url, std::string_view option, std::string_view otherwise) {
  const std::string_view text = url.option(option, otherwise);
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size() || value < 0)
    throw automation::RunTimeError(
        5, automation::concatenated({url.scheme, ": ", option, " is a number of milliseconds, not '", text, "'"}));
  return value;
}

Url parse_url(std::string_view text) {
  const auto colon = text.find(':');
  if (colon == std::string_view::npos || colon == 0)
    throw bad_url(text, "it begins with the engine, as in 'sqlite:archive.sqlite'");
  const auto question = text.find('?', colon);
  Url url;
  url.scheme = automation::lower_case(text.substr(0, colon));
  url.written = text.substr(colon + 1, question == std::string_view::npos ? question : question - colon - 1);
  url.location = decoded(url.written, text);
  if (question == std::string_view::npos) return url;
  for (const std::string_view pair : automation::split(text.substr(question + 1), '&')) {
    const auto equals = pair.find('=');
    if (equals == std::string_view::npos) throw bad_url(text, "options read name=value, joined by '&'");
    url.options[automation::lower_case(pair.substr(0, equals))] = decoded(pair.substr(equals + 1), text);
  }
  return url;
}

void require_known_options(const Url& url, std::initializer_list<std::string_view> known) {
  for (const auto& [name, unshown] : url.options) {
    if (std::find(known.begin(), known.end(), name) != known.end()) continue;
    std::string names;
    for (const std::string_view option : known) names.append(names.empty() ? "" : ", ").append(option);
    throw bad_url(automation::concatenated({url.scheme, ":…?", name, "=…"}), "the options are " + names);
  }
}

}  // namespace dorvane
