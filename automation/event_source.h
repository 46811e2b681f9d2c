#pragma once  // installed

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "automation/export.h"
#include "automation/variant.h"

namespace automation {

struct Event;

/// The events of an object. Its sinks are called in the order in which they connected.
class AUTOMATION_API EventSource {
 public:
  using Sink = std::function<void(const Event& event, std::span<const Variant> arguments)>;

  /// Returns a cookie, the number for `disconnect`: never 0. May be called from inside an event: the new sink gets the
  /// next one.
  int32_t connect(Sink sink);
  /// True when the sink was connected. May be called from inside an event, also by the sink itself.
  bool disconnect(int32_t cookie);

  /// Calls every sink. An error that a sink raises ends the call of that sink; the next sink is called all the same.
  void raise(const Event& event, std::span<const Variant> arguments = {});

  bool has_sinks() const { return !connections_.empty(); }

 private:
  struct Connection {
    int32_t cookie;
    Sink sink;
  };
  std::vector<Connection> connections_;
  int32_t last_cookie_ = 0;
};

}  // namespace automation
