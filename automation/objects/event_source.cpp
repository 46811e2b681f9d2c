#include "automation/event_source.h"

#include <algorithm>
#include <utility>

namespace automation {

int32_t EventSource::connect(Sink sink) {
  connections_.push_back({++last_cookie_, std::move(sink)});
  return last_cookie_;
}

bool EventSource::disconnect(int32_t cookie) {
  return std::erase_if(connections_, [&](const Connection& c) { return c.cookie == cookie; }) != 0;
}

void EventSource::raise(const Event& event, std::span<const Variant> arguments) {
  if (connections_.empty()) return;
  // Sinks come and go while they are called: cookies are looked up one by one.
  std::vector<int32_t> cookies;
  cookies.reserve(connections_.size());
  for (const Connection& connection : connections_) cookies.push_back(connection.cookie);
  for (const int32_t cookie : cookies) {
    const auto found =
        std::find_if(connections_.begin(), connections_.end(), [&](const Connection& c) { return c.cookie == cookie; });
    if (found == connections_.end()) continue;
    const Sink sink = found->sink;
    try {
      sink(event, arguments);
    } catch (...) {
      // The host's own trouble: the load goes on.
      continue;
    }
  }
}

}  // namespace automation
