#include "dorvane/url.h"

#include <algorithm>
#include <charconv>

#include "automation/error.h"
#include "automation/text.h"

namespace dorvane {
namespace {

automation::RunTimeError bad_url(std::string_view text, std::string_view reason) {
  return {5, "bad database URL '" + std::string(text) + "': " + std::string(reason)};
}

std::string decoded(std::string_view text, std::string_view whole) {
  std::string result;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      result += text[i];
      continue;
    }
    unsigned byte = 0;
    const char* digits = text.data() + i + 1;
    const bool complete = i + 2 < text.size();
    if (!complete || std::from_chars(digits, digits + 2, byte, 16).ptr != digits + 2)
      throw bad_url(whole, "'%' is followed by two hexadecimal digits, '%25' stands for itself");
    result += static_cast<char>(byte);
    i += 2;
  }
  return result;
}

}  // namespace

std::string_view Url::option(std::string_view name, std::string_view otherwise) const {
  const auto found = options.find(name);
  return found == options.end() ? otherwise : std::string_view(found->second);
}

Url parse_url(std::string_view text) {
  const auto colon = text.find(':');
  if (colon == std::string_view::npos || colon == 0)
    throw bad_url(text, "it begins with the engine, as in 'sqlite:archive.sqlite'");
  const auto question = text.find('?', colon);
  Url url;
  url.scheme = automation::lower_case(text.substr(0, colon));
  url.location =
      decoded(text.substr(colon + 1, question == std::string_view::npos ? question : question - colon - 1), text);
  if (question == std::string_view::npos) return url;
  for (const std::string_view pair : automation::split(text.substr(question + 1), '&')) {
    const auto equals = pair.find('=');
    if (equals == std::string_view::npos) throw bad_url(text, "options read name=value, joined by '&'");
    url.options[automation::lower_case(pair.substr(0, equals))] = decoded(pair.substr(equals + 1), text);
  }
  return url;
}

void require_known_options(const Url& url, std::initializer_list<std::string_view> known) {
  for (const auto& [name, value] : url.options) {
    if (std::find(known.begin(), known.end(), name) != known.end()) continue;
    std::string names;
    for (const std::string_view option : known) names.append(names.empty() ? "" : ", ").append(option);
    std::string shown = url.scheme;
    shown.append(":…?").append(name).append("=").append(value);
    throw bad_url(shown, "the options are " + names);
  }
}

}  // namespace dorvane
