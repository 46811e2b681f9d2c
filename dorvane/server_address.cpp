#include "dorvane/server_address.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "automation/error.h"
#include "automation/text.h"

namespace dorvane {
namespace {

constexpr std::string_view form = "//user:password@host:port/database";

automation::RunTimeError not_an_address(const Url& url, std::string_view reason) {
  return automation::invalid_call(
      automation::concatenated({"bad database URL: ", reason, "; it reads ", url.scheme, ":", form}));
}

/// The piece before `mark`, which goes too; "" when there is none.
std::string_view cut_before(std::string_view& text, size_t mark) {
  if (mark == std::string_view::npos) return {};
  const std::string_view piece = text.substr(0, mark);
  text.remove_prefix(mark + 1);
  return piece;
}

/// The ':' in front of the port; one inside the brackets of a numeric address is none.
size_t port_mark(std::string_view host) {
  const auto bracket = host.rfind(']');
  return host.find(':', bracket == std::string_view::npos ? 0 : bracket);
}

/// "" is the engine's usual port.
bool is_port(std::string_view text) {
  uint16_t port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  return text.empty() || (error == std::errc() && end == text.data() + text.size());
}

std::string one_of(const Url& url, std::string_view option, std::string_view otherwise,
                   std::initializer_list<std::string_view> known) {
  const std::string_view value = url.option(option, otherwise);
  if (std::find(known.begin(), known.end(), value) != known.end()) return std::string(value);
  std::string names;
  for (const std::string_view name : known) names.append(names.empty() ? "" : ", ").append(name);
  throw automation::invalid_call(automation::concatenated({url.scheme, ": ", option, " is one of ", names}));
}

/// Raises for what is asked of the encryption and could not be done: nobody shall believe in what is not there.
void require_honourable_tls(const Url& url, const ServerSettings& settings) {
  if (settings.must_encrypt() && !settings.socket.empty())
    throw automation::invalid_call(automation::concatenated({url.scheme, ": tls=", settings.tls,
                                                             " needs a host: what goes over a socket of this "
                                                             "machine is not encrypted"}));
  if (!settings.tls_ca.empty() && settings.tls != "verify")
    throw automation::invalid_call(url.scheme + ": tls_ca names whom tls=verify trusts; without that nobody asks");
}

}  // namespace

ServerAddress server_address(const Url& url) {
  std::string_view text = url.written;
  if (!text.starts_with("//")) throw not_an_address(url, "no '//' behind the engine");
  text.remove_prefix(2);
  // The last '@' is the one: passwords may hold others, hosts none.
  std::string_view user = cut_before(text, text.rfind('@'));
  const auto slash = text.find('/');
  if (slash == std::string_view::npos || slash + 1 == text.size()) throw not_an_address(url, "it names no database");
  const std::string_view database = text.substr(slash + 1);
  std::string_view host = text.substr(0, slash);

  ServerAddress address;
  address.database = percent_decoded(database);
  const auto colon = user.find(':');
  address.user = percent_decoded(user.substr(0, colon));
  if (colon != std::string_view::npos) address.password = percent_decoded(user.substr(colon + 1));
  if (const auto mark = port_mark(host); mark != std::string_view::npos) {
    address.port = host.substr(mark + 1);
    host = host.substr(0, mark);
  }
  if (!is_port(address.port)) throw not_an_address(url, "the port is no number up to 65535");
  if (host.starts_with('[') && host.ends_with(']')) host = host.substr(1, host.size() - 2);
  address.host = percent_decoded(host);
  return address;
}

ServerSettings server_settings(const Url& url) {
  require_known_options(url, {"mode", "socket", "timeout", "statement_timeout", "tls", "tls_ca"});
  ServerSettings settings;
  settings.address = server_address(url);
  settings.socket = url.option("socket", "");
  settings.read_only = one_of(url, "mode", "rw", {"create", "rw", "ro"}) == "ro";
  settings.timeout = milliseconds(url, "timeout", "5000");
  settings.statement_timeout = milliseconds(url, "statement_timeout", "600000");
  settings.tls = one_of(url, "tls", "prefer", {"disable", "prefer", "require", "verify"});
  settings.tls_ca = url.option("tls_ca", "");
  if (!settings.socket.empty() && !settings.address.host.empty())
    throw automation::invalid_call(url.scheme + ": a host or a socket, not both");
  require_honourable_tls(url, settings);
  return settings;
}

}  // namespace dorvane
