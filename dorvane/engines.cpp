#include <algorithm>
#include <vector>

#include "automation/error.h"
#include "automation/system/process_wide.h"
#include "automation/text.h"
#include "dorvane/connection.h"

namespace dorvane {
namespace {

struct Known {
  std::string_view scheme;
  std::string_view example;
  Engine::Open open;
};

/// Filled while libraries are loaded, by whatever engines they have. Never destroyed: another thread may still open a
/// connection while the process ends.
automation::ProcessWide<std::vector<Known>>& engines() {
  // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
  static auto* const known = new automation::ProcessWide<std::vector<Known>>;
  return *known;
}

}  // namespace

Engine::Engine(std::string_view scheme, std::string_view example, Open open) {
  engines().update([&](std::vector<Known>& known) { known.push_back({scheme, example, open}); });
}

std::unique_ptr<Connection> open_connection(const Url& url) {
  std::string examples;
  for (const Known& engine : engines().get()) {
    if (engine.scheme == url.scheme) return engine.open(url);
    examples.append(examples.empty() ? "" : ", ").append(engine.example);
  }
  // What is no word may be anything, also a password.
  const bool is_word = std::all_of(url.scheme.begin(), url.scheme.end(), [](char c) { return c >= 'a' && c <= 'z'; });
  throw automation::invalid_call(automation::concatenated(
      {"unknown database", is_word ? " '" + url.scheme + "'" : "", "; a URL reads like one of: ", examples}));
}

}  // namespace dorvane
