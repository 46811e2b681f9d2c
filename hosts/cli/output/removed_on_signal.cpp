#include "hosts/cli/output/removed_on_signal.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>

namespace vestara::host {
namespace {

constexpr std::array<int, 3> ending_signals{SIGINT, SIGTERM, SIGHUP};

struct Watched {
  volatile std::sig_atomic_t is_used = 0;
  std::array<char, PATH_MAX> path{};
};

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): a signal handler has no other place
std::array<Watched, 4> watched;

/// Calls nothing but what a handler may.
void remove_and_end(int signal) {
  for (const Watched& file : watched)
    if (file.is_used != 0) ::unlink(file.path.data());
  ::signal(signal, SIG_DFL);
  ::raise(signal);
}

bool none_is_watched() {
  return std::none_of(watched.begin(), watched.end(), [](const Watched& file) { return file.is_used != 0; });
}

void change_handlers(void (*from)(int), void (*to)(int)) {
  for (const int signal : ending_signals) {
    struct sigaction action {};
    ::sigaction(signal, nullptr, &action);
    if ((action.sa_flags & SA_SIGINFO) == 0 && action.sa_handler == from) ::signal(signal, to);
  }
}

sigset_t ending_set() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : ending_signals) sigaddset(&signals, signal);
  return signals;
}

}  // namespace

RemovedOnSignal::RemovedOnSignal(const std::string& path) : place_(watched.size()) {
  if (path.size() >= PATH_MAX) return;
  auto* const free =
      std::find_if(watched.begin(), watched.end(), [](const Watched& file) { return file.is_used == 0; });
  if (free == watched.end()) return;
  if (none_is_watched()) change_handlers(SIG_DFL, remove_and_end);
  std::copy(path.begin(), path.end(), free->path.begin());
  free->path.at(path.size()) = '\0';
  free->is_used = 1;
  place_ = static_cast<size_t>(free - watched.begin());
}

RemovedOnSignal::~RemovedOnSignal() {
  if (place_ == watched.size()) return;
  watched.at(place_).is_used = 0;
  if (none_is_watched()) change_handlers(remove_and_end, SIG_DFL);
}

SignalsHeldBack::SignalsHeldBack() {
  const sigset_t signals = ending_set();
  ::sigprocmask(SIG_BLOCK, &signals, &before_);
}

SignalsHeldBack::~SignalsHeldBack() { ::sigprocmask(SIG_SETMASK, &before_, nullptr); }

}  // namespace vestara::host
