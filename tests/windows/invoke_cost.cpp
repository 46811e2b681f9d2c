#include <chrono>
#include <cstdio>

#include "tests/windows/client.h"
#include "vestara/archive/lotto.h"

// What a call through IDispatch costs beside the same member called directly. Printed, not judged: machines differ.

namespace {

using Clock = std::chrono::steady_clock;

template <class Body>
double nanoseconds_per_call(int calls, Body&& body) {
  double best = 1e9;
  for (int round = 0; round < 5; ++round) {
    const auto start = Clock::now();
    for (int i = 0; i < calls; ++i) body();
    const std::chrono::duration<double, std::nano> taken = Clock::now() - start;
    if (taken.count() / calls < best) best = taken.count() / calls;
  }
  return best;
}

}  // namespace

int main() {
  constexpr int calls = 200000;
  const com_client::Apartment apartment;
  const auto lotto = com_client::create("Vestara.cLotto");
  if (!lotto) return 1;
  DISPPARAMS none{};
  const double invoked = nanoseconds_per_call(calls, [&] {
    VARIANT value;
    VariantInit(&value);
    lotto->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr);
  });
  vestara::cLotto direct;
  int16_t volatile kept = 0;
  const double called = nanoseconds_per_call(calls, [&] { kept = direct.DbType(); });
  std::printf("IDispatch::Invoke %.0f ns, direct %.1f ns, difference %.0f ns\n", invoked, called, invoked - called);
  return 0;
}
