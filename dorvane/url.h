#pragma once

#include <map>
#include <string>
#include <string_view>

namespace dorvane {

/// scheme:location?option=value&option=value, with %XX decoded in the location and the values.
struct Url {
  std::string scheme;
  std::string location;
  std::map<std::string, std::string, std::less<>> options;

  /// The value of an option, or `otherwise`.
  std::string_view option(std::string_view name, std::string_view otherwise) const;
};

/// Raises RunTimeError 5 with the reason when the text is no such URL.
Url parse_url(std::string_view text);

/// Raises RunTimeError 5 naming every known option when the URL has another one.
void require_known_options(const Url& url, std::initializer_list<std::string_view> known);

}  // namespace dorvane
