#include "hosts/cli/terminal/interruption.h"

namespace vestara::host {
namespace {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): a signal handler has no other place
volatile std::sig_atomic_t interrupted = 0;

void note(int) { interrupted = 1; }

}  // namespace

Interruption::Interruption() {
  interrupted = 0;
  struct sigaction action {};
  action.sa_handler = note;
  action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
  ::sigaction(SIGINT, nullptr, &before_);
  if (before_.sa_handler != SIG_IGN) ::sigaction(SIGINT, &action, nullptr);
}

Interruption::~Interruption() {
  ::sigaction(SIGINT, &before_, nullptr);
  interrupted = 0;
}

bool Interruption::requested() { return interrupted != 0; }

}  // namespace vestara::host
