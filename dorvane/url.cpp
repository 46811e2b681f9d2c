#include "dorvane/url.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "automation/error.h"
#include "automation/text.h"

namespace dorvane {
namespace {

/// Never a word of the URL itself: in a malformed one a password may stand anywhere.
automation::RunTimeError bad_url(std::string_view reason) {
  return automation::invalid_call(automation::concatenated({"bad database URL: ", reason}));
}

bool is_server(std::string_view scheme) { return scheme == "postgresql" || scheme == "mariadb"; }

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

}  // namespace

std::string_view Url::option(std::string_view name, std::string_view otherwise) const {
  const auto found = options.find(name);
  return found == options.end() ? otherwise : std::string_view(found->second);
}

std::string percent_decoded(std::string_view text) {
  std::string result;
  if (!decode(text, result)) throw bad_url(bad_percent);
  return result;
}

namespace {

constexpr std::string_view hidden = "…";

bool is_word(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= 'a' && c <= 'z'; });
}
bool is_number(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// An option with a value that it can have; any other value may be a secret in the wrong place.
bool is_plain(std::string_view option, std::string_view value) {
  struct Known {
    std::string_view name;
    bool (*takes)(std::string_view value);
  };
  const auto is_path = [](std::string_view text) { return text.starts_with('/'); };
  const auto is_one_of = [](std::string_view text, std::string_view words) {
    return is_word(text) && words.find(automation::concatenated({" ", text, " "})) != std::string_view::npos;
  };
  for (const Known& known :
       {Known{"timeout", is_number}, {"statement_timeout", is_number}, {"socket", is_path}, {"tls_ca", is_path}})
    if (automation::equal_ignoring_case(known.name, option)) return known.takes(value);
  return (automation::equal_ignoring_case("mode", option) && is_one_of(value, " create rw ro ")) ||
         (automation::equal_ignoring_case("durability", option) && is_one_of(value, " full normal ")) ||
         (automation::equal_ignoring_case("tls", option) && is_one_of(value, " disable prefer require verify "));
}

/// "?" and the options as they may be shown.
std::string shown_options(std::string_view options) {
  std::string shown;
  for (const std::string_view option : automation::split(options, '&')) {
    const auto equals = option.find('=');
    shown += shown.empty() ? "?" : "&";
    const bool is_shown =
        equals != std::string_view::npos && is_plain(option.substr(0, equals), option.substr(equals + 1));
    shown += is_shown ? option : hidden;
  }
  return shown;
}

/// HOST:PORT/DATABASE as it may be shown: what stands where a port should be and is none may be a password.
std::string shown_place(std::string_view place) {
  const auto slash = std::min(place.find('/'), place.size());
  const auto bracket = place.substr(0, slash).rfind(']');
  const auto colon = place.substr(0, slash).find(':', bracket == std::string_view::npos ? 0 : bracket);
  if (colon == std::string_view::npos) return std::string(place);
  const std::string_view port = place.substr(colon + 1, slash - colon - 1);
  const bool is_port = slash != place.size() && is_number(port);
  return automation::concatenated({place.substr(0, colon + 1), is_port ? port : hidden, place.substr(slash)});
}

}  // namespace

std::string shown_url(std::string_view url) {
  const auto colon = std::min(url.find(':'), url.size());
  const std::string scheme = automation::lower_case(url.substr(0, colon));
  const auto question_from = [&](size_t from) { return std::min(url.find('?', from), url.size()); };
  const auto options_from = [&](size_t question) {
    return question == url.size() ? std::string() : shown_options(url.substr(question + 1));
  };
  if (scheme == "sqlite") {
    const auto question = question_from(colon);
    return std::string(url.substr(0, question)) + options_from(question);
  }
  if (url.empty()) return {};
  if (url.substr(colon, 3) != "://" || !is_word(scheme))
    return automation::concatenated({is_server(scheme) ? scheme + ":" : "", hidden});
  const auto begin = colon + 3;
  // The last '@', wherever it stands: a password may hold any character, also '@', '/' and '?' that should be %XX.
  const auto at = url.rfind('@');
  const bool has_user = at != std::string_view::npos && at >= begin;
  const auto place = has_user ? at + 1 : begin;
  const auto question = question_from(place);
  std::string shown(url.substr(0, begin));
  if (has_user) {
    const std::string_view user = url.substr(begin, at - begin);
    const auto password = user.find(':');
    shown += user.substr(0, password);
    if (password != std::string_view::npos) shown.append(":").append(hidden);
    shown += '@';
  }
  return shown + shown_place(url.substr(place, question - place)) + options_from(question);
}

int milliseconds(const Url& url, std::string_view option, std::string_view otherwise) {
  const std::string_view text = url.option(option, otherwise);
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size() || value < 0)
    throw automation::invalid_call(
        automation::concatenated({url.scheme, ": ", option, " is a number of milliseconds, as in ", option, "=5000"}));
  return value;
}

Url parse_url(std::string_view text) {
  const auto colon = text.find(':');
  if (colon == std::string_view::npos || colon == 0)
    throw bad_url("it begins with the engine, as in 'sqlite:archive.sqlite'");
  const auto question = text.find('?', colon);
  Url url;
  url.scheme = automation::lower_case(text.substr(0, colon));
  url.written = text.substr(colon + 1, question == std::string_view::npos ? question : question - colon - 1);
  url.location = percent_decoded(url.written);
  if (question == std::string_view::npos) return url;
  for (const std::string_view pair : automation::split(text.substr(question + 1), '&')) {
    const auto equals = pair.find('=');
    if (equals == std::string_view::npos) throw bad_url("options read name=value, joined by '&'");
    url.options[automation::lower_case(pair.substr(0, equals))] = percent_decoded(pair.substr(equals + 1));
  }
  return url;
}

void require_known_options(const Url& url, std::initializer_list<std::string_view> known) {
  for (const auto& [name, unshown] : url.options) {
    if (std::find(known.begin(), known.end(), name) != known.end()) continue;
    std::string names;
    for (const std::string_view option : known) names.append(names.empty() ? "" : ", ").append(option);
    // A password with a '?' and a '=' in it would be read as an option: of a server's URL not even its name is shown.
    const std::string unknown = is_server(url.scheme) ? std::string("an option") : "the option '" + name + "'";
    throw bad_url(automation::concatenated({url.scheme, " does not know ", unknown, "; the options are ", names,
                                            is_server(url.scheme) ? "; a '?' in a password is written %3F" : ""}));
  }
}

}  // namespace dorvane
