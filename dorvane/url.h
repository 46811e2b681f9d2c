#pragma once  // for hosts

#include <map>
#include <string>
#include <string_view>

#include "dorvane/export.h"

namespace dorvane {

/// scheme:location?option=value&option=value, with %XX decoded in the location and the values.
struct Url {
  std::string scheme;
  std::string location;
  std::string written;  ///< the location before decoding, for those who take it apart first
  std::map<std::string, std::string, std::less<>> options;

  /// The value of an option, or `otherwise`.
  std::string_view option(std::string_view name, std::string_view otherwise) const;
};

/// Raises RunTimeError 5 with the reason when the text is no such URL. No reason of this file shows a piece of the
/// text that could be a secret.
Url parse_url(std::string_view text);

/// The text with every %XX made a byte. Raises RunTimeError 5 when one is incomplete.
std::string percent_decoded(std::string_view text);

/// A URL as it may be shown: "…" in place of whatever could be a password, also in a malformed one.
DORVANE_API std::string shown_url(std::string_view url);

/// An option that is a number of milliseconds. Raises RunTimeError 5 when it is none.
int milliseconds(const Url& url, std::string_view option, std::string_view otherwise);

/// Raises RunTimeError 5 naming every known option when the URL has another one.
void require_known_options(const Url& url, std::initializer_list<std::string_view> known);

}  // namespace dorvane
