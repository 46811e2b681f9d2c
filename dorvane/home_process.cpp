#include "dorvane/home_process.h"

#if !defined(_WIN32)
#include <pthread.h>
#endif

namespace dorvane {
namespace {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
unsigned forks = 0;

#if !defined(_WIN32)
// The child has one thread when this runs.
const int counted = pthread_atfork(nullptr, nullptr, [] { ++forks; });
#endif

}  // namespace

unsigned HomeProcess::generation() { return forks; }

}  // namespace dorvane
