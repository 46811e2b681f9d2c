#include <vector>

#include "automation/error.h"
#include "automation/text.h"
#include "dorvane/connection.h"

namespace dorvane {
namespace {

struct Known {
  std::string_view scheme;
  std::string_view example;
  Engine::Open open;
};

/// Filled before main, by whatever engines are linked in.
std::vector<Known>& engines() {
  static std::vector<Known> known;
  return known;
}

}  // namespace

Engine::Engine(std::string_view scheme, std::string_view example, Open open) {
  engines().push_back({scheme, example, open});
}

std::unique_ptr<Connection> open_connection(const Url& url) {
  std::string examples;
  for (const Known& engine : engines()) {
    if (engine.scheme == url.scheme) return engine.open(url);
    examples.append(examples.empty() ? "" : ", ").append(engine.example);
  }
  throw automation::RunTimeError(
      5, automation::concatenated({"unknown database '", url.scheme, "'; a URL reads like one of: ", examples}));
}

}  // namespace dorvane
